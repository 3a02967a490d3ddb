// The short way to the code registry: where each code's record stands, and in one
// word what profiles ask about the code. Not for hosts.
//
// The index follows the registry's own operations. It is worth something only as
// long as nobody else can change the records: once OnuAbilityCodeInfo::Get() has
// handed them out, their holder may change any of them at any moment, so from then
// on every code is searched among the records.
//
// What profiles ask about a code is one atomic word, read without the registry's guard;
// the position in it is worth something only under the guard.
#ifndef ONU_ABILITY_COMMON_TABLE_ABILITY_CODE_INDEX_H
#define ONU_ABILITY_COMMON_TABLE_ABILITY_CODE_INDEX_H

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/name_text.h"
#include "onu_ability_common_table/onu_ability_attr_info.h"
#include "onu_ability_common_table/onu_ability_code_info.h"

// What an attribute entry of a code's record comes to. A record without an entry
// reads as 0, but reading adds the entry: the kHolds bits say where it does not.
using AbilityTraits = unsigned int;
constexpr AbilityTraits kKnownCode = 0x1;
constexpr AbilityTraits kComparedWithPatterns = 0x2;
constexpr AbilityTraits kCountsLamps = 0x4;
constexpr AbilityTraits kLanPort = 0x8;
constexpr AbilityTraits kDataUni = 0x10;
constexpr AbilityTraits kNumber = 0x20;
constexpr AbilityTraits kHoldsConfirmType = 0x40;
constexpr AbilityTraits kHoldsLamp = 0x80;
constexpr AbilityTraits kHoldsPortType = 0x100;
constexpr AbilityTraits kHoldsValueType = 0x200;
constexpr AbilityTraits kConfirmedByOnu = 0x400;
constexpr AbilityTraits kDerivedCount = 0x800;  // one of the two codes themselves

// A code with these neither says anything nor acquires an attribute when ports are counted.
constexpr AbilityTraits kCountedSilently = kKnownCode | kHoldsPortType | kHoldsValueType;
constexpr AbilityTraits kDataUniNumber = kDataUni | kNumber;

// Whether ports of this type are data UNIs.
constexpr bool IsDataUni(unsigned short port_type) {
  return port_type == ONU_ABILITY_PORT_LAN || port_type == ONU_ABILITY_PORT_DATA_UNI;
}

AbilityTraits TraitsOf(const ONU_ABILITY_CODE_ATTR_INFO& record);

// An entry for each of the 65536 codes. The block is not written where no code is
// registered, so a system that gives out zeroed memory page by page keeps only the
// few pages with codes.
class AbilityCodeIndex {
 public:
  struct Entry {
    unsigned short position;  // of the record with the code
    unsigned short traits;    // none for an unknown code
  };

  AbilityCodeIndex();

  Entry Find(unsigned short code) const {
    const std::uint32_t word = _words[code].load(std::memory_order_relaxed);
    return {static_cast<unsigned short>(word >> kTraitBits), static_cast<unsigned short>(word)};
  }
  AbilityTraits Traits(unsigned short code) const { return Find(code).traits; }

  void Set(unsigned short code, std::size_t position, AbilityTraits traits);
  // Makes it right for these records; what stays known is known meanwhile. False when a
  // code has more than one record, which the index cannot tell.
  bool Rebuild(const std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records);

 private:
  using Word = std::atomic<std::uint32_t>;  // position and traits

  static constexpr std::size_t kCodes = 0x10000;
  static constexpr unsigned int kTraitBits = 16;

  // Of calloc, which knows memory that is zero already.
  std::unique_ptr<Word[], void (*)(void*)> _words;
};

// Asked for every ability of every report.
inline const AbilityCodeIndex* OnuAbilityCodeInfo::TrustedIndex() const {
  return _unpredictable.load(std::memory_order_relaxed) || WalksOnly() ? nullptr : _index.get();
}

// Reads the code registry without a log line and without changing it. For the operation
// at hand only: it notes whether the index can be trusted when it is made.
class AbilityCodeReader {
 public:
  AbilityCodeReader() : AbilityCodeReader(*OnuAbilityCodeInfo::GetInstance()) {}
  explicit AbilityCodeReader(OnuAbilityCodeInfo& registry)
      : _registry(registry), _index(registry.TrustedIndex()) {}

  // None for an unknown code.
  AbilityTraits Traits(unsigned short code) const {
    return _index != nullptr ? _index->Traits(code) : SearchTraits(code);
  }
  bool Knows(unsigned short code) const { return Traits(code) != 0; }
  // Whether attributes with a meaning are registered; without, every code reads as
  // 65535, known or not, and says so.
  template <typename... Id>
  static bool AreRegistered(Id... ids) {
    const unsigned int wanted = ((1U << ids) | ...);
    const unsigned int registered =
        OnuAbilityAttrInfo::GetInstance()->_low_ids.load(std::memory_order_relaxed);
    return (registered & wanted) == wanted;
  }
  // The first record's name. False, with `name` as it was, for an unknown code.
  bool CopyName(unsigned short code, NameText& name) const;
  // Null where every code is searched.
  const AbilityCodeIndex* Index() const { return _index; }
  // Another one after every change of a code; 0 where changes cannot be seen. To be asked
  // before what is kept as of this generation is read.
  unsigned int Generation() const {
    return _index != nullptr ? _registry._generation.load(std::memory_order_acquire) : 0;
  }

 private:
  AbilityTraits SearchTraits(unsigned short code) const;

  OnuAbilityCodeInfo& _registry;
  const AbilityCodeIndex* _index;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ABILITY_CODE_INDEX_H
