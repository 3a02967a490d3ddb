// The editor's history: the arrow keys, and the search. Of a line that is being typed the
// library's own keeps a thousand characters and shows whatever is in memory for the others; its
// search matches patterns, and a pattern can be made that takes for ever.
#include <algorithm>

#include "session/editor.h"
#include "session/editor_library.h"
#include "text/columns.h"

namespace olt_host {
namespace {

constexpr std::size_t kLongestPattern = 100;
constexpr char32_t kAbort = 0x07;  // ^G
constexpr char32_t kAgain = 0x12;  // ^R
constexpr char32_t kBackspace = 0x08;
constexpr char32_t kDelete = 0x7F;

}  // namespace

unsigned char Editor::PreviousLine() {
  if (_recalled == 0) return CC_ERROR;
  if (_recalled == _history.size()) _typed = Typed();
  ReplaceLine(_history[--_recalled]);
  return CC_REFRESH;
}

unsigned char Editor::NextLine() {
  if (_recalled == _history.size()) return CC_ERROR;
  ++_recalled;
  ReplaceLine(_recalled == _history.size() ? _typed : _history[_recalled]);
  return CC_REFRESH;
}

// Ctrl-R. Until the search ends, every key is a step of it.
unsigned char Editor::StartSearch() {
  _search = Search();
  _search.active = true;
  _search.line = Typed();
  _search.prompt = _prompt;
  _search.place = _history.size();
  _prompt = "(search) \"\": ";
  return CC_REFRESH;
}

unsigned char Editor::StepSearch() {
  const char32_t key = _search.key;
  if (!_search.active) return CC_NORM;
  if (key == KeyReader::kInterrupt || key == kAbort) {
    ReplaceLine(_search.line);
    EndSearch();
  } else if (key == kAgain) {
    FindFrom(_search.place);
  } else if (key == kBackspace || key == kDelete) {
    while (!_search.pattern.empty() && !StartsCharacter(_search.pattern.back())) {
      _search.pattern.pop_back();
    }
    if (!_search.pattern.empty()) _search.pattern.pop_back();
    FindFrom(_history.size());
  } else if (key < 0x20) {
    EndSearch();
    // The key ends the search and then does what it does.
    if (key != KeyReader::kEscape) _pending.push_front(key);
  } else if (_search.pattern.size() < kLongestPattern) {
    _search.pattern += Utf8(key);
    FindFrom(std::min(_search.place + 1, _history.size()));
  }
  return CC_REFRESH;
}

void Editor::EndSearch() {
  _search.active = false;
  _prompt = _search.prompt;
}

// Looks for the pattern in the lines before `place`, and shows the latest that has it.
void Editor::FindFrom(std::size_t place) {
  _search.found = _search.pattern.empty();
  while (!_search.found && place > 0) {
    --place;
    _search.found = _history[place].find(_search.pattern) != std::string::npos;
    if (!_search.found) continue;
    _search.place = place;
    ReplaceLine(_history[place]);
  }
  _prompt =
      std::string(_search.found ? "(search) \"" : "(not found) \"") + _search.pattern + "\": ";
}

std::string Editor::Typed() const {
  const LineInfo* const info = el_line(_library->line);
  return {info->buffer, info->lastchar};
}

void Editor::ReplaceLine(const std::string& text) {
  const LineInfoW* const info = el_wline(_library->line);
  const int length = static_cast<int>(info->lastchar - info->buffer);
  el_cursor(_library->line, length);
  el_deletestr(_library->line, length);
  if (!text.empty()) el_insertstr(_library->line, text.c_str());
}

}  // namespace olt_host
