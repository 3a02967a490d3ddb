// What the tests of the ability profile share: the content and the members of a
// profile as plain values that compare and print, the registry's lines that
// come with every log line that names an ability, and questions to a log.
#ifndef TESTS_ONU_ABILITY_COMMON_TABLE_PROFILE_EXPECTATIONS_H
#define TESTS_ONU_ABILITY_COMMON_TABLE_PROFILE_EXPECTATIONS_H

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

constexpr unsigned short kAllLan = 1001;
constexpr unsigned short kOnuCapa = 1002;
constexpr unsigned short kFePorts = 1010;
constexpr unsigned short kGePorts = 1011;
constexpr unsigned short kWifiUni = 1012;
constexpr unsigned short kPotsPorts = 1020;
constexpr unsigned short kPowerLamp = 1030;
constexpr unsigned short kReportType = 1080;
constexpr unsigned short kRealType = 1081;
constexpr unsigned short kVendorId = 1082;
constexpr unsigned short kTypeName = 1083;
constexpr unsigned short kKeyValue = 1085;
constexpr unsigned short kProfileName = 1093;
constexpr unsigned short kDataUnis = 65533;
constexpr unsigned int kWildcard = 0xFFFFFFFFU;

constexpr int kReal = 1;
constexpr int kMatch = 2;

// One stored ability: tag, number, string.
using Entry = std::tuple<unsigned int, unsigned int, std::string>;
using Content = std::map<unsigned short, Entry>;

inline Entry NumberEntry(unsigned int number) { return {2, number, ""}; }

inline Content ContentOf(const OnuAbilityProfile& profile) {
  Content content;
  for (const auto& [code, value] : profile._common_ability) {
    content[code] = {value.ability_value_type, value.ability_ushort_value,
                     value.ability_string_value};
  }
  return content;
}

inline ONU_ABILITY_COMMON_ABILITY_VALUE Value(unsigned int tag, unsigned int number,
                                              const std::string& text = "") {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = tag;
  value.ability_ushort_value = number;
  value.ability_string_value = text;
  return value;
}

inline Entry EntryOf(const ONU_ABILITY_COMMON_ABILITY_VALUE& value) {
  return {value.ability_value_type, value.ability_ushort_value, value.ability_string_value};
}

// Every member of a profile but the key ability code and the content.
inline auto MembersOf(const OnuAbilityProfile& profile) {
  return std::make_tuple(
      profile._id, profile._bind_count, static_cast<int>(profile._flag_match_type),
      static_cast<int>(profile._profile_type), static_cast<int>(profile._profile_source),
      profile._ability_default_value, profile._common_ability_num, profile._age_count,
      std::string(reinterpret_cast<const char*>(profile._reserved), sizeof(profile._reserved)));
}

inline ONU_ABILITY_ENUM_PROFILE_TYPE ProfileType(int type) {
  return static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(type);
}

inline ONU_ABILITY_ENUM_PROFILE_SOURCE ProfileSource(int source) {
  return static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source);
}

inline ONU_ABILITY_ENUM_MATCH_TYPE MatchType(int type) {
  return static_cast<ONU_ABILITY_ENUM_MATCH_TYPE>(type);
}

// What the code registry logs when it is asked for a name; a line that prints
// the name follows.
inline LogLine NameAsked(unsigned short code, const std::string& name) {
  return Log(
      9, "ability_code is equal!ability_code:" + std::to_string(code) + ", ability_name:" + name);
}

inline LogLine NameUnknown(unsigned short code) {
  return Log(1, "find ability_code null!ability_code:" + std::to_string(code));
}

inline LogLine CodeRegistered(unsigned short code) {
  return Log(6, "ability code is equal!ability_code:" + std::to_string(code));
}

inline LogLine NotHeld(unsigned short code, const std::string& name) {
  return Log(1, "ability_code is not exist,ability_code:" + std::to_string(code) +
                    ", ability_name:" + name);
}

// The traces of `function`, which are level 10.
inline unsigned int TracesOf(const std::vector<LogLine>& log, const std::string& text,
                             const std::string& function) {
  unsigned int count = 0;
  for (const LogLine& line : log) {
    count += line == Log(10, text) && line.function == function ? 1U : 0U;
  }
  return count;
}

inline unsigned int StartTraces(const std::vector<LogLine>& log, const std::string& function) {
  return TracesOf(log, "function start!", function);
}

inline unsigned int EndTraces(const std::vector<LogLine>& log, const std::string& function) {
  return TracesOf(log, "function end!", function);
}

inline bool Contains(const std::vector<LogLine>& log, const LogLine& wanted) {
  for (const LogLine& line : log) {
    if (line == wanted) return true;
  }
  return false;
}

// The first `count` lines.
inline std::vector<LogLine> Head(const std::vector<LogLine>& log, std::size_t count) {
  return {log.begin(), log.begin() + static_cast<std::ptrdiff_t>(std::min(count, log.size()))};
}

// How often both derived counts were computed again; -1 when only one was.
inline int Derivations(const std::vector<LogLine>& log) {
  int lan = 0;
  int data_uni = 0;
  for (const LogLine& line : log) {
    if (line.level != 6) continue;
    lan += line.text.rfind("all_lan_num:", 0) == 0 ? 1 : 0;
    data_uni += line.text.rfind("data_uni_total_num:", 0) == 0 ? 1 : 0;
  }
  return lan == data_uni ? lan : -1;
}

#endif  // TESTS_ONU_ABILITY_COMMON_TABLE_PROFILE_EXPECTATIONS_H
