// The two counts that every filling derives from the ports a profile holds: the LAN
// ports and the data UNIs.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/onu_ability_profile.h"

namespace {

constexpr unsigned short kLanPortType = 3;
// Port type 7 is a data UNI, too: 3 with this bit set.
constexpr unsigned int kDataUniBit = 0x4;
// A code with these neither says anything nor acquires an attribute when it is read.
constexpr AbilityTraits kReadSilently = kKnownCode | kHoldsPortType | kHoldsValueType;
constexpr AbilityTraits kDataUniNumber = kDataUni | kNumber;

// 0 and the wildcard say nothing about a number of ports.
bool IsCount(unsigned int number) { return number != 0 && number != ONU_ABILITY_WILDCARD; }

struct DerivedCount {
  void Add(unsigned int number) {
    if (IsCount(number)) {
      sum += number;
      found = true;
    }
  }

  unsigned int sum = 0;
  bool found = false;
};

}  // namespace

void OnuAbilityProfile::Update() {
  if (!UpdateSilently()) {
    UpdateLan();
    UpdateDataUni();
  }
}

// The short way: both counts from one pass over the codes. False, with nothing
// changed, when a walk would say or acquire anything.
bool OnuAbilityProfile::UpdateSilently() {
  if (!NobodyListensTo(LogLevels(6, 9, 10)) ||
      !AbilityCodeReader::IsRegistered(ONU_ABILITY_ATTR_PORT_TYPE) ||
      !AbilityCodeReader::IsRegistered(ONU_ABILITY_ATTR_VALUE_TYPE)) {
    return false;
  }
  const AbilityCodeReader codes;
  DerivedCount lan;
  DerivedCount data_uni;
  ONU_ABILITY_COMMON_ABILITY_VALUE* lan_total = nullptr;
  ONU_ABILITY_COMMON_ABILITY_VALUE* data_uni_total = nullptr;
  AbilityTraits of_all = kReadSilently;
  for (auto& [code, value] : _common_ability) {
    const AbilityTraits traits = codes.Traits(code);
    of_all &= traits;
    if ((traits & (kLanPort | kDataUni | kDerivedCount)) == 0) {
      continue;
    }
    if ((traits & kLanPort) != 0) {
      lan.Add(value.ability_ushort_value);
    }
    if (code == ONU_ABILITY_CODE_ALL_LAN) {
      lan_total = &value;
    } else if ((traits & kDataUniNumber) == kDataUniNumber) {
      data_uni.Add(value.ability_ushort_value);
    }
    if (code == ONU_ABILITY_CODE_DATA_UNI) {
      data_uni_total = &value;
    }
  }
  const AbilityTraits lan_total_traits = codes.Traits(ONU_ABILITY_CODE_ALL_LAN);
  of_all &= lan.found ? lan_total_traits : kReadSilently;
  if (of_all != kReadSilently) {
    return false;
  }
  if (lan.found) {
    lan_total = StoreNumber(ONU_ABILITY_CODE_ALL_LAN, lan_total, lan.sum);
  }
  // Where the LAN total counts as a data UNI it counts as it is now.
  if (lan_total != nullptr && (lan_total_traits & kDataUniNumber) == kDataUniNumber) {
    data_uni.Add(lan_total->ability_ushort_value);
  }
  if (data_uni.found) {
    StoreNumber(ONU_ABILITY_CODE_DATA_UNI, data_uni_total, data_uni.sum);
  }
  if (lan.found || data_uni.found) {
    _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  }
  return true;
}

void OnuAbilityProfile::UpdateLan() {
  ONU_ABILITY_LOG(10, "function start!");
  unsigned int sum = 0;
  bool found = false;
  for (const auto& [code, value] : _common_ability) {
    // Whatever the tag of the value, as meant.
    const unsigned short port_type =
        OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_PORT_TYPE);
    if (port_type == kLanPortType && IsCount(value.ability_ushort_value)) {
      sum += value.ability_ushort_value;
      found = true;
    }
  }
  if (found) {
    StoreNumber(ONU_ABILITY_CODE_ALL_LAN, sum);
    _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  }
  ONU_ABILITY_LOG(6, "all_lan_num:%d", sum);
  ONU_ABILITY_LOG(10, "function end!");
}

void OnuAbilityProfile::UpdateDataUni() {
  ONU_ABILITY_LOG(10, "function start!");
  unsigned int sum = 0;
  bool found = false;
  for (const auto& [code, value] : _common_ability) {
    const unsigned short value_type =
        OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_VALUE_TYPE);
    ONU_ABILITY_LOG(6, "ability_code:%d, ability_attr_value:%d", code, value_type);
    if (value_type != ONU_ABILITY_VALUE_TYPE_USHORT) {
      continue;
    }
    const unsigned short port_type =
        OnuAbilityCodeInfo::GetInstance()->Get(code, ONU_ABILITY_ATTR_PORT_TYPE);
    ONU_ABILITY_LOG(6, "ability_code:%d, ability_value:%u, ability_attr_value:%d", code,
                    value.ability_ushort_value, port_type);
    if ((port_type & ~kDataUniBit) == kLanPortType && IsCount(value.ability_ushort_value)) {
      sum += value.ability_ushort_value;
      found = true;
    }
  }
  if (found) {
    StoreNumber(ONU_ABILITY_CODE_DATA_UNI, sum);
    _common_ability_num = static_cast<unsigned int>(_common_ability.size());
  }
  ONU_ABILITY_LOG(6, "data_uni_total_num:%d", sum);
  ONU_ABILITY_LOG(10, "function end!");
}
