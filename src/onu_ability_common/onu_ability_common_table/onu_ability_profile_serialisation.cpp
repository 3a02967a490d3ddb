// Writing a profile into the host's buffer and reading it back, item by item in
// a fixed order.
//
// The helpers say which item failed, and return false.
#include <string>

#include "bep.h"
#include "onu_ability_common_global/log.h"
#include "onu_ability_common_table/onu_ability_profile.h"

namespace {

constexpr unsigned int kNextItem = 0xFFFF;

bool PackHeader(const OnuAbilityProfile& profile, Variant& variant) {
  if (variant.Append(profile._id, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _id failed\r\n");
    return false;
  }
  if (variant.Append(profile._bind_count, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _bind_count failed\r\n");
    return false;
  }
  if (variant.Append(static_cast<unsigned int>(profile._flag_match_type), kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _flag_match_type failed\r\n");
    return false;
  }
  if (variant.Append(static_cast<unsigned int>(profile._profile_type), kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _profile_type failed\r\n");
    return false;
  }
  if (variant.Append(static_cast<unsigned int>(profile._profile_source), kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _profile_source failed\r\n");
    return false;
  }
  if (variant.Append(profile._ability_default_value, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _ability_default_value failed\r\n");
    return false;
  }
  // The cached count, which may be stale, not the size of the map: meant.
  if (variant.Append(profile._common_ability_num, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack _common_ability_num failed\r\n");
    return false;
  }
  return true;
}

bool PackAbility(unsigned short code, const ONU_ABILITY_COMMON_ABILITY_VALUE& value,
                 Variant& variant) {
  if (variant.Append(static_cast<unsigned int>(code), kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack ability_code failed\r\n");
    return false;
  }
  if (variant.Append(value.ability_value_type, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack ability_value_type failed\r\n");
    return false;
  }
  if (variant.Append(value.ability_ushort_value, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack ability_ushort_value failed\r\n");
    return false;
  }
  const unsigned int length = bep_StrLen(value.ability_string_value.c_str());
  if (variant.Append(length, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack ability_string_len failed\r\n");
    return false;
  }
  // The buffer does not write through the pointer.
  auto* bytes = const_cast<char*>(value.ability_string_value.c_str());
  if (length != 0 && variant.Append(bytes, length, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("Serialize", 13, "pack ability_string_value failed\r\n");
    return false;
  }
  return true;
}

// Fetches one of the header's enumerations, which stays as it was on failure.
template <typename Enum>
bool FetchEnum(const Variant& variant, Enum& value) {
  unsigned int number = 0;
  if (variant.Fetch(number, kNextItem) != 0) {
    return false;
  }
  value = static_cast<Enum>(number);
  return true;
}

bool UnpackHeader(OnuAbilityProfile& profile, const Variant& variant, unsigned int& count) {
  if (variant.Fetch(profile._id, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _id failed\r\n");
    return false;
  }
  if (variant.Fetch(profile._bind_count, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _bind_count failed\r\n");
    return false;
  }
  if (!FetchEnum(variant, profile._flag_match_type)) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _flag_match_type failed\r\n");
    return false;
  }
  if (!FetchEnum(variant, profile._profile_type)) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _profile_type failed\r\n");
    return false;
  }
  if (!FetchEnum(variant, profile._profile_source)) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _profile_source failed\r\n");
    return false;
  }
  if (variant.Fetch(profile._ability_default_value, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _ability_default_value failed\r\n");
    return false;
  }
  if (variant.Fetch(count, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack _common_ability_num failed\r\n");
    return false;
  }
  return true;
}

// A zeroed block of the host's allocator, released with its scope.
class HostBlock {
 public:
  explicit HostBlock(unsigned int size)
      : _block(bep_callocEx(size, 1, "onu_ability_common/onu_ability_common_table", __LINE__)) {}
  ~HostBlock() {
    if (_block != nullptr) {
      bep_freeEx(_block, "onu_ability_common/onu_ability_common_table", __LINE__);
    }
  }
  HostBlock(const HostBlock&) = delete;
  HostBlock& operator=(const HostBlock&) = delete;

  char* bytes() const { return static_cast<char*>(_block); }

 private:
  void* _block;
};

// False when the bytes could not be fetched. Without memory nothing is fetched
// and the string stays empty, which counts as done.
bool FetchString(const Variant& variant, unsigned int length, std::string& text) {
  if (length == 0xFFFFFFFFU) {
    return false;  // no block holds that many bytes and a terminator
  }
  const HostBlock block(length + 1);
  if (block.bytes() == nullptr) {
    return true;
  }
  if (variant.Fetch(block.bytes(), length, kNextItem) != 0) {
    return false;
  }
  text = block.bytes();  // up to the first NUL
  return true;
}

bool UnpackAbility(const Variant& variant, unsigned short& code,
                   ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  unsigned int wide_code = 0;
  if (variant.Fetch(wide_code, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack ability_code failed\r\n");
    return false;
  }
  code = static_cast<unsigned short>(wide_code);
  if (variant.Fetch(value.ability_value_type, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack ability_value_type failed\r\n");
    return false;
  }
  if (variant.Fetch(value.ability_ushort_value, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack ability_ushort_value failed\r\n");
    return false;
  }
  unsigned int length = 0;
  if (variant.Fetch(length, kNextItem) != 0) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack ability_string_len failed\r\n");
    return false;
  }
  if (length != 0 && !FetchString(variant, length, value.ability_string_value)) {
    ONU_ABILITY_LOG_FOR("UnSerialize", 13, "unpack ability_string_value failed\r\n");
    return false;
  }
  return true;
}

}  // namespace

void OnuAbilityProfile::Serialize(Variant& variant) {
  bool packed = PackHeader(*this, variant);
  for (auto ability = _common_ability.begin(); packed && ability != _common_ability.end();
       ++ability) {
    packed = PackAbility(ability->first, ability->second, variant);
  }
}

void OnuAbilityProfile::UnSerialize(const Variant& variant) {
  unsigned int count = 0;
  if (!UnpackHeader(*this, variant, count)) {
    return;
  }
  // 16 bits, as meant: a count of 65536 or more wraps, and reading goes on
  // until the buffer runs out.
  for (unsigned short i = 0; i < count; ++i) {
    unsigned short code = 0;
    ONU_ABILITY_COMMON_ABILITY_VALUE value;
    if (!UnpackAbility(variant, code, value)) {
      return;
    }
    Add(code, value);
  }
  // What the buffer said, whatever Add made of it.
  _common_ability_num = count;
}
