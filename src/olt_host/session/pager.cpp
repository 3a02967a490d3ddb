#include "session/pager.h"

#include <algorithm>

#include "session/editor_keys.h"
#include "text/columns.h"

namespace olt_host {
namespace {

constexpr const char* kPrompt = "--More-- ";
constexpr const char* kPromptErased = "\r         \r";
// Output that is not paged goes in pieces of about this size, between which Ctrl-C
// is looked for.
constexpr std::size_t kPiece = 4096;

// The place behind the row of the screen that begins at `at`: behind the line break,
// or where the line wraps.
std::size_t RowEnd(const std::string& text, std::size_t at, std::size_t columns) {
  std::size_t width = 0;
  for (; at < text.size(); ++at) {
    if (text[at] == '\n') return at + 1;
    if (text[at] == '\r' || !StartsCharacter(text[at])) continue;
    if (width == columns) return at;
    ++width;
  }
  return at;
}

bool IsLonger(const std::string& text, std::size_t rows, std::size_t columns) {
  std::size_t at = 0;
  for (; rows > 0 && at < text.size(); --rows) at = RowEnd(text, at, columns);
  return at < text.size();
}

}  // namespace

Pager::Outcome Pager::Show(const std::string& text, std::size_t rows, std::size_t columns) {
  columns = std::max<std::size_t>(columns, 1);
  const std::size_t page = rows > 1 ? rows - 1 : 1;
  if (rows == 0 || !IsLonger(text, page, columns)) return ShowAll(text);
  std::size_t at = 0;
  std::size_t left = page;
  while (true) {
    const std::size_t begin = at;
    for (; left > 0 && at < text.size(); --left) at = RowEnd(text, at, columns);
    if (!_channel.Write(text.data() + begin, at - begin)) return Outcome::kClosed;
    if (at == text.size()) return Outcome::kShown;
    const Outcome answer = Ask(page, left);
    if (answer != Outcome::kShown) return answer;
  }
}

Pager::Outcome Pager::Ask(std::size_t page, std::size_t& rows) {
  char32_t key = 0;
  if (!Write(kPrompt)) return Outcome::kClosed;
  const KeyReader::Result result = _keys.Read(key);
  // All of an escape sequence is one key.
  if (result == KeyReader::Result::kKey && key == KeyReader::kEscape) {
    std::u32string meant;
    if (!ReadSequence(_keys, meant)) return Outcome::kClosed;
    if (!meant.empty()) key = meant.front();
  }
  if (result == KeyReader::Result::kClosed || !Write(kPromptErased)) return Outcome::kClosed;
  if (result == KeyReader::Result::kTimedOut) return Outcome::kTimedOut;
  if (key == U'q' || key == U'Q' || key == KeyReader::kInterrupt) return Outcome::kStopped;
  rows = key == KeyReader::kEnter || key == kNextLine ? 1 : page;
  return Outcome::kShown;
}

Pager::Outcome Pager::ShowAll(const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    // What is short is shown; Ctrl-C is then for the line behind it.
    if (at > 0 && _channel.TakeInterrupt())
      return Write("^C\r\n") ? Outcome::kStopped : Outcome::kClosed;
    std::size_t length = std::min(kPiece, text.size() - at);
    const std::size_t line_end = text.rfind('\n', at + length - 1);
    if (line_end != std::string::npos && line_end >= at) length = line_end + 1 - at;
    if (!_channel.Write(text.data() + at, length)) return Outcome::kClosed;
    at += length;
  }
  return Outcome::kShown;
}

}  // namespace olt_host
