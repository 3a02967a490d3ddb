// The subcommands capture and replay.
#ifndef OLT_HOST_CAPTURE_COMMAND_LINE_H
#define OLT_HOST_CAPTURE_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace olt_host {

CLI::App* AddCapture(CLI::App& app, CommandLine& result);
CLI::App* AddReplay(CLI::App& app, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_CAPTURE_COMMAND_LINE_H
