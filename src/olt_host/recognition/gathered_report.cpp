#include "recognition/gathered_report.h"

#include <set>

#include "catalogue/catalogue.h"
#include "recognition/ability_value.h"
#include "recognition/pattern_comparison.h"
#include "recognition/silent_observer.h"

namespace olt_host {

namespace {

using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

ConfirmOnuType GatherFromHooks(const ReportSource& source, const OnuReport& report) {
  SilentObserver nobody;
  const ScopedHookContext context(source, nobody);
  ConfirmOnuType onu(report.place, report.onu);
  onu.Init();
  return onu;
}

ConfirmOnuType WithPrivateCapability(const ConfirmOnuType& gathered) {
  ConfirmOnuType onu = gathered;
  onu.UpdateOnucapaFromSpecialMe();
  return onu;
}

bool IsAnything(const Value& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING
             ? value.ability_string_value.empty()
             : value.ability_ushort_value == ONU_ABILITY_WILDCARD;
}

bool IsTypeCode(std::uint16_t code) {
  return code == ONU_ABILITY_CODE_REPORT_TYPE ||
         code == OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
}

// By the two attributes that gathering looks at.
bool IsAskedAsAbility(std::uint16_t code) {
  OnuAbilityCodeInfo* codes = OnuAbilityCodeInfo::GetInstance();
  return codes->IsExist(code) != 0 &&
         codes->Get(code, ONU_ABILITY_ATTR_VALUE_TYPE) == ONU_ABILITY_VALUE_TYPE_USHORT &&
         (codes->Get(code, ONU_ABILITY_ATTR_CONFIRM_TYPE) & kAskedFromOnu) != 0;
}

bool IsAsked(std::uint16_t code, const OnuReport& report) {
  if (code == ONU_ABILITY_CODE_VENDOR_ID || IsTypeCode(code)) return true;
  return report.read_abilities && (code == ONU_ABILITY_CODE_ONU_CAPA ||
                                   code == ONU_ABILITY_CODE_TYPE_NAME || IsAskedAsAbility(code));
}

std::optional<Value> AbilityOf(std::uint16_t code, const OnuReport& report) {
  const auto ability = report.abilities.find(code);
  return ability == report.abilities.end() ? std::nullopt : std::optional(Number(ability->second));
}

// What the ONU has to tell under the code, asked or not.
std::optional<Value> ToldUnder(std::uint16_t code, const OnuReport& report) {
  if (code == ONU_ABILITY_CODE_VENDOR_ID && report.vendor_id) return Text(*report.vendor_id);
  if (code == ONU_ABILITY_CODE_TYPE_NAME && report.device_name) return Text(*report.device_name);
  // The private capability is asked last.
  if (code == ONU_ABILITY_CODE_ONU_CAPA && report.private_capability) {
    return Number(trans_1_type_to_4_type(*report.private_capability));
  }
  if (auto ability = AbilityOf(code, report)) return ability;
  return IsTypeCode(code) && report.reported_type != kUnknownReportedType
             ? std::optional(Number(report.reported_type))
             : std::nullopt;
}

Told HowTold(std::uint16_t code, const std::optional<Value>& value, const GatheredReport& gathered,
             const OnuReport& report) {
  if (!IsAsked(code, report)) {
    const bool derived = !value && gathered.compared._common_ability.count(code) != 0;
    return derived ? Told::kDerived : Told::kNotAsked;
  }
  if (!value) return Told::kNotTold;
  return IsAnything(*value) ? Told::kAnything : Told::kValue;
}

ReportedValue ValueUnder(std::uint16_t code, const GatheredReport& gathered,
                         const OnuReport& report) {
  ReportedValue row;
  row.code = code;
  const std::optional<Value> value = ToldUnder(code, report);
  row.told = HowTold(code, value, gathered, report);
  row.has_value = value.has_value();
  if (value) row.value = *value;
  row.is_compared = IsCompared(code);
  const auto& abilities = gathered.compared._common_ability;
  const auto compared = abilities.find(code);
  if (row.is_compared && compared != abilities.end()) row.compared = compared->second;
  return row;
}

std::set<std::uint16_t> CodesOf(const GatheredReport& gathered, const OnuReport& report) {
  std::set<std::uint16_t> codes = {ONU_ABILITY_CODE_REPORT_TYPE, ONU_ABILITY_CODE_VENDOR_ID,
                                   ONU_ABILITY_CODE_TYPE_NAME, ONU_ABILITY_CODE_ONU_CAPA};
  for (const auto& ability : gathered.compared._common_ability) codes.insert(ability.first);
  for (const auto& ability : report.abilities) codes.insert(ability.first);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (const auto& record : records) {
    if (IsAskedAsAbility(record.ability_code)) codes.insert(record.ability_code);
  }
  return codes;
}

}  // namespace

const char* ToText(Told told) {
  switch (told) {
    case Told::kValue:
      return "value";
    case Told::kAnything:
      return "anything";
    case Told::kNotTold:
      return "not told";
    case Told::kNotAsked:
      return "not asked";
    case Told::kDerived:
      return "derived";
  }
  return "";
}

GatheredReport Gather(const ReportSource& source, const OnuReport& report) {
  const ConfirmOnuType gathered = GatherFromHooks(source, report);
  return {gathered, WithPrivateCapability(gathered)};
}

std::vector<ReportedValue> ValuesOf(const GatheredReport& gathered, const OnuReport& report) {
  std::vector<ReportedValue> values;
  for (const std::uint16_t code : CodesOf(gathered, report)) {
    values.push_back(ValueUnder(code, gathered, report));
  }
  return values;
}

}  // namespace olt_host
