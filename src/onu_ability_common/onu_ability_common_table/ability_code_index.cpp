#include "onu_ability_common_table/ability_code_index.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

AbilityTraits TraitsOfEntry(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, unsigned short value) {
  switch (id) {
    case ONU_ABILITY_ATTR_CONFIRM_TYPE:
      return kHoldsConfirmType |
             ((value & ONU_ABILITY_CONFIRM_COMPARED) != 0 ? kComparedWithPatterns : 0U) |
             ((value & ONU_ABILITY_CONFIRM_ASKED) != 0 ? kConfirmedByOnu : 0U);
    case ONU_ABILITY_ATTR_LAMP:
      return kHoldsLamp | (value != 0 ? kCountsLamps : 0U);
    case ONU_ABILITY_ATTR_PORT_TYPE:
      return kHoldsPortType | (value == ONU_ABILITY_PORT_LAN ? kLanPort : 0U) |
             (IsDataUni(value) ? kDataUni : 0U);
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
    : _words(static_cast<Word*>(std::calloc(kCodes, sizeof(Word))), std::free) {
  if (_words == nullptr) {
    throw std::bad_alloc();
  }
}

void AbilityCodeIndex::Set(unsigned short code, std::size_t position, AbilityTraits traits) {
  _words[code].store(static_cast<std::uint32_t>(position) << kTraitBits | traits,
                     std::memory_order_relaxed);
}

bool AbilityCodeIndex::Rebuild(const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records) {
  for (std::size_t position = 0; position < records.size(); ++position) {
    Set(records[position].ability_code, position, TraitsOf(records[position]));
  }
  for (unsigned int number = 0; number < kCodes; ++number) {
    const auto code = static_cast<unsigned short>(number);
    const Entry entry = Find(code);
    const bool is_left_over = entry.traits != 0 && (entry.position >= records.size() ||
                                                    records[entry.position].ability_code != code);
    // Writing where nothing is would take the memory.
    if (is_left_over) {
      Set(code, 0, 0);
    }
  }
  // The last record of a code has its entry now.
  for (std::size_t position = 0; position < records.size(); ++position) {
    if (Find(records[position].ability_code).position != position) {
      return false;
    }
  }
  return true;
}

bool AbilityCodeReader::CopyName(unsigned short code, NameText& name) const {
  const ReadScope scope(onu_ability_settings_guard);
  const auto record = std::as_const(_registry).Find(code);
  if (record == _registry._vec_ability_attr.end()) {
    return false;
  }
  name.Assign(record->ability_name);
  return true;
}

AbilityTraits AbilityCodeReader::SearchTraits(unsigned short code) const {
  const ReadScope scope(onu_ability_settings_guard);
  const auto record = std::as_const(_registry).Find(code);
  return record != _registry._vec_ability_attr.end() ? TraitsOf(*record) : 0;
}
