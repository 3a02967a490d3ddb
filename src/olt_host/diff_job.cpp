#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include "catalogue/catalogue_files.h"
#include "confirmation/progress_bar.h"
#include "exit_status.h"
#include "jobs.h"
#include "network/network_difference.h"
#include "network_command_line.h"
#include "platform/log_sink.h"
#include "recognition/catalogue_exchange.h"
#include "recognition/difference_text.h"
#include "recognition/reports_of_both.h"
#include "standard_output.h"
#include "startup.h"
#include "text/columns.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

Catalogue ReadCatalogue(const std::string& path) {
  CatalogueRequest request;
  request.shipped = {path};
  return ReadCatalogueFiles(request).catalogue;
}

// Both catalogues, the population and what becomes of it otherwise.
struct Comparison {
  Catalogue older;
  Catalogue newer;
  ReportsOfBoth reports;
  PopulationDifference difference;
};

std::size_t CountOnus(const Populations& populations) {
  std::size_t onus = 0;
  for (const auto& population : populations) onus += population->Onus().size();
  return onus;
}

// REQUIRES: the library holds the older catalogue.
void CompareUnderBoth(Comparison& comparison) {
  const std::size_t onus = CountOnus(comparison.reports.for_older);
  ProgressBar progress(std::cerr, isatty(STDERR_FILENO) != 0, 2 * onus);
  const PopulationOutcome before = OutcomeOf(
      comparison.reports.for_older, [&progress](std::size_t done) { progress.Show(done); });
  LoadInstead(comparison.newer);
  const PopulationOutcome after =
      OutcomeOf(comparison.reports.for_newer,
                [&progress, onus](std::size_t done) { progress.Show(onus + done); });
  comparison.difference = Compare(before, after);
  AskAfter(comparison.difference, ExamplesOf(comparison.reports.for_newer));
  LoadInstead(comparison.older);
  AskBefore(comparison.difference, ExamplesOf(comparison.reports.for_older));
}

std::string CatalogueLine(const char* which, const std::string& path, const Catalogue& catalogue) {
  const std::string file = std::string(which) + "  " + path;
  const std::string name = NameAndVersion(Quoted(catalogue.name), catalogue.version);
  const bool fits = DisplayWidth(file) + 2 + DisplayWidth(name) <= kLineColumns;
  return file + (fits ? ": " : "\n     ") + name + "\n";
}

void WriteText(const DiffOptions& options, const Comparison& comparison,
               const DifferenceView& view) {
  std::cout << CatalogueLine("OLD", options.older, comparison.older)
            << CatalogueLine("NEW", options.newer, comparison.newer);
  for (const CodeOfOne& code : comparison.reports.codes_of_one) std::cout << NoteOf(code);
  std::cout << "\n" << DifferenceText(view);
}

Json CatalogueJson(const std::string& path, const Catalogue& catalogue) {
  return {{"path", path}, {"name", catalogue.name}, {"version", catalogue.version}};
}

void WriteJson(const DiffOptions& options, const Comparison& comparison,
               const DifferenceView& view) {
  Json json = {{"old", CatalogueJson(options.older, comparison.older)},
               {"new", CatalogueJson(options.newer, comparison.newer)},
               {"reports", options.reports},
               {"codes_of_one", ToJson(comparison.reports.codes_of_one)}};
  json.update(DifferenceJson(view));
  std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

void ExpectJsonLines(const std::vector<std::string>& reports) {
  for (const std::string& file : reports) {
    if (IsJsonLines(file)) continue;
    throw std::runtime_error(file +
                             ": no JSON lines; expected a name that ends in .jsonl, as beside "
                             "others of them and with --shard, --workers and --checkpoint");
  }
}

}  // namespace

int RunDiffJob(const CommandLine& command_line) {
  const DiffOptions& options = command_line.diff;
  const auto lines = std::count_if(options.reports.begin(), options.reports.end(), IsJsonLines);
  if (lines > 0 || IsForNetworks(command_line.network)) {
    ExpectJsonLines(options.reports);
    return RunNetworkDiffJob(command_line);
  }
  Comparison comparison;
  comparison.older = ReadCatalogue(options.older);
  comparison.newer = ReadCatalogue(options.newer);
  comparison.reports = ReadReportsOfBoth(options.reports, comparison.older, comparison.newer);
  OpenLog(command_line.log);
  const RunningLibrary library(comparison.older);
  CompareUnderBoth(comparison);
  const DifferenceView view{comparison.difference, options.reports};
  (options.json ? WriteJson : WriteText)(options, comparison, view);
  FlushStandardOutput();
  return comparison.difference.Changed() == 0 ? kExitOk : kExitNotAsExpected;
}

}  // namespace olt_host
