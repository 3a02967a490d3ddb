#include "onu_ability_common_table/ability_code_index.h"

namespace {

constexpr unsigned short kConfirmedByPattern = 0x1;  // bit of the confirm-type attribute
constexpr unsigned short kLanPortType = 3;
// Port type 7 is a data UNI, too: 3 with this bit set.
constexpr unsigned int kDataUniBit = 0x4;

AbilityTraits TraitsOfEntry(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, unsigned short value) {
  switch (id) {
    case ONU_ABILITY_ATTR_CONFIRM_TYPE:
      return kHoldsConfirmType | ((value & kConfirmedByPattern) != 0 ? kComparedWithPatterns : 0U);
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
  AbilityTraits traits = kKnownCode;
  for (const auto& [id, value] : record.ability_attr) {
    traits |= TraitsOfEntry(id, value);
  }
  return traits;
}

void AbilityCodeIndex::Set(unsigned short code, Entry entry) {
  std::unique_ptr<Page>& page = _pages[code >> 8U];
  if (page == nullptr) {
    page = std::make_unique<Page>();
  }
  (*page)[code & 0xFFU] = entry;
}

void AbilityCodeIndex::Rebuild(const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records) {
  for (auto& page : _pages) {
    page.reset();
  }
  for (auto record = records.rbegin(); record != records.rend(); ++record) {
    const auto position = static_cast<unsigned int>(records.rend() - record - 1);
    Set(record->ability_code, {position, TraitsOf(*record)});
  }
}

const char* AbilityCodeReader::Name(unsigned short code) const {
  const auto record = _registry.Find(code);
  return record != _registry._vec_ability_attr.end() ? record->ability_name.c_str() : nullptr;
}

AbilityTraits AbilityCodeReader::SearchTraits(unsigned short code) const {
  const auto record = _registry.Find(code);
  return record != _registry._vec_ability_attr.end() ? TraitsOf(*record) : 0;
}
