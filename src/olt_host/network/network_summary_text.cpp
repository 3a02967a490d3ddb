#include "network/network_summary_text.h"

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <vector>

#include "confirmation/summary_writer.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

constexpr std::size_t kShown = 10;
constexpr std::size_t kShownKeys = 8;
constexpr const char* kIndent = "          ";

// The entries of a map, those of which `size` is largest first; of the same size in the
// order of the map.
template <typename Map, typename Size>
std::vector<typename Map::const_iterator> LargestFirst(const Map& map, const Size& size) {
  std::vector<typename Map::const_iterator> entries;
  for (auto entry = map.begin(); entry != map.end(); ++entry) {
    if (size(entry->second) > 0) entries.push_back(entry);
  }
  std::stable_sort(entries.begin(), entries.end(), [&size](const auto& one, const auto& other) {
    return size(one->second) > size(other->second);
  });
  return entries;
}

std::string NameOf(const OnuOfOlt& onu) {
  return std::to_string(onu.place) + "/" + std::to_string(onu.onu) + " of " + onu.olt;
}

std::string Named(std::uint32_t key, const std::string& name) {
  return std::to_string(key) + (name.empty() ? "" : " " + name);
}

void WriteMore(std::ostream& out, std::uint64_t hidden, const char* what) {
  if (hidden > 0) out << kIndent << "... and " << hidden << " more " << what << "\n";
}

void WriteUnrecognised(std::ostream& out, const NetworkSummary& summary) {
  const auto groups =
      LargestFirst(summary.unrecognised, [](const UnrecognisedGroup& group) { return group.onus; });
  if (groups.empty()) return;
  out << "\nNot recognised, by the profile that is nearest and what decides against it\n";
  for (std::size_t i = 0; i < std::min(groups.size(), kShown); ++i) {
    const auto& [key, group] = *groups[i];
    out << std::setw(8) << group.onus << "  "
        << (key.nearest.key == 0 ? "a profile without a key"
                                 : Named(key.nearest.key, group.type_name))
        << "\n";
    out << WrapWords(kIndent, group.ability + " (" + std::to_string(key.code) + ") is " +
                                  group.held + " there, and " + group.reported + " at ONU " +
                                  NameOf(group.example));
  }
  WriteMore(out, groups.size() - std::min(groups.size(), kShown), "such groups, see --json");
}

void WriteOlts(std::ostream& out, const NetworkSummary& summary) {
  const auto olts = LargestFirst(
      summary.olts, [](const OltCounts& olt) { return olt.not_recognised + olt.not_as_expected; });
  if (olts.empty()) return;
  out << "\nOLTs with most ONUs not recognised or not as expected\n"
      << "    ONUs  unknown    wrong  OLT\n";
  for (std::size_t i = 0; i < std::min(olts.size(), kShown); ++i) {
    const auto& [name, olt] = *olts[i];
    std::ostringstream row;
    row << std::setw(8) << olt.onus << std::setw(9) << olt.not_recognised << std::setw(9)
        << olt.not_as_expected;
    const bool fits = DisplayWidth(row.str()) + 2 + DisplayWidth(name) <= kLineColumns;
    out << row.str() << (fits ? "  " : std::string("\n") + kIndent) << name << "\n";
  }
  WriteMore(out, olts.size() - std::min(olts.size(), kShown), "OLTs with some, see --json");
}

void WriteFailures(std::ostream& out, const NetworkSummary& summary) {
  if (summary.failures.empty()) return;
  out << "\nNot as expected\n";
  for (const FailedExpectation& failure : summary.failures) {
    out << WrapWords("  ", "ONU " + NameOf(failure.onu) + " " + failure.what);
  }
  WriteMore(out, summary.counts.expectation_failed - summary.failures.size(),
            "ONUs; --csv has them all");
}

void WriteProfiles(std::ostream& out, const NetworkSummary& summary) {
  if (summary.profiles.empty()) return;
  std::size_t never = 0;
  std::string keys;
  for (const auto& [name, profile] : summary.profiles) {
    if (profile.wins > 0 || ++never > kShownKeys) continue;
    keys += (keys.empty() ? "" : ", ") + Named(name.key, profile.type_name);
  }
  if (never > kShownKeys) keys += ", ...";
  out << "\n";
  out << WrapWords("", std::to_string(summary.profiles.size() - never) + " of " +
                           std::to_string(summary.profiles.size()) + " match profiles took ONUs" +
                           (never > 0 ? ", " + std::to_string(never) + " never did: " + keys : ""));
}

}  // namespace

std::string NetworkSummaryText(const NetworkSummary& summary) {
  std::ostringstream out;
  WriteSummary(out, summary.counts);
  out << "  " << std::left << std::setw(34) << "OLTs" << std::right << std::setw(8)
      << summary.olts.size() << "\n";
  out << summary.refused.Text();
  WriteUnrecognised(out, summary);
  WriteOlts(out, summary);
  WriteFailures(out, summary);
  WriteProfiles(out, summary);
  if (!summary.unrecognised.empty() || !summary.failures.empty()) {
    out << "\nWhy an ONU is what it is:\n"
           "  olt_host explain CATALOGUE REPORTS --olt OLT --onu PLACE/ONU\n";
  }
  return out.str();
}

}  // namespace olt_host
