#include <algorithm>

#include "recognition/fit_index.h"

namespace olt_host {

namespace {

constexpr std::size_t kWordBits = 64;

template <typename Take>
void ForEachPosition(const std::vector<std::uint64_t>& bits, const Take& take) {
  for (std::size_t word = 0; word < bits.size(); ++word) {
    for (std::uint64_t rest = bits[word]; rest != 0; rest &= rest - 1) {
      take(word * kWordBits + static_cast<std::size_t>(__builtin_ctzll(rest)));
    }
  }
}

}  // namespace

std::optional<FitIndex::Nearest> FitIndex::NearestTo(const OnuAbilityProfile& report) {
  if (_patterns.empty()) return std::nullopt;
  std::vector<Nearest> standings(_patterns.size());
  for (const auto& [code, value] : report._common_ability) {
    Column& column = ColumnOf(code);
    if (!column.is_compared) continue;
    Reported& reported = ReportedIn(column, code, value);
    for (std::size_t held = 0; held < column.held.size(); ++held) {
      if (FitsHeld(column, reported, held)) continue;
      ForEachPosition(column.held[held].patterns, [&standings, &code = code](std::size_t i) {
        if (standings[i].against++ == 0) standings[i].first_code = code;
      });
    }
  }
  const auto nearest = std::min_element(
      standings.rbegin(), standings.rend(),
      [](const Nearest& one, const Nearest& other) { return one.against < other.against; });
  nearest->position = static_cast<std::size_t>(standings.rend() - nearest) - 1;
  return *nearest;
}

}  // namespace olt_host
