#include "confirmation/table_writer.h"

#include <string>

#include "confirmation/summary_writer.h"
#include "text/columns.h"

namespace olt_host {

namespace {

// Column widths; with the gaps of WriteRow a line has kLineColumns characters at most.
constexpr std::size_t kOnuWidth = 9;
constexpr std::size_t kVendorWidth = 6;
constexpr std::size_t kReportedWidth = 10;
constexpr std::size_t kBecomesWidth = 7;
constexpr std::size_t kRealWidth = 5;
constexpr std::size_t kNameWidth = 20;
constexpr std::size_t kHowWidth = 9;

std::string Blanks(const std::string& text, std::size_t width) {
  const std::size_t columns = DisplayWidth(text);
  return columns < width ? std::string(width - columns, ' ') : "";
}

std::string Left(const std::string& text, std::size_t width) { return text + Blanks(text, width); }

std::string Right(const std::string& text, std::size_t width) { return Blanks(text, width) + text; }

struct Row {
  std::string onu, vendor, reported, becomes, real, name, how, ok;
};

void WriteRow(std::ostream& out, const Row& row) {
  out << Left(row.onu, kOnuWidth) << ' ' << Left(row.vendor, kVendorWidth) << ' '
      << Right(row.reported, kReportedWidth) << ' ' << Right(row.becomes, kBecomesWidth) << "  "
      << Right(row.real, kRealWidth) << "  " << Left(row.name, kNameWidth) << "  "
      << Left(row.how, kHowWidth) << ' ' << row.ok << "\n";
}

}  // namespace

void TableWriter::Begin(const ConfirmationRun& /*run*/) {
  WriteRow(_out,
           {"Place/ONU", "Vendor", "Reported", "Becomes", "Real", "Type name", "Known by", "OK?"});
}

void TableWriter::Write(const ConfirmationResult& result) {
  Row row;
  row.onu = std::to_string(result.place) + "/" + std::to_string(result.onu);
  row.vendor = result.vendor_id.value_or("-");
  row.reported = result.reported_type == kUnknownReportedType
                     ? "unknown"
                     : std::to_string(result.reported_type);
  row.becomes = result.translated ? std::to_string(result.report_type) : "";
  row.real = result.real_type ? std::to_string(*result.real_type) : "-";
  row.name = result.type_name.empty() ? "-" : result.type_name;
  row.how = result.how == Recognition::kNone ? "-" : ToText(result.how);
  row.ok = !result.expect ? "-" : result.Ok() ? "yes" : "NO";
  WriteRow(_out, row);
  if (!result.Ok()) {
    _out << std::string(kOnuWidth + 1, ' ') << DescribeFailure(result) << "\n";
  }
}

void TableWriter::End(const ConfirmationSummary& summary) {
  _out << "\n";
  WriteSummary(_out, summary);
}

}  // namespace olt_host
