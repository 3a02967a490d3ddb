#include "explain_command_line.h"

#include "command_options.h"

namespace olt_host {

CLI::App* AddExplain(CLI::App& app, CommandLine& result) {
  ExplainOptions& options = result.explain;
  CLI::App* explain = app.add_subcommand("explain", "Tell why an ONU is recognised as what it is");
  AddCatalogue(*explain, result, true);
  AddReports(*explain, result, true);
  AddOnuOption(*explain, "The ONU: its place and number",
               [&options](std::uint16_t place, std::uint8_t onu) {
                 options.place = place;
                 options.onu = onu;
               })
      ->required();
  CLI::Option* all =
      explain->add_flag("--all", options.all, "Show every match profile, not only the nearest");
  explain->add_flag("--json", options.json, "Print one JSON document, with every match profile")
      ->excludes(all);
  AddCatalogueOptions(*explain, result);
  AddLogOptions(*explain, result);
  LogOnlyWhenAsked(*explain, result);
  explain->footer(
      "Tells what the ONU reported, which match profile took it and where that stands,\n"
      "why each other did not, and what the identify modes make of its type.\n\n"
      "Exit status:\n"
      "  0  explained, recognised or not\n"
      "  2  bad usage or bad input, such as an ONU that is not in REPORTS; one message\n"
      "     on standard error says where\n");
  return explain;
}

}  // namespace olt_host
