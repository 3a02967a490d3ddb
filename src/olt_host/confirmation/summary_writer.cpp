#include "confirmation/summary_writer.h"

#include <cstdint>
#include <iomanip>

#include "catalogue/catalogue.h"

namespace olt_host {

namespace {

constexpr std::size_t kShownFailures = 10;

void WriteCount(std::ostream& out, const char* what, std::uint64_t count) {
  out << "  " << std::left << std::setw(34) << what << std::right << std::setw(8) << count << "\n";
}

}  // namespace

void WriteSummary(std::ostream& out, const ConfirmationSummary& summary) {
  WriteCount(out, "ONUs confirmed", summary.onus);
  WriteCount(out, "recognised by reported type", summary.by_type);
  WriteCount(out, "recognised by abilities", summary.by_abilities);
  WriteCount(out, "not recognised", summary.not_recognised);
  WriteCount(out, "reported type translated", summary.translated);
  WriteCount(out, "with an expectation", summary.with_expectation);
  WriteCount(out, "not as expected", summary.expectation_failed);
}

void SummaryWriter::Begin(const ConfirmationRun& run) {
  _out << "Catalogue: " << NameAndVersion(run.catalogue_name, run.catalogue_version) << "\n";
  if (!run.reports_name.empty()) {
    _out << "Reports:   " << run.reports_name << "\n";
  }
  _out << "\n";
}

void SummaryWriter::Write(const ConfirmationResult& result) {
  if (!result.Ok() && _failures.size() < kShownFailures) {
    _failures.push_back(ToText(result.position) + ": ONU " + std::to_string(result.place) + "/" +
                        std::to_string(result.onu) + " " + DescribeOutcome(result) + "; " +
                        DescribeFailure(result));
  }
}

void SummaryWriter::End(const ConfirmationSummary& summary) {
  WriteSummary(_out, summary);
  if (_failures.empty()) {
    return;
  }
  _out << "\nNot as expected:\n";
  for (const std::string& failure : _failures) {
    _out << "  " << failure << "\n";
  }
  if (summary.expectation_failed > _failures.size()) {
    _out << "  and " << summary.expectation_failed - _failures.size() << " more\n";
  }
}

}  // namespace olt_host
