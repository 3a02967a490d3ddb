// Options of the jobs that go through whole networks, and the subcommand that adds their
// summaries up.
#ifndef OLT_HOST_NETWORK_COMMAND_LINE_H
#define OLT_HOST_NETWORK_COMMAND_LINE_H

#include <CLI/CLI.hpp>

#include "command_line.h"

namespace olt_host {

// Whether reports of that name are JSON lines: FILE.jsonl, or - for standard input.
bool IsJsonLines(const std::string& reports);

// Whether an option is given that only such reports have a use for.
bool IsForNetworks(const NetworkOptions& options);

// --shard; and --workers and --checkpoint, which do not need reports.
void AddShardOption(CLI::App& command, CommandLine& result);
void AddWorkerOptions(CLI::App& command, CommandLine& result);

CLI::App* AddMerge(CLI::App& app, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_COMMAND_LINE_H
