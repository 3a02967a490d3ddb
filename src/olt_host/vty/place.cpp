#include "vty/place.h"

#include <algorithm>

#include "text/columns.h"

namespace olt_host {
namespace {

constexpr const char* kCut = "...";
constexpr std::size_t kCutWidth = 3;
constexpr std::size_t kAhead = 20;  // shown behind the place when a line is cut

}  // namespace

std::string LineWithCaret(const std::string& before, const std::string& line, std::size_t column) {
  const std::size_t width = kScreenColumns - std::min(kScreenColumns / 2, DisplayWidth(before));
  std::size_t start = 0;
  std::size_t end = line.size();
  std::string head = before;
  std::string tail;
  if (line.size() >= width) {
    end = std::min(line.size(), column + kAhead);
    if (line.size() - end <= kCutWidth) end = line.size();  // no longer than what marks a cut
    const std::size_t most = width - kAhead - 2 * kCutWidth;
    start = column > most ? column - most : 0;
    while (start < column && !StartsCharacter(line[start])) ++start;
    while (end < line.size() && !StartsCharacter(line[end])) ++end;
    if (start > 0) head += kCut;
    if (end < line.size()) tail = kCut;
  }
  return head + Printable(line.substr(start, end - start)) + tail + "\r\n" +
         CaretUnder(head, line.substr(start), column - start);
}

std::string CaretUnder(const std::string& before, const std::string& line, std::size_t column) {
  const std::size_t behind = column - std::min(column, line.size());
  return std::string(DisplayWidth(before) + DisplayWidth(line.substr(0, column)) + behind, ' ') +
         "^\r\n";
}

}  // namespace olt_host
