#include "lint_command_line.h"

#include "command_options.h"

namespace olt_host {

CLI::App* AddLint(CLI::App& app, CommandLine& result) {
  LintOptions& options = result.lint;
  CLI::App* lint = app.add_subcommand("lint", "Find what is wrong with a catalogue");
  AddCatalogue(*lint, result, true);
  AddReports(*lint, result, false);
  CLI::Option* all = lint->add_flag("--all", options.all, "List the notes, too, not only counts");
  lint->add_flag("--json", options.json, "Print one JSON document, with all notes and all proofs")
      ->excludes(all);
  AddCatalogueOptions(*lint, result);
  AddLogOptions(*lint, result);
  LogOnlyWhenAsked(*lint, result);
  lint->footer(
      "Looks for match profiles that no report can reach, that hide others or share\n"
      "reports with them, for profiles without their other half, shared keys, codes\n"
      "that nobody uses and more. With REPORTS, it also tells which match profiles none\n"
      "of these ONUs reaches.\n\n"
      "Exit status:\n"
      "  0  nothing but notes\n"
      "  1  warnings or errors\n"
      "  2  bad usage or bad input; one message on standard error says where\n");
  return lint;
}

}  // namespace olt_host
