#include "onu_ability_common_table/registered_codes.h"

#include <algorithm>

#include "onu_ability_common_table/ability_code_index.h"

bool RegisteredCodes::Next(unsigned short& code) {
  const unsigned int generation = AbilityCodeReader(_registry).Generation();
  if (generation == 0 || generation != _generation || _next >= _first + _count) {
    Refill(generation);
  }
  if (_count == 0) {
    return false;
  }
  code = _codes[_next - _first];
  ++_next;
  return true;
}

void RegisteredCodes::Refill(unsigned int generation) {
  const ReadScope scope(onu_ability_settings_guard);
  const auto& records = _registry._vec_ability_attr;
  _generation = generation;
  _first = _next;
  _count = records.size() > _first ? std::min(records.size() - _first, kCopied) : 0;
  for (std::size_t i = 0; i < _count; ++i) {
    _codes[i] = records[_first + i].ability_code;
  }
}

bool RegisteredCodes::IsThere() const {
  const auto& records = _registry._vec_ability_attr;
  return _next - 1 < records.size() &&
         records[_next - 1].ability_code == _codes[_next - 1 - _first];
}

unsigned short RegisteredCodes::Acquire(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
  {
    const ReadScope scope(onu_ability_settings_guard);
    if (!IsThere()) {
      return 0;
    }
    const auto& attributes = _registry._vec_ability_attr[_next - 1].ability_attr;
    const auto entry = attributes.find(id);
    if (entry != attributes.end()) {
      return entry->second;
    }
  }
  const WriteScope scope(onu_ability_settings_guard);
  return IsThere() ? _registry.Acquire(_registry._vec_ability_attr[_next - 1], id)
                   : static_cast<unsigned short>(0);
}
