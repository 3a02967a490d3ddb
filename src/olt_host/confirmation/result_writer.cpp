#include "confirmation/result_writer.h"

#include "confirmation/csv_writer.h"
#include "confirmation/json_writer.h"
#include "confirmation/summary_writer.h"
#include "confirmation/table_writer.h"

namespace olt_host {

std::unique_ptr<ResultWriter> MakeResultWriter(OutputFormat format, bool summary_only,
                                               std::ostream& out) {
  switch (format) {
    case OutputFormat::kJson:
      return std::make_unique<JsonWriter>(out, summary_only);
    case OutputFormat::kCsv:
      return std::make_unique<CsvWriter>(out);
    case OutputFormat::kTable:
      break;
  }
  if (summary_only) {
    return std::make_unique<SummaryWriter>(out);
  }
  return std::make_unique<TableWriter>(out);
}

}  // namespace olt_host
