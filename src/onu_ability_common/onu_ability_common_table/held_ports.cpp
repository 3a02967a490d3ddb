#include "onu_ability_common_table/held_ports.h"

#include <algorithm>
#include <new>

#include "onu_ability_common_table/ability_code_index.h"

namespace {

constexpr std::size_t kUsualPorts = 8;  // two kinds of each, and the derived counts
constexpr AbilityTraits kOfInterest = kLanPort | kDataUni | kDerivedCount;

}  // namespace

bool HeldPorts::Find(AbilityMap& abilities, const AbilityCodeReader& codes) {
  _changes = 0;
  _ports.clear();
  _lan_total = nullptr;
  _data_uni_total = nullptr;
  const unsigned int generation = codes.Generation();
  try {
    _ports.reserve(kUsualPorts);
    for (auto& [code, value] : abilities) {
      if (!Note(code, value, codes)) {
        return false;
      }
    }
  } catch (const std::bad_alloc&) {
    return false;  // the walk needs none
  }
  _changes = abilities.Changes();
  _generation = generation;
  return true;
}

ONU_ABILITY_COMMON_ABILITY_VALUE& HeldPorts::Insert(AbilityMap& abilities,
                                                    AbilityMap::const_iterator place,
                                                    unsigned short code,
                                                    const AbilityCodeReader& codes) {
  const bool follow = Follow(abilities);
  if (_ports.size() == _ports.capacity()) {
    // Room is made first: either the code is held and its port is known, or neither.
    _ports.reserve(std::max(kUsualPorts, 2 * _ports.size()));
  }
  ONU_ABILITY_COMMON_ABILITY_VALUE& value = abilities.try_emplace(place, code)->second;
  if (follow) {
    _changes = Note(code, value, codes) ? abilities.Changes() : 0;
  }
  return value;
}

bool HeldPorts::Note(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE& value,
                     const AbilityCodeReader& codes) {
  const AbilityTraits traits = codes.Traits(code);
  if ((traits & kOfInterest) != 0) {
    const bool is_lan_total = code == ONU_ABILITY_CODE_ALL_LAN;
    _lan_total = is_lan_total ? &value : _lan_total;
    _data_uni_total = code == ONU_ABILITY_CODE_DATA_UNI ? &value : _data_uni_total;
    const bool is_lan = (traits & kLanPort) != 0;
    const bool is_data_uni = !is_lan_total && (traits & kDataUniNumber) == kDataUniNumber;
    if (is_lan || is_data_uni) {
      _ports.push_back({&value, is_lan, is_data_uni});
    }
  }
  return (traits & kCountedSilently) == kCountedSilently;
}
