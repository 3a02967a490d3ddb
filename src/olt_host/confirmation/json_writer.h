// The results as one JSON document: {"catalogue": ..., "results": [...],
// "summary": ...}.
#ifndef OLT_HOST_CONFIRMATION_JSON_WRITER_H
#define OLT_HOST_CONFIRMATION_JSON_WRITER_H

#include <nlohmann/json.hpp>
#include <ostream>

#include "confirmation/result_writer.h"

namespace olt_host {

// One result and one summary as they stand in the document.
nlohmann::ordered_json ResultJson(const ConfirmationResult& result);
nlohmann::ordered_json SummaryJson(const ConfirmationSummary& summary);

class JsonWriter : public ResultWriter {
 public:
  JsonWriter(std::ostream& out, bool summary_only) : _out(out), _summary_only(summary_only) {}

  void Begin(const ConfirmationRun& run) override;
  void Write(const ConfirmationResult& result) override;
  void End(const ConfirmationSummary& summary) override;

 private:
  std::ostream& _out;
  bool _summary_only;
  bool _first = true;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_JSON_WRITER_H
