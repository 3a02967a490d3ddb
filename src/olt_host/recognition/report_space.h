// What a report can hold when the library compares it with match profiles: the one place
// where that is written down.
//
// An ONU gets there only if the type that it reported is no key of a match profile, or it
// would be recognised by that. Its report then holds, of the codes that are registered:
//
//   1082          the vendor identifier: nothing, or a text of 1 to 4 bytes
//   1083          the device name: nothing, or a text of 1 to 20 bytes
//   key, 1080     the reported type, the same under both: nothing when it is unknown, or a
//                 number that is no key. A code that is also asked holds the answer instead.
//   asked codes   those that hold numbers and whose confirm type has the bit of value 2:
//                 nothing, or a number up to 0xFFFFFFFE
//   1002          the capability: nothing or 0 to 254, asked or not, for it comes with the
//                 private capability, too
//   48            as an asked code, but only while the capability is unknown: as soon as it
//                 is known, 48 is set aside
//   1001, 65533   the sums of the ports that the report holds, once there is one
//
// and nothing under any other code. Values are independent of each other but for the
// reported type, the pair of 1002 and 48, and the sums. A wildcard in a report (0xFFFFFFFF)
// is the same as nothing, except that a match profile with an unset entry refuses it.
//
// By the code registry and the match profiles as they were when this was made.
#ifndef OLT_HOST_RECOGNITION_REPORT_SPACE_H
#define OLT_HOST_RECOGNITION_REPORT_SPACE_H

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// What fills a code of a report.
enum class Channel {
  kNothing,
  kVendorId,
  kDeviceName,
  kAsked,
  kReportedType,
  kCapability,
  kSetAside,  // 48
  kTotal,
};

constexpr std::uint16_t kSetAsideCode = 48;
constexpr std::uint16_t kCapabilityCode = 1002;
constexpr std::uint16_t kReportTypeCode = 1080;
constexpr std::uint32_t kHighestCapability = 254;

struct ReportValue {
  std::uint32_t number = 0;
  std::string text;  // of vendor identifier and device name
};
bool operator<(const ReportValue& a, const ReportValue& b);
bool operator==(const ReportValue& a, const ReportValue& b);

// The value of the key ability code as the library reads it, 0xFFFFFFFF without one.
std::uint32_t KeyOf(const OnuAbilityProfile& profile);

class ReportSpace {
 public:
  explicit ReportSpace(const std::vector<OnuAbilityProfile>& match_profiles);

  Channel Of(std::uint16_t code) const;
  // Whether the ONU is asked for the code.
  bool IsAsked(std::uint16_t code) const { return _asked.count(code) != 0; }
  // Whether some report holds the value under the code.
  bool CanHold(std::uint16_t code, const ReportValue& value) const;
  // Whether some report holds a wildcard there, and not just nothing.
  bool CanHoldWildcard(std::uint16_t code) const;
  // Whether an ONU may report no type and still be compared with match profiles: a match
  // profile without a key would take it by its type.
  bool TypeMayBeUnknown() const { return _keys.count(0xFFFFFFFFU) == 0; }
  // Whether a match profile has the key.
  bool IsKey(std::uint32_t type) const { return _keys.count(type) != 0; }
  // Asked codes that count into 1001 or 65533 when a report holds them.
  const std::vector<std::uint16_t>& Ports() const { return _ports; }

  static bool HoldsText(Channel channel) {
    return channel == Channel::kVendorId || channel == Channel::kDeviceName;
  }

 private:
  std::uint16_t _key_code;
  std::set<std::uint16_t> _registered;
  std::set<std::uint16_t> _asked;
  std::vector<std::uint16_t> _ports;
  std::set<std::uint16_t> _derived;  // totals into which some code counts
  std::set<std::uint32_t> _keys;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_REPORT_SPACE_H
