#include "session/editor.h"

#include <histedit.h>

#include <algorithm>
#include <array>
#include <cwchar>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "session/columns.h"
#include "session/editor_keys.h"
#include "session/editor_library.h"
#include "session/editor_turn.h"
#include "text/columns.h"

namespace olt_host {
namespace {

constexpr std::size_t kMostUnsent = 32U << 10U;

std::size_t Utf8Size(wchar_t character) {
  if (character < 0x80) return 1;
  if (character < 0x800) return 2;
  return character < 0x10000 ? 3 : 4;
}

std::size_t Columns(const wchar_t* begin, const wchar_t* end) {
  std::size_t columns = 0;
  for (; begin != end; ++begin) columns += static_cast<std::size_t>(std::max(0, wcwidth(*begin)));
  return columns;
}

// Not fewer columns than the library shows the character in: one that is narrow or has no
// width, one that is wide and may leave a column free, one that it spells out.
std::size_t MostColumns(wchar_t character) {
  const int width = wcwidth(character);
  if (width < 0) return std::string_view("\\U+10FFFF").size();
  return width > 1 ? 3 : 1;
}

// Whether what is typed behind `text` belongs to a quoted word or a remark.
bool TakesAnyText(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first != std::string::npos && text[first] == '!') return true;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] == '\\' && quoted) ++i;
  }
  return quoted;
}

// As the library reads the names of keys.
std::string NameOf(char32_t key) {
  std::array<char, 8> name{};
  std::snprintf(name.data(), name.size(), "\\%03o", static_cast<unsigned int>(key));
  return name.data();
}

}  // namespace

// What the library calls. No exception may pass through it.
struct Editor::Callbacks {
  static Editor& Of(EditLine* line) {
    Editor* editor = nullptr;
    el_get(line, EL_CLIENTDATA, &editor);
    return *editor;
  }

  static char* Prompt(EditLine* line) { return Of(line)._prompt.data(); }

  static int NextKey(EditLine* line, wchar_t* key) {
    Editor& editor = Of(line);
    const EditorTurn::Pause pause;
    try {
      char32_t next = 0;
      if (!editor.NextKey(next)) return 0;
      *key = static_cast<wchar_t>(next);
      return 1;
    } catch (const std::exception&) {
      editor._outcome = Outcome::kEnd;
      return 0;
    }
  }

  template <unsigned char (Editor::*function)()>
  static unsigned char Call(EditLine* line, wint_t) {
    try {
      return (Of(line).*function)();
    } catch (const std::exception&) {
      return CC_ERROR;
    }
  }

  static unsigned char Interrupt(EditLine* line, wint_t) {
    Editor& editor = Of(line);
    editor._outcome = Outcome::kInterrupted;
    std::fputs("^C", editor._library->terminal.stream());
    editor.LeaveLine();
    return CC_EOF;
  }

  static unsigned char DeleteOrEnd(EditLine* line, wint_t) {
    const LineInfoW* const info = el_wline(line);
    if (info->buffer == info->lastchar) {
      Of(line)._outcome = Outcome::kEnd;
      return CC_EOF;
    }
    if (info->cursor == info->lastchar) return CC_ERROR;
    el_cursor(line, 1);
    el_deletestr(line, 1);
    return CC_REFRESH;
  }
};

Editor::Editor(Channel& channel, KeyReader& keys, std::size_t line_bytes,
               const std::deque<std::string>& remembered, Helpers helpers)
    : _channel(channel),
      _keys(keys),
      _line_bytes(line_bytes),
      _helpers(std::move(helpers)),
      _history(remembered),
      _library(std::make_unique<Library>()) {
  const EditorTurn turn;
  const EditorTerminal& terminal = _library->terminal;
  std::FILE* const stream = terminal.stream();
  const int descriptor = terminal.descriptor();
  _library->line =
      el_init_fd("olt_host", stream, stream, stream, descriptor, descriptor, descriptor);
  EditLine* const line = _library->line;
  if (line == nullptr) throw std::runtime_error("cannot start the line editor");
  el_set(line, EL_CLIENTDATA, this);
  el_set(line, EL_GETCFN, Callbacks::NextKey);
  el_set(line, EL_PROMPT, Callbacks::Prompt);
  el_set(line, EL_EDITOR, "emacs");
  // The wide form: the other one copies the names and never frees them.
  el_wset(line, EL_ADDFN, L"host-complete", L"", Callbacks::Call<&Editor::Complete>);
  el_wset(line, EL_ADDFN, L"host-help", L"", Callbacks::Call<&Editor::Help>);
  el_wset(line, EL_ADDFN, L"host-previous-line", L"", Callbacks::Call<&Editor::PreviousLine>);
  el_wset(line, EL_ADDFN, L"host-next-line", L"", Callbacks::Call<&Editor::NextLine>);
  el_wset(line, EL_ADDFN, L"host-search", L"", Callbacks::Call<&Editor::StartSearch>);
  el_wset(line, EL_ADDFN, L"host-search-step", L"", Callbacks::Call<&Editor::StepSearch>);
  el_wset(line, EL_ADDFN, L"host-insert", L"", Callbacks::Call<&Editor::Insert>);
  el_wset(line, EL_ADDFN, L"host-interrupt", L"", Callbacks::Interrupt);
  el_wset(line, EL_ADDFN, L"host-delete-or-end", L"", Callbacks::DeleteOrEnd);
  for (const KeyBinding& binding : KeyBindings()) {
    el_set(line, EL_BIND, NameOf(binding.key).c_str(), binding.function, nullptr);
  }
}

Editor::~Editor() = default;

Editor::Outcome Editor::Read(const std::string& prompt, std::string& line) {
  _prompt = prompt;
  _search.active = false;
  _recalled = _history.size();
  _pending.clear();
  _outcome = Outcome::kLine;
  _full = false;
  _too_long = false;
  _library->terminal.SetWindow(_channel.window());
  {
    const EditorTurn turn;
    el_resize(_library->line);
    int length = 0;
    const char* const text = el_gets(_library->line, &length);
    if (text != nullptr && length > 0) {
      line.assign(text, static_cast<std::size_t>(length));
    } else if (_outcome == Outcome::kLine) {
      _outcome = Outcome::kEnd;
    }
  }
  if (!SendOutput()) return Outcome::kEnd;
  if (_outcome != Outcome::kLine) return _outcome;
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
  if (line.empty()) return Outcome::kLine;
  return _too_long || line.size() > _line_bytes ? Outcome::kTooLong : Outcome::kLine;
}

// A key for the library. Not on its turn.
bool Editor::NextKey(char32_t& key) {
  while (true) {
    if (!_pending.empty()) {
      key = _pending.front();
      _pending.pop_front();
      return true;
    }
    if (!ReadKey(key)) return false;
    if (_search.active) {
      _search.key = key;
      _pending.push_back(kSearchStep);
    }
    if (key == KeyReader::kEscape) {
      if (!TakeSequence()) return false;
    } else if (!_search.active && !Swallows(key)) {
      if (!IsText(key) || !OutgrowsWindow()) return true;
      _inserted = key;
      _pending.push_back(kInsert);
    }
  }
}

// What is on the way to the screen is sent before the client is waited for.
bool Editor::ReadKey(char32_t& key) {
  if (_library->terminal.output_size() > kMostUnsent && !SendOutput()) return false;
  KeyReader::Result result = _keys.Read(key, Channel::Clock::now());
  if (result == KeyReader::Result::kTimedOut) {
    if (!SendOutput()) return false;
    result = _keys.Read(key);
  }
  if (result == KeyReader::Result::kTimedOut) _outcome = Outcome::kTimedOut;
  if (result == KeyReader::Result::kClosed) _outcome = Outcome::kEnd;
  return result == KeyReader::Result::kKey;
}

// Behind ESC: makes pending what was meant. False at the end of the input.
bool Editor::TakeSequence() {
  std::u32string keys;
  _full = false;
  if (!SendOutput()) return false;
  if (!ReadSequence(_keys, keys)) {
    _outcome = Outcome::kEnd;
    return false;
  }
  _pending.insert(_pending.end(), keys.begin(), keys.end());
  return true;
}

// Whether there is no room for a character that would stand in the line.
bool Editor::Swallows(char32_t key) {
  const LineInfoW* const info = el_wline(_library->line);
  if (info->buffer == info->lastchar) _too_long = false;
  if (key < 0x20 || key == 0x7F) {
    _full = false;
    return false;
  }
  if (!_full) {
    std::size_t bytes = Utf8Size(static_cast<wchar_t>(key));
    for (const wchar_t* at = info->buffer; at != info->lastchar; ++at) bytes += Utf8Size(*at);
    _full = bytes > _line_bytes;
    if (!_full) return false;
  }
  if (!_too_long) std::fputs("\a", _library->terminal.stream());
  _too_long = true;
  return true;
}

// Whether the line may be larger than the window, or become so with another character. The
// library loses the row of the cursor there, and a character that it appends in its quick way
// can then fall outside of its memory; it is inserted instead, which shows the line anew.
bool Editor::OutgrowsWindow() const {
  const EditorTerminal& terminal = _library->terminal;
  const LineInfoW* const info = el_wline(_library->line);
  std::size_t columns = MostColumns(-1) * (_prompt.size() + 1);
  for (const wchar_t* at = info->buffer; at != info->lastchar; ++at) columns += MostColumns(*at);
  return columns >= std::size_t{terminal.rows() - 1} * terminal.columns();
}

unsigned char Editor::Insert() {
  const std::array<wchar_t, 2> text = {static_cast<wchar_t>(_inserted), L'\0'};
  return el_winsertstr(_library->line, text.data()) == 0 ? CC_REFRESH : CC_ERROR;
}

bool Editor::SendOutput() {
  const std::string output = _library->terminal.TakeOutput();
  return output.empty() || _channel.Write(output.data(), output.size());
}

unsigned char Editor::Complete() {
  const LineInfo* const info = el_line(_library->line);
  const std::string text(info->buffer, info->cursor);
  Completion completion;
  {
    const EditorTurn::Pause pause;
    completion = _helpers.complete(text);
  }
  if (!completion.insert.empty()) {
    if (Typed().size() + completion.insert.size() > _line_bytes) return CC_ERROR;
    const bool inserted = el_insertstr(_library->line, completion.insert.c_str()) == 0;
    return inserted ? CC_REFRESH : CC_ERROR;
  }
  if (completion.candidates.empty()) return CC_ERROR;
  return ShowUnderLine(InColumns(completion.candidates, _library->terminal.columns()));
}

unsigned char Editor::Help() {
  const LineInfo* const info = el_line(_library->line);
  const std::string text(info->buffer, info->cursor);
  const std::string line = Typed();
  if (TakesAnyText(text)) return el_insertstr(_library->line, "?") == 0 ? CC_REFRESH : CC_ERROR;
  std::string help;
  {
    const EditorTurn::Pause pause;
    help = _helpers.help(text, line);
  }
  return help.empty() ? static_cast<unsigned char>(CC_ERROR) : ShowUnderLine(help);
}

unsigned char Editor::ShowUnderLine(const std::string& lines) {
  LeaveLine();
  Outcome outcome = Outcome::kEnd;
  {
    const EditorTurn::Pause pause;
    if (SendOutput()) outcome = _helpers.show(lines);
  }
  if (outcome != Outcome::kLine) {
    _outcome = outcome;
    return CC_EOF;
  }
  el_set(_library->line, EL_REFRESH);
  return CC_NORM;
}

// Moves the cursor to the start of the row behind the line, which may have wrapped.
// The library does not learn of it.
void Editor::LeaveLine() {
  const LineInfoW* const info = el_wline(_library->line);
  const std::size_t width = _library->terminal.columns();
  const std::size_t before = DisplayWidth(_prompt) + Columns(info->buffer, info->cursor);
  const std::size_t all = before + Columns(info->cursor, info->lastchar);
  for (std::size_t row = before / width; row <= all / width; ++row) {
    std::fputs("\n", _library->terminal.stream());
  }
}

}  // namespace olt_host
