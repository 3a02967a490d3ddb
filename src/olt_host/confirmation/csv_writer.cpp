#include "confirmation/csv_writer.h"

#include <sstream>
#include <string>

namespace olt_host {

namespace {

template <typename Number>
std::string NumberOrNothing(const std::optional<Number>& number) {
  return number ? std::to_string(*number) : "";
}

// Here "none" is a statement, unlike the empty field of no expectation.
std::string ExpectedRealType(const std::optional<Expectation>& expect) {
  if (!expect) {
    return "";
  }
  return expect->real_type ? std::to_string(*expect->real_type) : "none";
}

}  // namespace

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) {
    return text;
  }
  std::string field = "\"";
  for (const char character : text) {
    field += character;
    if (character == '"') {
      field += '"';
    }
  }
  return field + "\"";
}

std::string CsvHeader() {
  return "place,onu,vendor_id,reported_type,real_type,type_name,recognised_by,translated,"
         "report_type,expected_real_type,expected_recognised_by,expected_report_type,ok\n";
}

std::string CsvRow(const ConfirmationResult& result) {
  const auto& expect = result.expect;
  std::ostringstream row;
  row << result.place << ',' << static_cast<unsigned int>(result.onu) << ','
      << CsvField(result.vendor_id.value_or("")) << ','
      << (result.reported_type == kUnknownReportedType ? "" : std::to_string(result.reported_type))
      << ',' << NumberOrNothing(result.real_type) << ',' << CsvField(result.type_name) << ','
      << ToText(result.how) << ',' << (result.translated ? "yes" : "no") << ','
      << result.report_type << ',' << ExpectedRealType(expect) << ','
      << (expect && expect->how ? ToText(*expect->how) : "") << ','
      << (expect ? NumberOrNothing(expect->report_type) : "") << ','
      << (!expect       ? ""
          : result.Ok() ? "yes"
                        : "no")
      << "\n";
  return row.str();
}

void CsvWriter::Begin(const ConfirmationRun& /*run*/) { _out << CsvHeader(); }

void CsvWriter::Write(const ConfirmationResult& result) { _out << CsvRow(result); }

void CsvWriter::End(const ConfirmationSummary& /*summary*/) {}

}  // namespace olt_host
