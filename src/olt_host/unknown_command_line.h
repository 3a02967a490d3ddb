// The subcommand unknown.
#ifndef OLT_HOST_UNKNOWN_COMMAND_LINE_H
#define OLT_HOST_UNKNOWN_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace olt_host {

CLI::App* AddUnknown(CLI::App& app, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_UNKNOWN_COMMAND_LINE_H
