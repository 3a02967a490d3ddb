/// @file
/// One ability value, the enumerations that select profiles and attributes, the
/// definition record of an ability code, and the codes that the library itself
/// knows. Plain data: no locks, no log lines, no behaviour beyond construction and
/// copying. An object belongs to whoever holds it, one thread at a time.
#ifndef ONU_ABILITY_COMMON_GLOBAL_ABILITY_VALUES_H
#define ONU_ABILITY_COMMON_GLOBAL_ABILITY_VALUES_H

#include <map>
#include <string>

#include "onu_ability_common_global/api.h"

/// @name Value-type tags
/// The same numbers are the values of the value-type attribute of a code. Tag 1 is never
/// produced or accepted.
/// @{
constexpr unsigned int ONU_ABILITY_VALUE_TYPE_NONE = 0;    ///< nothing was stored yet
constexpr unsigned int ONU_ABILITY_VALUE_TYPE_USHORT = 2;  ///< a number, of 32 bits
constexpr unsigned int ONU_ABILITY_VALUE_TYPE_STRING = 3;  ///< a string
/// @}

/// The number that stands for "not set" in a value and for "matches anything" in
/// a pattern; so does the empty string.
constexpr unsigned int ONU_ABILITY_WILDCARD = 0xFFFFFFFFU;

/// The absent code, attribute value or profile id. Profile id 0 means the same.
constexpr unsigned short ONU_ABILITY_INVALID_ID = 65535;

/// One ability value. It owns its string, which has no length limit. A new one is tag 0,
/// the wildcard and an empty string.
struct ONU_ABILITY_COMMON_ABILITY_VALUE {
  unsigned int ability_value_type = ONU_ABILITY_VALUE_TYPE_NONE;  ///< which payload is meaningful
  unsigned int ability_ushort_value = ONU_ABILITY_WILDCARD;       ///< the number, all 32 bits of it
  std::string ability_string_value;                               ///< the string
};

/// Which table a profile belongs to.
enum ONU_ABILITY_ENUM_PROFILE_TYPE : int {
  ONU_ABILITY_PROFILE_TYPE_NONE = 0,   ///< no table
  ONU_ABILITY_PROFILE_TYPE_REAL = 1,   ///< the abilities of one ONU real type
  ONU_ABILITY_PROFILE_TYPE_MATCH = 2,  ///< a pattern that recognises a type
};

/// Where a profile came from; also the filter of lookups: a profile passes when the filter
/// is 2 or its own source. No stored profile carries 2.
enum ONU_ABILITY_ENUM_PROFILE_SOURCE : int {
  ONU_ABILITY_PROFILE_SOURCE_DEFAULT = 0,   ///< loaded by the host at start-up
  ONU_ABILITY_PROFILE_SOURCE_EXTERNAL = 1,  ///< added by an operator
  ONU_ABILITY_PROFILE_SOURCE_ALL = 2,       ///< as a filter: every profile
};

/// The role that a profile plays when it is compared with another.
enum ONU_ABILITY_ENUM_MATCH_TYPE : int {
  ONU_ABILITY_MATCH_TYPE_NONE = 0,     ///< no role: fits whatever it is compared with
  ONU_ABILITY_MATCH_TYPE_PATTERN = 1,  ///< built from an ONU's report, compared with wildcards
  ONU_ABILITY_MATCH_TYPE_EXACT = 2,    ///< stored in a table, compared value by value
};

/// The attributes of an ability code to which the library gives a meaning. A
/// host registers ids and names of its own beside them; id 2 is free.
enum ONU_ABILITY_ENUM_ABILITY_ATTR_ID : int {
  ONU_ABILITY_ATTR_NONE = 0,          ///< no attribute: the id of an unknown name
  ONU_ABILITY_ATTR_CONFIRM_TYPE = 1,  ///< bits: 1 compared with patterns, 2 asked from the ONU
  ONU_ABILITY_ATTR_LAMP = 3,          ///< non-zero: the code counts lamps
  ONU_ABILITY_ATTR_PORT_TYPE = 4,     ///< 3 LAN port; 3 or 7 data UNI
  ONU_ABILITY_ATTR_VALUE_TYPE = 5,    ///< 2 number, 3 string
};

/// @name Bits of the confirm-type attribute
/// @{
constexpr unsigned short ONU_ABILITY_CONFIRM_COMPARED = 0x1;  ///< compared with patterns
constexpr unsigned short ONU_ABILITY_CONFIRM_ASKED = 0x2;     ///< asked from the ONU
/// @}

/// @name Values of the port-type attribute
/// @{
constexpr unsigned short ONU_ABILITY_PORT_LAN = 3;       ///< a LAN port, which is a data UNI, too
constexpr unsigned short ONU_ABILITY_PORT_DATA_UNI = 7;  ///< another data UNI
/// @}

/// @name Ability codes that the library itself reads or writes
/// Numbers, unless they are said to be strings. Only registered codes can be added to a
/// profile, these like any other; the derived ones and the key are written anyway.
/// @{

/// Made the wildcard in a report that holds it, once the private capability is known.
constexpr unsigned short ONU_ABILITY_CODE_PRIVATE_CAPABILITY_KNOWN = 48;
constexpr unsigned short ONU_ABILITY_CODE_ALL_LAN = 1001;       ///< derived: sum of LAN ports
constexpr unsigned short ONU_ABILITY_CODE_ONU_CAPA = 1002;      ///< 0 SFU, 1 HGU
constexpr unsigned short ONU_ABILITY_CODE_TRANS_TYPE = 1023;    ///< non-zero: translate the type
constexpr unsigned short ONU_ABILITY_CODE_REPORT_TYPE = 1080;   ///< type that the ONU reported
constexpr unsigned short ONU_ABILITY_CODE_REAL_TYPE = 1081;     ///< the type that it really is
constexpr unsigned short ONU_ABILITY_CODE_VENDOR_ID = 1082;     ///< string of 4 characters
constexpr unsigned short ONU_ABILITY_CODE_TYPE_NAME = 1083;     ///< string: the name of the type
constexpr unsigned short ONU_ABILITY_CODE_DEFAULT_KEY = 1085;   ///< default key ability code
constexpr unsigned short ONU_ABILITY_CODE_PROFILE_NAME = 1093;  ///< string, for listings
constexpr unsigned short ONU_ABILITY_CODE_DATA_UNI = 65533;     ///< derived: sum of data UNIs
/// @}

/// The definition of one ability code, as the code registry keeps it.
struct ONU_ABILITY_API ONU_ABILITY_CODE_ATTR_INFO {
  /// An unnamed code 1001 with the value 0 for every attribute id registered at
  /// this moment, and value type number whether or not that attribute is.
  ONU_ABILITY_CODE_ATTR_INFO();

  std::string ability_name;     ///< unique within the registry
  unsigned short ability_code;  ///< unique within the registry
  std::map<ONU_ABILITY_ENUM_ABILITY_ATTR_ID, unsigned short> ability_attr;  ///< value of each id
};

#endif  // ONU_ABILITY_COMMON_GLOBAL_ABILITY_VALUES_H
