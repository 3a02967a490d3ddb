#include "generation/models.h"

#include <optional>
#include <stdexcept>

#include "catalogue/catalogue.h"
#include "confirmation/confirmer.h"
#include "recognition/ability_reading.h"
#include "recognition/one_report.h"

namespace olt_host {

namespace {

using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

std::uint16_t AttributeOf(const ONU_ABILITY_CODE_ATTR_INFO& record,
                          ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  const auto value = record.ability_attr.find(id);
  return value == record.ability_attr.end() ? std::uint16_t{0} : value->second;
}

bool IsAsked(const ONU_ABILITY_CODE_ATTR_INFO& record) {
  return (AttributeOf(record, ONU_ABILITY_ATTR_CONFIRM_TYPE) & kAskedFromOnu) != 0 &&
         AttributeOf(record, ONU_ABILITY_ATTR_VALUE_TYPE) == kNumberValueType;
}

// The newest match profile with the key; null without one.
const OnuAbilityProfile* FindPattern(const std::vector<OnuAbilityProfile>& patterns,
                                     std::uint32_t key) {
  for (auto pattern = patterns.rbegin(); pattern != patterns.rend(); ++pattern) {
    if (NumberUnder(*pattern, pattern->_key_ability_code) == key) return &*pattern;
  }
  return nullptr;
}

// What an ONU of the type says under a code. The pattern says how such ONUs report and goes
// before what the type can do; a number of ports that nobody states is none.
std::optional<std::uint32_t> NumberOf(const OnuAbilityProfile& real,
                                      const OnuAbilityProfile* pattern,
                                      const ONU_ABILITY_CODE_ATTR_INFO& record) {
  for (const OnuAbilityProfile* profile : {pattern, &real}) {
    const Value* held = profile == nullptr ? nullptr : HeldUnder(*profile, record.ability_code);
    if (held != nullptr && held->ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
        held->ability_ushort_value != kAnyNumber) {
      return held->ability_ushort_value;
    }
  }
  if (AttributeOf(record, ONU_ABILITY_ATTR_PORT_TYPE) != 0) return 0;
  return std::nullopt;
}

std::optional<std::string> TextOf(const OnuAbilityProfile& real, const OnuAbilityProfile* pattern,
                                  std::uint16_t code, std::size_t most_bytes) {
  for (const OnuAbilityProfile* profile : {pattern, &real}) {
    const std::string text = profile == nullptr ? "" : TextUnder(*profile, code);
    if (!text.empty() && text.size() <= most_bytes) return text;
  }
  return std::nullopt;
}

OnuReport ReportOf(const RealType& type, const OnuAbilityProfile* pattern,
                   const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& codes) {
  OnuReport report;
  report.reported_type = type.Key();
  report.vendor_id = TextOf(type.profile, pattern, kVendorIdCode, kVendorIdBytes);
  report.device_name = TextOf(type.profile, pattern, kTypeNameCode, kDeviceNameBytes);
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : codes) {
    if (!IsAsked(record)) continue;
    const auto number = NumberOf(type.profile, pattern, record);
    if (number) report.abilities[record.ability_code] = *number;
  }
  return report;
}

bool IsTold(const OnuReport& report, std::uint16_t real_type) {
  return ConfirmOnu(OneReport(report), report).real_type == real_type;
}

Model MakeModel(const RealType& type, const std::vector<OnuAbilityProfile>& patterns,
                const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& codes) {
  const OnuAbilityProfile* pattern = FindPattern(patterns, type.Key());
  Model model;
  model.key = type.Key();
  model.name = type.Name();
  const bool real_states_it = HeldUnder(type.profile, ONU_ABILITY_CODE_REAL_TYPE) != nullptr;
  const OnuAbilityProfile& stating = real_states_it || pattern == nullptr ? type.profile : *pattern;
  model.real_type = static_cast<std::uint16_t>(NumberUnder(stating, ONU_ABILITY_CODE_REAL_TYPE));
  model.report = ReportOf(type, pattern, codes);
  model.told_by_type = IsTold(model.report, model.real_type);
  OnuReport silent = model.report;
  silent.reported_type = kUnknownReportedType;
  model.told_by_abilities = IsTold(silent, model.real_type);
  return model;
}

}  // namespace

std::vector<Model> ReadModels(const std::vector<std::string>& calls) {
  const std::vector<RealType> types = RealTypes();
  std::vector<const RealType*> wanted;
  wanted.reserve(types.size());
  for (const std::string& call : calls) wanted.push_back(&FindType(types, call));
  if (calls.empty()) {
    for (const RealType& type : types) {
      if (!type.hidden) wanted.push_back(&type);
    }
  }
  if (wanted.empty()) throw std::runtime_error("the catalogue has no ONU type to generate");
  std::vector<OnuAbilityProfile> patterns;
  OnuAbilityTableManager::GetInstance()->GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH,
                                                ONU_ABILITY_PROFILE_SOURCE_ALL, patterns);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  std::vector<Model> models;
  models.reserve(wanted.size());
  for (const RealType* type : wanted) models.push_back(MakeModel(*type, patterns, codes));
  return models;
}

}  // namespace olt_host
