// The subcommands that ask which types can do something and how two differ.
#ifndef OLT_HOST_TYPES_COMMAND_LINE_H
#define OLT_HOST_TYPES_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace olt_host {

CLI::App* AddTypes(CLI::App& app, CommandLine& result);
CLI::App* AddCompare(CLI::App& app, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_TYPES_COMMAND_LINE_H
