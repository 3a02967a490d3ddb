#include "catalogue/yaml_report_writer.h"

#include "catalogue/yaml_words.h"

namespace olt_host {

namespace {

std::string BufferText(const std::string& text, const std::string& behind) {
  return QuotedYaml(behind.empty() ? text : text + std::string(1, '\0') + behind);
}

// As generated populations have them: a plain word. Any other text in quotes.
std::string FaultName(const std::string& fault) {
  const bool is_word = fault.find_first_not_of("abcdefghijklmnopqrstuvwxyz_") == std::string::npos;
  const bool means_else = fault.empty() || fault == "null" || fault == "true" || fault == "false";
  return is_word && !means_else ? fault : QuotedYaml(fault);
}

}  // namespace

YamlReportWriter::YamlReportWriter(std::ostream& out) : _out(out), _names(PlainCodeNames()) {}

void YamlReportWriter::Begin(const ReportsHeader& header) {
  _out << "# ";
  for (const char c : header.remark) _out << (c == '\n' ? "\n# " : std::string(1, c));
  _out << "\nreports: {name: " << QuotedYaml(header.name) << "}\n";
  WriteSettings(header.settings);
  _out << "onus:";
}

void YamlReportWriter::WriteSettings(const std::map<std::uint16_t, IdentifySettings>& settings) {
  if (settings.empty()) return;
  _out << "identify:\n  places:\n";
  for (const auto& [place, values] : settings) {
    _out << "    - {place: " << place << ", sfu_mode: " << values.sfu_mode
         << ", setting_1: " << values.setting_1 << ", hgu_mode: " << values.hgu_mode
         << ", setting_3: " << values.setting_3 << "}\n";
  }
}

void YamlReportWriter::WriteAbilities(const std::map<std::uint16_t, std::uint32_t>& abilities) {
  if (abilities.empty()) return;
  _out << ", abilities: {";
  const char* before = "";
  for (const auto& [code, number] : abilities) {
    const auto name = _names.find(code);
    _out << before << (name == _names.end() ? std::to_string(code) : name->second) << ": "
         << number;
    before = ", ";
  }
  _out << "}";
}

void YamlReportWriter::WriteExpectation(const Expectation& expect) {
  _out << ", expect: {real_type: "
       << (expect.real_type ? std::to_string(*expect.real_type) : "none");
  if (expect.how) _out << ", how: " << ToText(*expect.how);
  if (expect.report_type) _out << ", report_type: " << *expect.report_type;
  const char* before = ", ambiguous: [";
  for (const std::uint32_t key : expect.ambiguous) {
    _out << before << key;
    before = ", ";
  }
  _out << (expect.ambiguous.empty() ? "}" : "]}");
}

void YamlReportWriter::WriteTruth(const Truth& truth) {
  _out << ", truth: {real_type: " << truth.real_type;
  const char* before = ", faults: [";
  for (const std::string& fault : truth.faults) {
    _out << before << FaultName(fault);
    before = ", ";
  }
  _out << (truth.faults.empty() ? "}" : "]}");
}

void YamlReportWriter::WriteIdentity(const OnuReport& report) {
  _out << "  - {place: " << report.place << ", onu: " << static_cast<unsigned int>(report.onu);
  if (!report.serial_number.empty())
    _out << ", serial_number: " << QuotedYaml(report.serial_number);
  if (report.vendor_id) {
    _out << ", vendor_id: " << BufferText(*report.vendor_id, report.behind_vendor_id);
  }
  if (report.reported_type == kUnknownReportedType) {
    _out << ", reported_type: unknown";
  } else {
    _out << ", reported_type: " << report.reported_type;
  }
  if (report.device_name) {
    _out << ", device_name: " << BufferText(*report.device_name, report.behind_device_name);
  }
}

void YamlReportWriter::Write(const OnuReport& report) {
  _out << (_first ? "\n" : "");
  _first = false;
  WriteIdentity(report);
  if (!report.read_abilities) _out << ", read_abilities: false";
  if (report.private_capability) {
    _out << ", private_capability: " << static_cast<unsigned int>(*report.private_capability);
  }
  WriteAbilities(report.abilities);
  if (report.expect) WriteExpectation(*report.expect);
  if (report.truth) WriteTruth(*report.truth);
  _out << "}\n";
}

void YamlReportWriter::End() { _out << (_first ? " []\n" : ""); }

}  // namespace olt_host
