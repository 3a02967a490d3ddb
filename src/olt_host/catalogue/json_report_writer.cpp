#include "catalogue/json_report_writer.h"

#include <array>
#include <string_view>

#include "catalogue/report_rules.h"
#include "catalogue/yaml_words.h"

namespace olt_host {

namespace {

void AddText(std::string_view bytes, std::string& line) {
  static constexpr std::array<char, 16> kDigits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                                   '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
  line += '"';
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) {
      line += "\\u00";
      line += kDigits[byte >> 4U];
      line += kDigits[byte & 0xFU];
    } else {
      if (c == '"' || c == '\\') line += '\\';
      line += c;
    }
  }
  line += '"';
}

// `before` is what stands before a value, up to its colon.
void AddNumber(const char* before, std::uint32_t number, std::string& line) {
  line += before;
  line += std::to_string(number);
}

void AddBuffer(const char* before, const std::string& text, const std::string& behind,
               std::string& line) {
  line += before;
  AddText(behind.empty() ? text : text + std::string(1, '\0') + behind, line);
}

void AddIdentity(const NetworkReport& network_report, std::string& line) {
  const OnuReport& report = network_report.report;
  line += "{\"olt\":";
  AddText(network_report.olt, line);
  AddNumber(",\"place\":", report.place, line);
  AddNumber(",\"onu\":", report.onu, line);
  if (!report.serial_number.empty()) {
    AddBuffer(",\"serial_number\":", report.serial_number, "", line);
  }
  if (report.vendor_id) {
    AddBuffer(",\"vendor_id\":", *report.vendor_id, report.behind_vendor_id, line);
  }
  if (report.reported_type == kUnknownReportedType) {
    line += ",\"reported_type\":\"unknown\"";
  } else {
    AddNumber(",\"reported_type\":", report.reported_type, line);
  }
  if (report.device_name) {
    AddBuffer(",\"device_name\":", *report.device_name, report.behind_device_name, line);
  }
}

void AddSettings(const IdentifySettings& settings, std::string& line) {
  bool any = false;
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    if (settings.*kSettings[i] == 0) continue;
    line += any ? "," : ",\"identify\":{";
    AddText(kSettingKeys[i], line);
    AddNumber(":", settings.*kSettings[i], line);
    any = true;
  }
  if (any) line += '}';
}

void AddExpectation(const Expectation& expect, std::string& line) {
  if (expect.real_type) {
    AddNumber(",\"expect\":{\"real_type\":", *expect.real_type, line);
  } else {
    line += ",\"expect\":{\"real_type\":\"none\"";
  }
  if (expect.how) AddBuffer(",\"how\":", ToText(*expect.how), "", line);
  if (expect.report_type) AddNumber(",\"report_type\":", *expect.report_type, line);
  const char* before = ",\"ambiguous\":[";
  for (const std::uint32_t key : expect.ambiguous) {
    AddNumber(before, key, line);
    before = ",";
  }
  line += expect.ambiguous.empty() ? "}" : "]}";
}

void AddTruth(const Truth& truth, std::string& line) {
  AddNumber(",\"truth\":{\"real_type\":", truth.real_type, line);
  const char* before = ",\"faults\":[";
  for (const std::string& fault : truth.faults) {
    AddBuffer(before, fault, "", line);
    before = ",";
  }
  line += truth.faults.empty() ? "}" : "]}";
}

}  // namespace

JsonReportWriter::JsonReportWriter() : _names(PlainCodeNames()) {}

std::string JsonReportWriter::Line(const NetworkReport& report) const {
  std::string line;
  AddIdentity(report, line);
  if (!report.report.read_abilities) line += ",\"read_abilities\":false";
  if (report.report.private_capability) {
    AddNumber(",\"private_capability\":", *report.report.private_capability, line);
  }
  AddAbilities(report.report.abilities, line);
  AddSettings(report.settings, line);
  if (report.report.expect) AddExpectation(*report.report.expect, line);
  if (report.report.truth) AddTruth(*report.report.truth, line);
  line += "}\n";
  return line;
}

void JsonReportWriter::AddAbilities(const std::map<std::uint16_t, std::uint32_t>& abilities,
                                    std::string& line) const {
  const char* before = ",\"abilities\":{";
  for (const auto& [code, number] : abilities) {
    const auto name = _names.find(code);
    line += before;
    AddText(name == _names.end() ? std::to_string(code) : name->second, line);
    AddNumber(":", number, line);
    before = ",";
  }
  if (!abilities.empty()) line += '}';
}

}  // namespace olt_host
