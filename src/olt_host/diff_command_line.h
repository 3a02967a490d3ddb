// The subcommand diff.
#ifndef OLT_HOST_DIFF_COMMAND_LINE_H
#define OLT_HOST_DIFF_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace olt_host {

CLI::App* AddDiff(CLI::App& app, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_DIFF_COMMAND_LINE_H
