// The inbox of the unknown for the eye and for programs: what Host().population holds that
// nothing recognises, or the order of profiles alone.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_UNKNOWN_OUTPUT_H
#define OLT_HOST_COMMANDS_UNKNOWN_OUTPUT_H

#include <nlohmann/json.hpp>
#include <string>

#include "vty/terminal.h"

namespace olt_host {

// The largest groups, or `all`; `hint` says how to see the rest.
void WriteUnknownOnus(struct vty& terminal, bool all, const std::string& hint);

// All groups.
nlohmann::ordered_json UnknownOnusJson();

// The entries for what nothing recognises, but those that would take an ONU that exactly one
// profile fits, as a file of a catalogue.
std::string UnknownEntries();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_UNKNOWN_OUTPUT_H
