#include "catalogue/yaml_words.h"

#include <array>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

// Other names, and the words at the end, may mean something else in YAML.
bool IsPlainName(const std::string& name) {
  if (name.size() < 3 || name[0] < 'A' || name[0] > 'Z' ||
      name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") != std::string::npos) {
    return false;
  }
  return name != "NULL" && name != "TRUE" && name != "FALSE" && name != "YES" && name != "OFF";
}

}  // namespace

std::string QuotedYaml(const std::string& bytes) {
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

std::map<std::uint16_t, std::string> PlainCodeNames() {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  std::map<std::uint16_t, std::string> names;
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : codes) {
    if (IsPlainName(record.ability_name)) names[record.ability_code] = record.ability_name;
  }
  return names;
}

}  // namespace olt_host
