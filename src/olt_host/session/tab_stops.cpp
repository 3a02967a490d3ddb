#include "session/tab_stops.h"

#include <algorithm>

#include "text/columns.h"

namespace olt_host {
namespace {

constexpr std::size_t kUsualDistance = 8;
constexpr std::size_t kLargestDistance = 16;

// A line without its line break.
std::string ExpandLine(const std::string& line, std::size_t distance) {
  std::string expanded;
  std::size_t width = 0;
  for (const char c : line) {
    if (c != '\t') {
      expanded += c;
      width += StartsCharacter(c) ? 1 : 0;
      continue;
    }
    const std::size_t blanks = distance - width % distance;
    expanded.append(blanks, ' ');
    width += blanks;
  }
  expanded.erase(expanded.find_last_not_of(' ') + 1);
  return expanded;
}

// Calls `take` for each line and for the line break behind it.
template <typename Take>
void ForEachLine(const std::string& text, Take take) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    const std::size_t next = std::min(text.find_first_not_of("\r\n", end), text.size());
    take(text.substr(at, end - at), text.substr(end, next - end));
    at = next;
  }
}

bool Fits(const std::string& text, std::size_t columns, std::size_t distance) {
  bool fits = true;
  ForEachLine(text, [&](const std::string& line, const std::string&) {
    fits = fits && (line.find('\t') == std::string::npos ||
                    DisplayWidth(ExpandLine(line, distance)) <= columns);
  });
  return fits;
}

}  // namespace

std::string ExpandTabs(const std::string& text, std::size_t columns) {
  if (text.find('\t') == std::string::npos) return text;
  std::size_t distance = kUsualDistance;
  while (distance < kLargestDistance && !Fits(text, columns, distance)) ++distance;
  if (!Fits(text, columns, distance)) distance = kUsualDistance;
  std::string expanded;
  ForEachLine(text, [&](const std::string& line, const std::string& line_break) {
    expanded += line.find('\t') == std::string::npos ? line : ExpandLine(line, distance);
    expanded += line_break;
  });
  return expanded;
}

}  // namespace olt_host
