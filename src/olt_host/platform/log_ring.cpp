#include "platform/log_ring.h"

#include <algorithm>
#include <utility>

namespace olt_host {

namespace {

bool Repeats(const LogLine& line, const LogLine& before) {
  return line.level == before.level && line.module_id == before.module_id &&
         line.text == before.text;
}

// A character of UTF-8 is not cut through.
void Cut(std::string& text) {
  if (text.size() <= LogRing::kTextBytes) {
    return;
  }
  std::size_t end = LogRing::kTextBytes - 3;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
    --end;
  }
  text.resize(end);
  text += "...";
}

}  // namespace

void LogRing::Add(LogLine line) {
  Cut(line.text);
  const std::lock_guard lock(_mutex);
  if (!_lines.empty() && Repeats(line, _lines.back())) {
    _lines.back().when = line.when;
    _lines.back().times += line.times;
    return;
  }
  if (_lines.size() == kLines) {
    _lines.pop_front();
  }
  _lines.push_back(std::move(line));
}

std::vector<LogLine> LogRing::Newest(std::size_t count) const {
  const std::lock_guard lock(_mutex);
  const auto taken = static_cast<std::ptrdiff_t>(std::min(count, _lines.size()));
  return {_lines.end() - taken, _lines.end()};
}

}  // namespace olt_host
