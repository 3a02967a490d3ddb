#include "catalogue/nearest_name.h"

#include <algorithm>
#include <cctype>

namespace olt_host {

namespace {

char Lower(char character) {
  return static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
}

// Edit distance with swaps of neighbouring characters, by rows.
std::size_t Distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> before_last(b.size() + 1);
  std::vector<std::size_t> last(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) {
    row[j] = j;
  }
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before_last.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool same = Lower(a[i - 1]) == Lower(b[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && Lower(a[i - 1]) == Lower(b[j - 2]) &&
          Lower(a[i - 2]) == Lower(b[j - 1])) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
    }
  }
  return row[b.size()];
}

}  // namespace

std::string NearestName(const std::string& name, const std::vector<std::string>& known) {
  constexpr std::size_t kLongestSensible = 64;
  if (name.size() > kLongestSensible) {
    return "";
  }
  std::string nearest;
  std::size_t best = (name.size() + 2) / 3 + 1;  // a slip for every three letters
  for (const std::string& candidate : known) {
    const std::size_t distance = Distance(name, candidate);
    if (distance < best && distance < candidate.size()) {
      best = distance;
      nearest = candidate;
    }
  }
  return nearest;
}

std::string ExpectedName(const std::string& name, const std::vector<std::string>& known) {
  const std::string nearest = NearestName(name, known);
  if (!nearest.empty()) {
    return "\"" + nearest + "\"";
  }
  std::string all = "one of ";
  for (const std::string& candidate : known) {
    all += (&candidate == &known.front() ? "" : ", ") + candidate;
  }
  return all;
}

}  // namespace olt_host
