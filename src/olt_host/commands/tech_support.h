// "show tech-support": everything that a report of a fault needs, in one answer. It
// puts together what other commands answer, in text under headings, in JSON as one
// document with their documents as members, and adds what no command shows.
#ifndef OLT_HOST_COMMANDS_TECH_SUPPORT_H
#define OLT_HOST_COMMANDS_TECH_SUPPORT_H

#include "vty.h"

namespace olt_host {

// The handler; its last argument may be json.
int ShowTechSupport(cmd_element* element, struct vty* vty, int argc, char** argv);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_TECH_SUPPORT_H
