// A catalogue of ONU models as its file states it: attributes, ability codes and
// profiles, each with the place it was read from. Plain data that knows nothing
// of the library; CatalogueLoader puts it there.
#ifndef OLT_HOST_CATALOGUE_CATALOGUE_H
#define OLT_HOST_CATALOGUE_CATALOGUE_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "catalogue/input_error.h"
#include "onu_ability_common_global.h"

namespace olt_host {

// An entry's `order` is its running number over all files in the order read, from
// 1, and 0 for one that was read from none. Of two entries that exclude each
// other the later one is at fault.
struct AttributeEntry {
  std::uint16_t id = 0;
  std::string name;
  SourcePosition position;
  unsigned int order = 0;
};

struct CodeEntry {
  std::uint16_t code = 0;
  std::string name;
  std::string help;
  std::map<std::uint16_t, std::uint16_t> attributes;  // by id; what is not listed is 0
  SourcePosition position;
  unsigned int order = 0;

  // The value of an attribute as the library will hold it.
  std::uint16_t Attribute(std::uint16_t id) const;
  // Whether the code's values are texts rather than numbers.
  bool HoldsText() const;
};

enum class AbilityKind { kNumber, kText, kAny };

struct AbilityEntry {
  std::uint16_t code = 0;
  AbilityKind kind = AbilityKind::kNumber;
  bool holds_text = false;  // whether the code does: tells what `any` stands for
  std::uint32_t number = 0;
  std::string text;
  SourcePosition position;
};

struct ProfileEntry {
  std::uint32_t key = 0;
  std::uint16_t id = 0;  // 0: the library gives one
  std::string source;    // where the facts come from
  std::vector<AbilityEntry> abilities;
  SourcePosition position;
  unsigned int order = 0;
};

struct Catalogue {
  std::string name;
  std::string version;
  std::uint16_t key_ability_code = 1085;
  std::uint16_t sfu_common_type = 857;
  std::uint16_t hgu_common_type = 762;
  std::vector<AttributeEntry> attributes;
  std::vector<CodeEntry> codes;
  std::vector<ProfileEntry> real_profiles;
  std::vector<ProfileEntry> match_profiles;  // the last is tried first
  SourcePosition position;                   // of the file's beginning
  SourcePosition key_ability_code_position;

  // Null when there is none.
  const AttributeEntry* FindAttribute(std::uint16_t id) const;
  const AttributeEntry* FindAttribute(const std::string& attribute_name) const;
  const CodeEntry* FindCode(std::uint16_t code) const;
  const CodeEntry* FindCode(const std::string& code_name) const;
};

// "Name, version 3"; the name alone without a version.
std::string NameAndVersion(const std::string& name, const std::string& version);

// The attributes to which the library gives a meaning; 5 belongs to every code.
constexpr std::uint16_t kConfirmTypeAttribute = ONU_ABILITY_ATTR_CONFIRM_TYPE;
constexpr std::uint16_t kPortTypeAttribute = ONU_ABILITY_ATTR_PORT_TYPE;
constexpr std::uint16_t kValueTypeAttribute = ONU_ABILITY_ATTR_VALUE_TYPE;
constexpr std::uint16_t kAskedFromOnu = ONU_ABILITY_CONFIRM_ASKED;
// Port types; a data UNI is a LAN port or a port of the second kind.
constexpr std::uint16_t kLanPort = ONU_ABILITY_PORT_LAN;
constexpr std::uint16_t kOtherDataUni = ONU_ABILITY_PORT_DATA_UNI;
constexpr std::uint16_t kNumberValueType = ONU_ABILITY_VALUE_TYPE_USHORT;
constexpr std::uint16_t kTextValueType = ONU_ABILITY_VALUE_TYPE_STRING;

// The codes to which it gives one.
constexpr std::uint16_t kAllLanCode = ONU_ABILITY_CODE_ALL_LAN;
constexpr std::uint16_t kVendorIdCode = ONU_ABILITY_CODE_VENDOR_ID;
constexpr std::uint16_t kTypeNameCode = ONU_ABILITY_CODE_TYPE_NAME;
constexpr std::uint16_t kDataUniCode = ONU_ABILITY_CODE_DATA_UNI;

constexpr std::uint32_t kAnyNumber = ONU_ABILITY_WILDCARD;

// The ids that the library gives to profiles without one.
constexpr std::uint16_t kFirstGivenId = 30001;
constexpr std::uint16_t kLastGivenId = 65533;

// What the commands and the buffers of the hooks take, in bytes.
constexpr std::size_t kVendorIdBytes = 4;
constexpr std::size_t kTypeNameBytes = 20;
constexpr std::size_t kDeviceNameBytes = 20;

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_CATALOGUE_H
