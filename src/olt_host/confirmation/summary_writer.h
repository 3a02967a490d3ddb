// The summary of a confirmation as text: counts, and the ONUs that were not
// confirmed as expected.
#ifndef OLT_HOST_CONFIRMATION_SUMMARY_WRITER_H
#define OLT_HOST_CONFIRMATION_SUMMARY_WRITER_H

#include <ostream>
#include <string>
#include <vector>

#include "confirmation/result_writer.h"

namespace olt_host {

// The counts alone, a line each.
void WriteSummary(std::ostream& out, const ConfirmationSummary& summary);

// Keeps only the first failures, to show them below the counts.
class SummaryWriter : public ResultWriter {
 public:
  explicit SummaryWriter(std::ostream& out) : _out(out) {}

  void Begin(const ConfirmationRun& run) override;
  void Write(const ConfirmationResult& result) override;
  void End(const ConfirmationSummary& summary) override;

 private:
  std::ostream& _out;
  std::vector<std::string> _failures;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_SUMMARY_WRITER_H
