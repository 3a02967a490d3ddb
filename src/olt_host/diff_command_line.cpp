#include "diff_command_line.h"

#include <algorithm>

#include "command_options.h"
#include "network_command_line.h"

namespace olt_host {

CLI::App* AddDiff(CLI::App& app, CommandLine& result) {
  DiffOptions& options = result.diff;
  CLI::App* diff = app.add_subcommand("diff", "Show what another catalogue makes of the ONUs");
  diff->add_option("OLD", options.older, "Catalogue of ONU models as it is: a file or folder")
      ->required()
      ->type_name("PATH");
  diff->add_option("NEW", options.newer, "Catalogue as it is to be")->required()->type_name("PATH");
  diff->add_option("REPORTS", options.reports, "What the ONUs report; one file or more")
      ->required()
      ->type_name("FILE");
  diff->add_flag("--json", options.json, "Print one JSON document, with all groups");
  AddShardOption(*diff, result);
  AddWorkerOptions(*diff, result);
  AddLogOptions(*diff, result);
  diff->callback([diff, &result] {
    // A line for each of very many ONUs is not what anybody waits for.
    const std::vector<std::string>& reports = result.diff.reports;
    if (std::none_of(reports.begin(), reports.end(), IsJsonLines)) return;
    if (diff->count("--log") == 0 && diff->count("--log-levels") == 0) result.log.mask = 0;
  });
  diff->footer(
      "Confirms every ONU under both and tells which change type, become known or\n"
      "unknown, are reported as another type, or owe their type to the order of the\n"
      "profiles; with the first ONUs of each group and the reason.\n\n"
      "REPORTS are YAML, or all JSON lines: files that end in .jsonl, or - for standard\n"
      "input, an ONU a line, of a network of any size. Of these, --json prints what\n"
      "merge adds up.\n\n"
      "Exit status:\n"
      "  0  every ONU stays what it is\n"
      "  1  some do not\n"
      "  2  bad usage or bad input; one message on standard error says where; or lines\n"
      "     of JSON that were left out\n");
  return diff;
}

}  // namespace olt_host
