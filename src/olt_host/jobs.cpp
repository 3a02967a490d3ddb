#include "jobs.h"

#include <unistd.h>

#include <iostream>
#include <optional>
#include <stdexcept>

#include "catalogue/catalogue_reader.h"
#include "catalogue/report_reader.h"
#include "confirmation/confirmer.h"
#include "confirmation/population.h"
#include "confirmation/progress_bar.h"
#include "console/console.h"
#include "exit_status.h"
#include "startup.h"

namespace olt_host {

namespace {

// Rows that scroll by on the same terminal show the progress themselves.
bool WantsProgressBar(bool writes_rows) {
  return isatty(STDERR_FILENO) != 0 && (!writes_rows || isatty(STDOUT_FILENO) == 0);
}

ConfirmationSummary ConfirmPopulation(const Population& population, bool writes_rows,
                                      ResultWriter& writer) {
  ConfirmationSummary summary;
  ProgressBar progress(std::cerr, WantsProgressBar(writes_rows), population.Onus().size());
  for (const OnuReport& report : population.Onus()) {
    const ConfirmationResult result = ConfirmOnu(population, report);
    summary.Count(result);
    writer.Write(result);
    progress.Show(summary.onus);
  }
  return summary;
}

ConfirmationSummary RunConfirmation(const ConfirmationRun& run, const Population& population,
                                    OutputFormat format, bool summary_only) {
  const auto writer = MakeResultWriter(format, summary_only, std::cout);
  writer->Begin(run);
  const ConfirmationSummary summary = ConfirmPopulation(population, !summary_only, *writer);
  writer->End(summary);
  if (!std::cout.flush()) {
    throw std::runtime_error("standard output cannot be written");
  }
  return summary;
}

}  // namespace

int RunJob(const CommandLine& command_line) {
  // Everything is read and checked before the library is touched.
  const Catalogue catalogue = ReadCatalogue(command_line.catalogue);
  ConfirmationRun run{catalogue.name, catalogue.version, ""};
  std::optional<Population> population;
  if (!command_line.reports.empty()) {
    Reports reports = ReadReports(command_line.reports, catalogue);
    run.reports_name = reports.name;
    population.emplace(std::move(reports));
  }
  OpenLog(command_line.log);
  const RunningLibrary library(catalogue);
  int status = kExitOk;
  if (population) {
    const bool summary_only = command_line.summary_only || command_line.job == Job::kConsole;
    const ConfirmationSummary summary =
        RunConfirmation(run, *population, command_line.format, summary_only);
    status = summary.expectation_failed == 0 ? kExitOk : kExitNotAsExpected;
  }
  if (command_line.job == Job::kConsole) {
    status = RunConsole(kCommandNode);
  }
  return status;
}

}  // namespace olt_host
