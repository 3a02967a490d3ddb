// The results as a table for a terminal of 80 columns, the summary below it.
#ifndef OLT_HOST_CONFIRMATION_TABLE_WRITER_H
#define OLT_HOST_CONFIRMATION_TABLE_WRITER_H

#include <ostream>

#include "confirmation/result_writer.h"

namespace olt_host {

class TableWriter : public ResultWriter {
 public:
  explicit TableWriter(std::ostream& out) : _out(out) {}

  void Begin(const ConfirmationRun& run) override;
  void Write(const ConfirmationResult& result) override;
  void End(const ConfirmationSummary& summary) override;

 private:
  std::ostream& _out;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_TABLE_WRITER_H
