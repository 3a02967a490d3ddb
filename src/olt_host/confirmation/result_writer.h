// Writes the results of a confirmation, one by one as they come, so that the
// output does not grow in memory with the population.
#ifndef OLT_HOST_CONFIRMATION_RESULT_WRITER_H
#define OLT_HOST_CONFIRMATION_RESULT_WRITER_H

#include <memory>
#include <ostream>
#include <string>

#include "confirmation/confirmation_result.h"

namespace olt_host {

// What was confirmed against what, for the head of an output.
struct ConfirmationRun {
  std::string catalogue_name;
  std::string catalogue_version;
  std::string reports_name;
};

class ResultWriter {
 public:
  virtual ~ResultWriter() = default;
  // Begin once, Write for every ONU, End once.
  virtual void Begin(const ConfirmationRun& run) = 0;
  virtual void Write(const ConfirmationResult& result) = 0;
  virtual void End(const ConfirmationSummary& summary) = 0;
};

enum class OutputFormat { kTable, kJson, kCsv };

// A writer to `out`, which must outlive it. With `summary_only` the results
// themselves are left out; CSV has no summary.
std::unique_ptr<ResultWriter> MakeResultWriter(OutputFormat format, bool summary_only,
                                               std::ostream& out);

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_RESULT_WRITER_H
