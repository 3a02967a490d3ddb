// The results as comma-separated values with a line of headings. A text is in
// quotes where it needs them, quotes within doubled; what is unknown or not
// stated is an empty field.
#ifndef OLT_HOST_CONFIRMATION_CSV_WRITER_H
#define OLT_HOST_CONFIRMATION_CSV_WRITER_H

#include <ostream>
#include <string>

#include "confirmation/result_writer.h"

namespace olt_host {

// The head and one result, each with its line break; and one field.
std::string CsvHeader();
std::string CsvRow(const ConfirmationResult& result);
std::string CsvField(const std::string& text);

class CsvWriter : public ResultWriter {
 public:
  explicit CsvWriter(std::ostream& out) : _out(out) {}

  void Begin(const ConfirmationRun& run) override;
  void Write(const ConfirmationResult& result) override;
  void End(const ConfirmationSummary& summary) override;

 private:
  std::ostream& _out;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_CSV_WRITER_H
