// A live ONU as an operator names it: its place and its number.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_ONU_ARGUMENT_H
#define OLT_HOST_COMMANDS_ONU_ARGUMENT_H

#include <cstdint>
#include <optional>
#include <string>

#include "catalogue/reports.h"
#include "vty/terminal.h"

namespace olt_host {

// The ONU of the arguments place and number, which the framework has checked; null,
// and the command refused, when there is none.
const OnuReport* FindOnuArgument(struct vty& terminal, char** argv);

// Messages for a refusal. An unknown ONU is answered with the nearest known ones of
// its place, or else the nearest places; without a number the place is unknown.
std::string UnknownOnu(std::uint16_t place, std::optional<std::uint8_t> onu);
std::string NoOnus();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_ONU_ARGUMENT_H
