// What the library takes for granted of the machine that it is built for. Holds on the
// 32-bit and 64-bit machines of either byte order that it is tested on; where it does
// not, the build stops here rather than the board in the field.
#include <climits>
#include <limits>
#include <type_traits>

#include "onu_ability_common_global.h"

static_assert(CHAR_BIT == 8, "texts, serial numbers and the host's buffer are counted in bytes");
static_assert(std::numeric_limits<unsigned short>::digits == 16,
              "codes, profile ids and attribute values have 16 bits, and 0xFFFF is the absent one");
static_assert(std::numeric_limits<unsigned int>::digits == 32,
              "values, totals and status codes have 32 bits: totals wrap there, 0xFFFFFFFF is the "
              "wildcard, and numbers are printed as %u and %x");
static_assert(std::numeric_limits<int>::digits == 31,
              "commands read numbers as int and keep their 32 bits as unsigned");
static_assert(static_cast<unsigned int>(-1) == ONU_ABILITY_WILDCARD &&
                  static_cast<int>(ONU_ABILITY_WILDCARD) == -1,
              "a number that a command reads as -1 is the wildcard");

// A host may hand in any number as an enumerator.
template <typename Enumeration>
constexpr bool kTakesAnyInt = std::is_same_v<std::underlying_type_t<Enumeration>, int>;
static_assert(kTakesAnyInt<ONU_ABILITY_ENUM_PROFILE_TYPE>, "enumerators are ints");
static_assert(kTakesAnyInt<ONU_ABILITY_ENUM_PROFILE_SOURCE>, "enumerators are ints");
static_assert(kTakesAnyInt<ONU_ABILITY_ENUM_MATCH_TYPE>, "enumerators are ints");
static_assert(kTakesAnyInt<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>, "enumerators are ints");

static_assert(sizeof(void (*)()) == sizeof(void*), "hooks are registered as void*");
static_assert(sizeof(_OMCI_PHYSICAL_SN_) == 8,
              "the serial number of the management protocol is eight bytes without padding");
