#include <unistd.h>

#include <iostream>
#include <stdexcept>

#include "commands/host_context.h"
#include "commands/live_onus.h"
#include "confirmation/progress_bar.h"
#include "exit_status.h"
#include "jobs.h"
#include "network_command_line.h"
#include "standard_output.h"
#include "startup.h"

namespace olt_host {

namespace {

// Rows that scroll by on the same terminal show the progress themselves.
bool WantsProgressBar(bool writes_rows) {
  return isatty(STDERR_FILENO) != 0 && (!writes_rows || isatty(STDOUT_FILENO) == 0);
}

}  // namespace

ConfirmationSummary ConfirmPopulation(OutputFormat format, bool summary_only) {
  const Catalogue& catalogue = Host().catalogue.catalogue;
  const Population& population = *Host().population;
  const auto writer = MakeResultWriter(format, summary_only, std::cout);
  writer->Begin({catalogue.name, catalogue.version, population.Name()});
  ConfirmationSummary summary;
  {
    ProgressBar progress(std::cerr, WantsProgressBar(!summary_only), population.Onus().size());
    for (const OnuReport& report : population.Onus()) {
      const ConfirmationResult& result = ConfirmLiveOnu(report).result;
      summary.Count(result);
      writer->Write(result);
      progress.Show(summary.onus);
    }
  }
  writer->End(summary);
  FlushStandardOutput();
  return summary;
}

int RunConfirmJob(const CommandLine& command_line) {
  if (IsJsonLines(command_line.reports) && command_line.olt.empty())
    return RunNetworkConfirmJob(command_line);
  if (IsForNetworks(command_line.network)) {
    throw std::runtime_error(
        "--shard, --workers and --checkpoint are for whole networks; expected REPORTS of JSON "
        "lines, without --olt");
  }
  const auto library = StartHost(command_line);
  const ConfirmationSummary summary =
      ConfirmPopulation(command_line.format, command_line.summary_only);
  return summary.expectation_failed == 0 ? kExitOk : kExitNotAsExpected;
}

}  // namespace olt_host
