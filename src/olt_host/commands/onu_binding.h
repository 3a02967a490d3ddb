// The commands that raise and lower the bind count of an operator's real profile, which
// the library does not delete while it is not 0. By which ONUs it was raised is not kept.
// Shipped profiles have no count.
#ifndef OLT_HOST_COMMANDS_ONU_BINDING_H
#define OLT_HOST_COMMANDS_ONU_BINDING_H

#include "vty.h"

namespace olt_host {

// Handlers; arguments place and number.
int BindOnu(cmd_element* element, struct vty* vty, int argc, char** argv);
int UnbindOnu(cmd_element* element, struct vty* vty, int argc, char** argv);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_ONU_BINDING_H
