// Options that several jobs of the command line have in common.
#ifndef OLT_HOST_COMMAND_OPTIONS_H
#define OLT_HOST_COMMAND_OPTIONS_H

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <string>

#include "command_line.h"

namespace olt_host {

// Each adds to `command` and fills `result`, which both must outlive the parsing.

// CATALOGUE and REPORTS, in the order called.
void AddCatalogue(CLI::App& command, CommandLine& result, bool required);
void AddReports(CLI::App& command, CommandLine& result, bool required);
// --onu; `take` is given the place and the number there.
CLI::Option* AddOnuOption(CLI::App& command, const std::string& description,
                          const std::function<void(std::uint16_t, std::uint8_t)>& take);
// --local, --keep-going.
void AddCatalogueOptions(CLI::App& command, CommandLine& result);
// --log, --log-levels.
void AddLogOptions(CLI::App& command, CommandLine& result);
// All of these and --state: of every job for operators.
void AddLoadingOptions(CLI::App& command, CommandLine& result);
// Nothing is logged unless one of the log options is given.
void LogOnlyWhenAsked(CLI::App& command, CommandLine& result);

}  // namespace olt_host

#endif  // OLT_HOST_COMMAND_OPTIONS_H
