#include "unknown_command_line.h"

#include "command_options.h"

namespace olt_host {

CLI::App* AddUnknown(CLI::App& app, CommandLine& result) {
  UnknownOptions& options = result.unknown;
  CLI::App* unknown =
      app.add_subcommand("unknown", "Show ONUs that nothing or only luck recognises");
  AddCatalogue(*unknown, result, true);
  AddReports(*unknown, result, true);
  CLI::Option* all =
      unknown->add_flag("--all", options.all, "Show every group, not only the largest");
  CLI::Option* json =
      unknown->add_flag("--json", options.json, "Print one JSON document, with every group");
  CLI::Option* entries = unknown->add_flag("--entries", options.entries,
                                           "Print the entries alone, a file for --local");
  all->excludes(json)->excludes(entries);
  json->excludes(entries);
  AddCatalogueOptions(*unknown, result);
  AddLogOptions(*unknown, result);
  LogOnlyWhenAsked(*unknown, result);
  unknown->footer(
      "ONUs that no match profile recognises, and those that several fit so that only\n"
      "their order decides, grouped by what they reported; with the nearest profiles,\n"
      "what separates them, and an entry for the catalogue.\n\n"
      "--entries prints the entries for what nothing recognises, but those that would\n"
      "change the type of an ONU that exactly one match profile fits now.\n\n"
      "Exit status:\n"
      "  0  shown, even if there is none\n"
      "  2  bad usage or bad input; one message on standard error says where\n");
  return unknown;
}

}  // namespace olt_host
