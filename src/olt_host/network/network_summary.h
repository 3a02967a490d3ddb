// What became of a whole network: counts that add up, block by block and shard by shard, to
// the same whichever the parts and their order. It grows with the catalogue and with the
// OLTs, never with the ONUs.
#ifndef OLT_HOST_NETWORK_NETWORK_SUMMARY_H
#define OLT_HOST_NETWORK_NETWORK_SUMMARY_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "confirmation/confirmation_result.h"
#include "confirmation/hook_calls.h"
#include "confirmation/match_profile_name.h"
#include "network/refused_lines.h"

namespace olt_host {

// An ONU of a network.
struct OnuOfOlt {
  std::string olt;
  std::uint16_t place = 0;
  std::uint8_t onu = 0;

  bool operator<(const OnuOfOlt& other) const {
    return std::tie(olt, place, onu) < std::tie(other.olt, other.place, other.onu);
  }
};

struct OltCounts {
  std::uint64_t onus = 0;
  std::uint64_t not_recognised = 0;
  std::uint64_t not_as_expected = 0;
};

struct ProfileCount {
  std::string type_name;  // of the key's real profile
  std::uint64_t wins = 0;
};

// Unrecognised ONUs by the match profile that is nearest to them and the first ability that
// decides against it.
struct UnrecognisedKey {
  MatchProfileName nearest;
  std::uint16_t code = 0;

  bool operator<(const UnrecognisedKey& other) const {
    return std::tie(nearest, code) < std::tie(other.nearest, other.code);
  }
};

struct UnrecognisedGroup {
  std::uint64_t onus = 0;
  std::string type_name;  // of the nearest profile
  std::string ability;    // the code's name
  OnuOfOlt example;       // the first by its name
  std::string reported;   // by the example
  std::string held;       // by the profile
};

// An ONU that was not confirmed as expected.
struct FailedExpectation {
  OnuOfOlt onu;
  std::string what;  // "is type 17 by type; expected real type 18"

  bool operator<(const FailedExpectation& other) const {
    return std::tie(onu, what) < std::tie(other.onu, other.what);
  }
};

struct NetworkSummary {
  ConfirmationSummary counts;
  HookCalls hook_calls{};
  std::map<std::pair<std::uint16_t, std::string>, std::uint64_t> types;  // real type and name
  std::map<MatchProfileName, ProfileCount> profiles;
  std::map<std::string, OltCounts> olts;
  std::map<UnrecognisedKey, UnrecognisedGroup> unrecognised;
  std::uint64_t compared_with_nothing = 0;  // unrecognised while there is no match profile
  std::set<FailedExpectation> failures;     // the first few by their names
  RefusedLines refused;

  // One ONU more. `winner`: the match profile that took it; nothing when none did. Type
  // names of profiles are left to whoever knows them all.
  void Count(const std::string& olt, const ConfirmationResult& result,
             const std::optional<MatchProfileName>& winner);
  void CountUnrecognised(const UnrecognisedKey& key, const UnrecognisedGroup& one);
  // What became of other ONUs.
  void Merge(const NetworkSummary& other);
};

// The counts of a document; Parse reads all of them again and throws
// nlohmann::json::exception or std::runtime_error for what is none.
nlohmann::ordered_json ToJson(const NetworkSummary& summary);
NetworkSummary ParseNetworkSummary(const nlohmann::ordered_json& json);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_NETWORK_SUMMARY_H
