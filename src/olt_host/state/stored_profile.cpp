#include "state/stored_profile.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/variant_bytes.h"
#include "state/library_state.h"
#include "state/state_file.h"

namespace olt_host {

namespace {

using Abilities = std::map<unsigned short, ONU_ABILITY_COMMON_ABILITY_VALUE>;

void RequireTag(ByteReader& items, std::uint8_t wanted) {
  const std::uint8_t tag = items.Number8();
  if (tag != wanted) {
    items.Fail("holds an item of kind " + std::to_string(tag) + "; expected " +
               std::to_string(wanted));
  }
}

std::uint16_t ShortItem(ByteReader& items) {
  RequireTag(items, kShortItem);
  return items.Number16();
}

std::uint32_t IntItem(ByteReader& items) {
  RequireTag(items, kIntItem);
  return items.Number32();
}

void Require(const ByteReader& items, const char* what, std::uint32_t value,
             std::uint32_t expected) {
  if (value != expected) {
    items.Fail("has the " + std::string(what) + " " + std::to_string(value) + "; expected " +
               std::to_string(expected));
  }
}

std::string TextItem(ByteReader& items, std::uint32_t length) {
  if (length == 0) return "";
  RequireTag(items, kBytesItem);
  Require(items, "text length", items.Number32(), length);
  std::string text(items.Bytes(length));
  if (text.find('\0') != std::string::npos) items.Fail("holds a text with a NUL byte");
  return text;
}

// The number of abilities that stand behind it.
std::uint32_t CheckHeader(ByteReader& items, ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const bool is_pattern = type == ONU_ABILITY_PROFILE_TYPE_MATCH;
  ShortItem(items);  // the id: any
  IntItem(items);    // the bind count: any
  Require(items, "match type", IntItem(items), ONU_ABILITY_MATCH_TYPE_EXACT);
  Require(items, "profile type", IntItem(items), static_cast<std::uint32_t>(type));
  Require(items, "source", IntItem(items), ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  Require(items, "default value", IntItem(items), is_pattern ? ONU_ABILITY_WILDCARD : 0);
  return IntItem(items);
}

void AddAbility(ByteReader& items, Abilities& abilities) {
  const std::uint32_t code = IntItem(items);
  if (code > UINT16_MAX || (!abilities.empty() && code <= abilities.rbegin()->first)) {
    items.Fail("has code " + std::to_string(code) + " out of order; expected ascending codes");
  }
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = IntItem(items);
  // A comparison gives a profile that lacks the key ability code an entry of type none.
  if (value.ability_value_type != ONU_ABILITY_VALUE_TYPE_NONE &&
      value.ability_value_type != ONU_ABILITY_VALUE_TYPE_USHORT &&
      value.ability_value_type != ONU_ABILITY_VALUE_TYPE_STRING) {
    items.Fail("has the value type " + std::to_string(value.ability_value_type) +
               "; expected 0, 2 or 3");
  }
  value.ability_ushort_value = IntItem(items);
  value.ability_string_value = TextItem(items, IntItem(items));
  abilities.emplace_hint(abilities.end(), static_cast<unsigned short>(code), std::move(value));
}

Abilities ReadAbilities(std::string_view bytes, ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  ByteReader items(bytes, "a profile");
  const std::uint32_t count = CheckHeader(items, type);
  Abilities abilities;
  for (std::uint32_t i = 0; i < count; ++i) AddAbility(items, abilities);
  items.RequireEnd();
  return abilities;
}

bool SameAbilities(const Abilities& a, const Abilities& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
    return x.first == y.first && SameValue(x.second, y.second);
  });
}

}  // namespace

void WriteProfile(ByteWriter& writer, const OnuAbilityProfile& profile) {
  // The cached count may be stale, and too few abilities would be read back by it: it
  // stands beside, and the serialised one is right.
  OnuAbilityProfile copy(profile);
  copy._common_ability_num = static_cast<unsigned int>(copy._common_ability.size());
  Variant variant;
  copy.Serialize(variant);
  const std::vector<unsigned char>& items = VariantBytes(variant);
  const std::string bytes(items.begin(), items.end());
  // Serialize tells of a failure only in the log.
  if (!SameAbilities(ReadAbilities(bytes, profile._profile_type), profile._common_ability)) {
    throw StateError("the profile with id " + std::to_string(profile._id) +
                     " cannot be serialised");
  }
  writer.Number16(profile._key_ability_code);
  writer.Number32(profile._age_count);
  writer.Number32(profile._common_ability_num);
  writer.Text(bytes);
}

OnuAbilityProfile ReadProfile(ByteReader& reader, ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  OnuAbilityProfile profile;
  profile._key_ability_code = reader.Number16();
  profile._age_count = reader.Number32();
  const std::uint32_t cached_count = reader.Number32();
  const std::string bytes = reader.Text();
  Abilities abilities = ReadAbilities(bytes, type);
  Variant variant;
  SetVariantBytes(variant, std::vector<unsigned char>(bytes.begin(), bytes.end()));
  profile.UnSerialize(variant);
  if (!IsReadToEnd(variant)) reader.Fail("holds a profile that the library does not read");
  // UnSerialize adds by the rules for new values: it leaves out codes that are not
  // defined here and values equal to the default, and derives the totals anew. A table
  // may hold what these rules leave out, so the abilities are set as they stand.
  profile._common_ability = std::move(abilities);
  profile._common_ability_num = cached_count;
  return profile;
}

}  // namespace olt_host
