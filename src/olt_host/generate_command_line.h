// The subcommand that makes a population to test with.
#ifndef OLT_HOST_GENERATE_COMMAND_LINE_H
#define OLT_HOST_GENERATE_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace olt_host {

CLI::App* AddGenerate(CLI::App& app, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_GENERATE_COMMAND_LINE_H
