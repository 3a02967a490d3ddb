#include "commands/profile_lines.h"

#include <cstdlib>

#include "catalogue/catalogue.h"
#include "commands/running_config_text.h"
#include "recognition/ability_reading.h"
#include "state/library_state.h"

namespace olt_host {

namespace {

constexpr std::size_t kPairsALine = 8;
constexpr unsigned int kLargestSetNumber = 65535;

bool IsTotal(unsigned short code) {
  return code == ONU_ABILITY_CODE_ALL_LAN || code == ONU_ABILITY_CODE_DATA_UNI;
}

bool IsNumber(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT;
}

bool IsText(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING;
}

bool IsDefined(unsigned short code) {
  return OnuAbilityCodeInfo::GetInstance()->IsExist(code) != 0;
}

bool SameNumber(const ONU_ABILITY_COMMON_ABILITY_VALUE* held, unsigned int number) {
  return held != nullptr && IsNumber(*held) && held->ability_ushort_value == number;
}

// What the handlers make of an argument; the same as typed up to 2147483647, beyond that
// it is the platform's matter.
unsigned int Read(const std::string& argument) {
  return argument == "null"
             ? ONU_ABILITY_WILDCARD
             : static_cast<unsigned int>(std::atoi(argument.c_str()));  // NOLINT(cert-err34-c)
}

}  // namespace

bool SameUnder(unsigned short code, const OnuAbilityProfile& a, const OnuAbilityProfile& b) {
  const auto* left = HeldUnder(a, code);
  const auto* right = HeldUnder(b, code);
  if (left == nullptr || right == nullptr) return left == right;
  return SameValue(*left, *right);
}

ProfileLines::ProfileLines(const OnuAbilityProfile& wanted) : _wanted(wanted) {
  _built.Init(wanted._profile_type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
              ONU_ABILITY_MATCH_TYPE_EXACT);
  // The key ability code is this one when the lines are typed.
  _built._key_ability_code = wanted._key_ability_code;
}

const ProfileLines::Value* ProfileLines::Wanted(unsigned short code) const {
  return HeldUnder(_wanted, code);
}

void ProfileLines::AddNumber(unsigned short code, const std::string& argument) {
  _built.Add(code, Read(argument));
}

void ProfileLines::AddText(unsigned short code, const std::string& text) { _built.Add(code, text); }

std::string ProfileLines::ShortArgument(unsigned short code) const {
  const Value* value = Wanted(code);
  const bool fits =
      value != nullptr && IsNumber(*value) && value->ability_ushort_value <= kLargestSetNumber;
  return std::to_string(fits ? value->ability_ushort_value : 0);
}

// The handler takes "null" as no text, and cuts what is longer.
std::string ProfileLines::NameArgument(unsigned short code, std::size_t most_bytes) const {
  const Value* value = Wanted(code);
  const bool fits = value != nullptr && !value->ability_string_value.empty() &&
                    value->ability_string_value.size() <= most_bytes &&
                    IsTypable(value->ability_string_value);
  return fits ? value->ability_string_value : "null";
}

void ProfileLines::Begin() {
  const Value* key = Wanted(_wanted._key_ability_code);
  _key =
      key != nullptr && IsNumber(*key) ? key->ability_ushort_value : _wanted._ability_default_value;
  const std::string report_type = ShortArgument(ONU_ABILITY_CODE_REPORT_TYPE);
  const std::string real_type = ShortArgument(ONU_ABILITY_CODE_REAL_TYPE);
  const std::string vendor = NameArgument(ONU_ABILITY_CODE_VENDOR_ID, kVendorIdBytes);
  const std::string name = NameArgument(ONU_ABILITY_CODE_TYPE_NAME, kTypeNameBytes);
  _lines.push_back("add onu_ability_profile key " + std::to_string(_key) + " profile_type " +
                   std::to_string(_wanted._profile_type) + " reporttype " + report_type +
                   " realtype " + real_type + " vendorid " + AsWord(vendor) + " onu_type_name " +
                   AsWord(name));
  _built.Add(_key);
  AddNumber(ONU_ABILITY_CODE_REPORT_TYPE, report_type);
  AddNumber(ONU_ABILITY_CODE_REAL_TYPE, real_type);
  AddText(ONU_ABILITY_CODE_VENDOR_ID, vendor == "null" ? "" : vendor);
  AddText(ONU_ABILITY_CODE_TYPE_NAME, name == "null" ? "" : name);
}

void ProfileLines::SetNumber(unsigned short code, unsigned int number) {
  const OnuAbilityProfile before(_built);
  std::vector<std::string> arguments;
  // A value equal to the default is not stored, but may replace a stored one: one that
  // counts no ports goes before it.
  if (HeldUnder(_built, code) == nullptr && number == _wanted._ability_default_value) {
    arguments.emplace_back(number == ONU_ABILITY_WILDCARD ? "0" : "null");
  }
  arguments.push_back(number == ONU_ABILITY_WILDCARD ? "null" : std::to_string(number));
  for (const std::string& argument : arguments) AddNumber(code, argument);
  if (!SameNumber(HeldUnder(_built, code), number)) {
    _built = before;
    return;
  }
  for (const std::string& argument : arguments) {
    _pairs.push_back(" " + std::to_string(code) + " " + argument);
  }
}

void ProfileLines::SetNumbers(bool totals) {
  for (const auto& [code, value] : _wanted._common_ability) {
    const unsigned int number = value.ability_ushort_value;
    if (IsTotal(code) != totals || !IsNumber(value) || !IsDefined(code) ||
        code == _wanted._key_ability_code || SameNumber(HeldUnder(_built, code), number)) {
      continue;
    }
    if (number <= kLargestSetNumber || number == ONU_ABILITY_WILDCARD) SetNumber(code, number);
  }
}

void ProfileLines::WritePairs() {
  for (std::size_t i = 0; i < _pairs.size(); i += kPairsALine) {
    std::string line = "set onu_ability_profile key " + std::to_string(_key);
    for (std::size_t j = i; j < _pairs.size() && j < i + kPairsALine; ++j) line += _pairs[j];
    _lines.push_back(line);
  }
}

void ProfileLines::Build() {
  Begin();
  SetNumbers(false);
  SetNumbers(true);
  WritePairs();
  _lines.push_back("apply onu_ability_profile key " + std::to_string(_key));
  _built.Update();
}

bool ProfileLines::KeepsItsKey() const {
  const Value* key = HeldUnder(_built, _built._key_ability_code);
  return key == nullptr ? _key == _built._ability_default_value : SameNumber(key, _key);
}

void ProfileLines::WriteUpdate(const char* index, unsigned short code, const std::string& value) {
  _lines.push_back("update onu_ability_profile " + std::string(index) + " " + std::to_string(_key) +
                   " profile_type " + std::to_string(_wanted._profile_type) +
                   " profile_source 1 ability_code " + std::to_string(code) + " " + value);
}

void ProfileLines::UpdateNumbers(bool totals) {
  for (const auto& [code, value] : _wanted._common_ability) {
    const unsigned int number = value.ability_ushort_value;
    if (IsTotal(code) != totals || !IsNumber(value) || !IsDefined(code) ||
        code == _wanted._key_ability_code || SameNumber(HeldUnder(_built, code), number)) {
      continue;
    }
    const OnuAbilityProfile before(_built);
    AddNumber(code, std::to_string(number));
    if (SameNumber(HeldUnder(_built, code), number)) {
      WriteUpdate("key", code, "uint_ability_value " + std::to_string(number));
    } else {
      _built = before;
    }
  }
}

void ProfileLines::UpdateTexts() {
  for (const auto& [code, value] : _wanted._common_ability) {
    const std::string& text = value.ability_string_value;
    if (SameUnder(code, _wanted, _built) || !IsDefined(code) || !IsTypable(text)) continue;
    const OnuAbilityProfile before(_built);
    std::vector<std::string> texts = {text};
    // The empty text is not stored either, unless it replaces another.
    if (HeldUnder(_built, code) == nullptr && text.empty() && IsText(value)) texts = {"-", ""};
    for (const std::string& each : texts) AddText(code, each);
    if (!SameUnder(code, _wanted, _built)) {
      _built = before;
      continue;
    }
    for (const std::string& each : texts) {
      WriteUpdate("id", code, "string_ability_value " + AsWord(each));
    }
  }
}

void ProfileLines::Update() {
  UpdateNumbers(false);
  UpdateNumbers(true);
  UpdateTexts();
}

}  // namespace olt_host
