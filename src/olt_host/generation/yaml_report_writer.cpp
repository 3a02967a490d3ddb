#include "generation/yaml_report_writer.h"

#include <array>

#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

// In double quotes, where every byte below 0x80 can be told.
std::string QuotedBytes(const std::string& bytes) {
  static constexpr std::array<char, 16> kDigits = {'0', '1', '2', '3', '4', '5', '6', '7',
                                                   '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
  std::string quoted = "\"";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      quoted += std::string("\\") + c;
    } else if (byte == 0) {
      quoted += "\\0";
    } else if (byte < 0x20 || byte == 0x7F) {
      quoted += std::string("\\x") + kDigits[byte >> 4U] + kDigits[byte & 0xFU];
    } else {
      quoted += c;
    }
  }
  return quoted + "\"";
}

std::string BufferText(const std::string& text, const std::string& behind) {
  return QuotedBytes(behind.empty() ? text : text + std::string(1, '\0') + behind);
}

// Other names, and the words at the end, may mean something else in YAML.
bool IsPlainName(const std::string& name) {
  if (name.size() < 3 || name[0] < 'A' || name[0] > 'Z' ||
      name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") != std::string::npos) {
    return false;
  }
  return name != "NULL" && name != "TRUE" && name != "FALSE" && name != "YES" && name != "OFF";
}

}  // namespace

YamlReportWriter::YamlReportWriter(std::ostream& out) : _out(out) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : codes) {
    if (IsPlainName(record.ability_name)) _names[record.ability_code] = record.ability_name;
  }
}

void YamlReportWriter::Begin(const std::string& name, const std::string& remark) {
  _out << "# " << remark << "\nreports: {name: " << QuotedBytes(name) << "}\nonus:";
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

void YamlReportWriter::WriteTruth(const OnuReport& report) {
  if (report.expect && report.expect->real_type) {
    _out << ", expect: {real_type: " << *report.expect->real_type << "}";
  }
  if (!report.truth) return;
  _out << ", truth: {real_type: " << report.truth->real_type;
  const char* before = ", faults: [";
  for (const std::string& fault : report.truth->faults) {
    _out << before << fault;
    before = ", ";
  }
  _out << (report.truth->faults.empty() ? "}" : "]}");
}

void YamlReportWriter::Write(const OnuReport& report) {
  _out << (_first ? "\n" : "") << "  - {place: " << report.place
       << ", onu: " << static_cast<unsigned int>(report.onu);
  _first = false;
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
  WriteAbilities(report.abilities);
  WriteTruth(report);
  _out << "}\n";
}

void YamlReportWriter::End() { _out << (_first ? " []\n" : ""); }

}  // namespace olt_host
