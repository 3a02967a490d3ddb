#include "onu_ability_common_table/ability_code_index.h"

#include <cstdlib>
#include <new>

namespace {

// The bits of the confirm-type attribute.
constexpr unsigned short kByPattern = 0x1;
constexpr unsigned short kByOnu = 0x2;
constexpr unsigned short kLanPortType = 3;
// Port type 7 is a data UNI, too: 3 with this bit set.
constexpr unsigned int kDataUniBit = 0x4;

AbilityTraits TraitsOfEntry(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, unsigned short value) {
  switch (id) {
    case ONU_ABILITY_ATTR_CONFIRM_TYPE:
      return kHoldsConfirmType | ((value & kByPattern) != 0 ? kComparedWithPatterns : 0U) |
             ((value & kByOnu) != 0 ? kConfirmedByOnu : 0U);
    case ONU_ABILITY_ATTR_LAMP:
      return kHoldsLamp | (value != 0 ? kCountsLamps : 0U);
    case ONU_ABILITY_ATTR_PORT_TYPE:
      return kHoldsPortType | (value == kLanPortType ? kLanPort : 0U) |
             ((value & ~kDataUniBit) == kLanPortType ? kDataUni : 0U);
    case ONU_ABILITY_ATTR_VALUE_TYPE:
      return kHoldsValueType | (value == ONU_ABILITY_VALUE_TYPE_USHORT ? kNumber : 0U);
    default:
      return 0;
  }
}

}  // namespace

AbilityTraits TraitsOf(const ONU_ABILITY_CODE_ATTR_INFO& record) {
  const bool is_derived = record.ability_code == ONU_ABILITY_CODE_ALL_LAN ||
                          record.ability_code == ONU_ABILITY_CODE_DATA_UNI;
  AbilityTraits traits = kKnownCode | (is_derived ? kDerivedCount : 0U);
  for (const auto& [id, value] : record.ability_attr) {
    traits |= TraitsOfEntry(id, value);
  }
  return traits;
}

AbilityCodeIndex::AbilityCodeIndex()
    : _entries(static_cast<Entry*>(std::calloc(kCodes, sizeof(Entry))), std::free) {
  if (_entries == nullptr) {
    throw std::bad_alloc();
  }
}

void AbilityCodeIndex::Set(unsigned short code, std::size_t position, AbilityTraits traits) {
  _entries[code] = {static_cast<unsigned short>(position), static_cast<unsigned short>(traits)};
}

bool AbilityCodeIndex::Rebuild(const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records) {
  for (std::size_t code = 0; code < kCodes; ++code) {
    // Writing where nothing is would take the memory.
    if (_entries[code].traits != 0) {
      _entries[code] = Entry();
    }
  }
  for (const auto& record : records) {
    if (Traits(record.ability_code) != 0) {
      return false;
    }
    Set(record.ability_code, static_cast<std::size_t>(&record - records.data()), TraitsOf(record));
  }
  return true;
}

const char* AbilityCodeReader::SearchName(unsigned short code) const {
  const auto record = _registry.Find(code);
  return record != _registry._vec_ability_attr.end() ? record->ability_name.c_str() : nullptr;
}

AbilityTraits AbilityCodeReader::SearchTraits(unsigned short code) const {
  const auto record = _registry.Find(code);
  return record != _registry._vec_ability_attr.end() ? TraitsOf(*record) : 0;
}
