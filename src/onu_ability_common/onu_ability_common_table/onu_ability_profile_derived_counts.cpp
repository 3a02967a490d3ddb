// The two counts that every filling derives from the ports a profile holds: the LAN
// ports and the data UNIs.
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"
#include "onu_ability_common_table/onu_ability_profile.h"

namespace {

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

void OnuAbilityProfile::Update() { Update(AbilityCodeReader()); }

void OnuAbilityProfile::Update(const AbilityCodeReader& codes) {
  if (!UpdateSilently(codes)) {
    UpdateLan();
    UpdateDataUni();
  }
}

// The short way: both counts from the ports alone. False, with nothing changed, when a
// walk would say or acquire anything.
bool OnuAbilityProfile::UpdateSilently(const AbilityCodeReader& codes) {
  if (!NobodyListensTo(LogLevels(6, 9, 10)) ||
      !AbilityCodeReader::AreRegistered(ONU_ABILITY_ATTR_PORT_TYPE, ONU_ABILITY_ATTR_VALUE_TYPE) ||
      (!_ports.AreKnown(_common_ability, codes.Generation()) &&
       !_ports.Find(_common_ability, codes))) {
    return false;
  }
  DerivedCount lan;
  DerivedCount data_uni;
  for (const HeldPorts::Port& port : _ports.Ports()) {
    const unsigned int number = port.value->ability_ushort_value;
    if (port.is_lan) {
      lan.Add(number);
    }
    if (port.is_data_uni) {
      data_uni.Add(number);
    }
  }
  const AbilityTraits lan_total_traits = codes.Traits(ONU_ABILITY_CODE_ALL_LAN);
  if (lan.found && (lan_total_traits & kCountedSilently) != kCountedSilently) {
    return false;
  }
  ONU_ABILITY_COMMON_ABILITY_VALUE* lan_total = _ports.LanTotal();
  if (lan.found) {
    lan_total = lan_total != nullptr ? lan_total : &Hold(ONU_ABILITY_CODE_ALL_LAN, codes);
    SetNumber(*lan_total, lan.sum);
  }
  // Where the LAN total counts as a data UNI it counts as it is now.
  if (lan_total != nullptr && (lan_total_traits & kDataUniNumber) == kDataUniNumber) {
    data_uni.Add(lan_total->ability_ushort_value);
  }
  if (data_uni.found) {
    ONU_ABILITY_COMMON_ABILITY_VALUE* total = _ports.DataUniTotal();
    SetNumber(total != nullptr ? *total : Hold(ONU_ABILITY_CODE_DATA_UNI, codes), data_uni.sum);
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
    if (port_type == ONU_ABILITY_PORT_LAN && IsCount(value.ability_ushort_value)) {
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
    if (IsDataUni(port_type) && IsCount(value.ability_ushort_value)) {
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
