#include <algorithm>

#include "recognition/fit_index.h"

namespace olt_host {

std::optional<FitIndex::Nearest> FitIndex::NearestTo(const OnuAbilityProfile& report) {
  if (_patterns.empty()) return std::nullopt;
  std::vector<Nearest> standings(_patterns.size());
  for (const auto& [code, value] : report._common_ability) {
    Column& column = ColumnOf(code);
    if (!column.is_compared) continue;
    Reported& reported = ReportedIn(column, code, value);
    for (std::size_t held = 0; held < column.held.size(); ++held) {
      if (FitsHeld(column, reported, held)) continue;
      column.held[held].patterns.ForEach([&standings, &code = code](std::size_t i) {
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
