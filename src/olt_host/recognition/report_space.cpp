#include "recognition/report_space.h"

#include <tuple>

#include "catalogue/catalogue.h"

namespace olt_host {

namespace {

unsigned short AttributeOf(const ONU_ABILITY_CODE_ATTR_INFO& record, std::uint16_t id) {
  // Asked of the registry: what it says of an attribute that is not registered counts.
  return OnuAbilityCodeInfo::GetInstance()->Get(record.ability_code,
                                                static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
}

bool IsTotal(std::uint16_t code) { return code == kAllLanCode || code == kDataUniCode; }

}  // namespace

bool operator<(const ReportValue& a, const ReportValue& b) {
  return std::tie(a.number, a.text) < std::tie(b.number, b.text);
}

bool operator==(const ReportValue& a, const ReportValue& b) {
  return a.number == b.number && a.text == b.text;
}

std::uint32_t KeyOf(const OnuAbilityProfile& profile) {
  unsigned int key = kAnyNumber;
  profile.Get(key);
  return key;
}

ReportSpace::ReportSpace(const std::vector<OnuAbilityProfile>& match_profiles)
    : _key_code(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode()) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    const std::uint16_t code = record.ability_code;
    _registered.insert(code);
    if (AttributeOf(record, kValueTypeAttribute) != kNumberValueType) continue;
    const bool asked = (AttributeOf(record, kConfirmTypeAttribute) & kAskedFromOnu) != 0;
    if (asked) _asked.insert(code);
    if (!asked && code != kCapabilityCode && code != kReportTypeCode && code != _key_code) continue;
    const unsigned short port_type = AttributeOf(record, kPortTypeAttribute);
    if (IsTotal(code) || (port_type != kLanPort && port_type != kOtherDataUni)) continue;
    if (asked) _ports.push_back(code);
    _derived.insert(kDataUniCode);
    if (port_type == kLanPort) _derived.insert(kAllLanCode);
  }
  for (const OnuAbilityProfile& profile : match_profiles) {
    _keys.insert(KeyOf(profile));
  }
}

Channel ReportSpace::Of(std::uint16_t code) const {
  // The library stores totals, and the reported type under the key code, without asking
  // whether the code is registered.
  if (IsTotal(code) && _derived.count(code) != 0) return Channel::kTotal;
  if (_registered.count(code) == 0) {
    return code == _key_code ? Channel::kReportedType : Channel::kNothing;
  }
  if (code == kVendorIdCode) return Channel::kVendorId;
  if (code == kTypeNameCode) return Channel::kDeviceName;
  if (code == kCapabilityCode) return Channel::kCapability;
  if (code == kSetAsideCode && IsAsked(code)) return Channel::kSetAside;
  if (IsAsked(code)) return Channel::kAsked;
  return code == _key_code || code == kReportTypeCode ? Channel::kReportedType : Channel::kNothing;
}

bool ReportSpace::CanHold(std::uint16_t code, const ReportValue& value) const {
  switch (Of(code)) {
    case Channel::kNothing:
      return false;
    case Channel::kVendorId:
      return !value.text.empty() && value.text.size() <= kVendorIdBytes &&
             value.text.find('\0') == std::string::npos;
    case Channel::kDeviceName:
      return !value.text.empty() && value.text.size() <= kDeviceNameBytes &&
             value.text.find('\0') == std::string::npos;
    case Channel::kCapability:
      return value.number <= kHighestCapability;
    case Channel::kReportedType:
      return value.number != kAnyNumber && !IsKey(value.number);
    case Channel::kAsked:
    case Channel::kSetAside:
    case Channel::kTotal:
      break;
  }
  return value.number != kAnyNumber;
}

bool ReportSpace::CanHoldWildcard(std::uint16_t code) const {
  // What is held first and found unknown later: the reported type under an asked code
  // that is not answered, 48 once it is set aside, a capability that proves unknown.
  const bool holds_type = code == _key_code || code == kReportTypeCode;
  return IsAsked(code) && (holds_type || code == kSetAsideCode || code == kCapabilityCode);
}

}  // namespace olt_host
