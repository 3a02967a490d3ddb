#include "session/editor_keys.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cwctype>

namespace olt_host {
namespace {

constexpr char32_t kFirstCode = 0x80;
constexpr char32_t kFirstBeyond = 0x100;
// No sequence that means something is longer; the rest of a longer one is dropped.
constexpr std::size_t kLongest = 8;
// A sequence of a terminal arrives at once; an ESC that somebody types does not.
constexpr std::chrono::milliseconds kSequenceArrives{200};

constexpr char32_t Control(char letter) { return static_cast<char32_t>(letter) & 0x1FU; }

constexpr std::array<KeyBinding, 30> kBindings = {{
    {Control('A'), "ed-move-to-beg"},
    {Control('B'), "ed-prev-char"},
    {Control('C'), "host-interrupt"},
    {Control('D'), "host-delete-or-end"},
    {Control('E'), "ed-move-to-end"},
    {Control('F'), "ed-next-char"},
    {Control('H'), "em-delete-prev-char"},
    {Control('I'), "host-complete"},
    {Control('K'), "ed-kill-line"},
    {Control('L'), "ed-clear-screen"},
    {Control('M'), "ed-newline"},
    {kNextLine, "host-next-line"},
    {Control('P'), "host-previous-line"},
    {Control('R'), "host-search"},
    {Control('T'), "ed-transpose-chars"},
    {Control('U'), "em-kill-line"},
    {Control('W'), "ed-delete-prev-word"},
    {Control('Y'), "em-yank"},
    {U'?', "host-help"},
    {0x7F, "em-delete-prev-char"},
    {kDeleteNext, "ed-delete-next-char"},
    {kNextWord, "em-next-word"},
    {kPreviousWord, "ed-prev-word"},
    {kDeleteNextWord, "em-delete-next-word"},
    {kDeletePreviousWord, "ed-delete-prev-word"},
    {kUpperCase, "em-upper-case"},
    {kLowerCase, "em-lower-case"},
    {kCapital, "em-capitol-case"},
    {kSearchStep, "host-search-step"},
    {kInsert, "host-insert"},
}};

struct Meaning {
  const char* sequence;
  char32_t key;
};

constexpr std::array<Meaning, 39> kMeanings = {{
    {"[A", Control('P')},
    {"OA", Control('P')},
    {"[B", kNextLine},
    {"OB", kNextLine},
    {"[C", Control('F')},
    {"OC", Control('F')},
    {"[D", Control('B')},
    {"OD", Control('B')},
    {"[H", Control('A')},
    {"OH", Control('A')},
    {"[1~", Control('A')},
    {"[7~", Control('A')},
    {"[F", Control('E')},
    {"OF", Control('E')},
    {"[4~", Control('E')},
    {"[8~", Control('E')},
    {"OM", Control('M')},
    {"[3~", kDeleteNext},
    {"[1;5C", kNextWord},
    {"[1;3C", kNextWord},
    {"[5C", kNextWord},
    {"Oc", kNextWord},
    {"f", kNextWord},
    {"F", kNextWord},
    {"[1;5D", kPreviousWord},
    {"[1;3D", kPreviousWord},
    {"[5D", kPreviousWord},
    {"Od", kPreviousWord},
    {"b", kPreviousWord},
    {"B", kPreviousWord},
    {"[3;5~", kDeleteNextWord},
    {"d", kDeleteNextWord},
    {"D", kDeleteNextWord},
    {"\x7F", kDeletePreviousWord},
    {"u", kUpperCase},
    {"U", kUpperCase},
    {"l", kLowerCase},
    {"L", kLowerCase},
    {"c", kCapital},
}};

}  // namespace

bool IsText(char32_t key) {
  if (key < 0x7F) return key >= 0x20 && key != U'?';
  return key >= kFirstBeyond || (key >= 0xA0 && std::iswprint(static_cast<wint_t>(key)) != 0);
}

std::vector<KeyBinding> KeyBindings() {
  std::vector<KeyBinding> bindings;
  for (char32_t key = 1; key < kFirstBeyond; ++key) {
    if (!IsText(key)) bindings.push_back({key, "ed-unassigned"});
  }
  bindings.insert(bindings.end(), kBindings.begin(), kBindings.end());
  return bindings;
}

bool EscapeSequence::Add(char32_t character) {
  const bool is_first = _text.empty();
  const bool is_last = character >= 0x40;
  if (_text.size() < kLongest || is_last) {
    _text += character < kFirstCode ? static_cast<char>(character) : ' ';
  }
  return is_first ? character != U'[' && character != U'O' : is_last;
}

std::u32string EscapeSequence::keys() const {
  const auto* const found =
      std::find_if(kMeanings.begin(), kMeanings.end(),
                   [this](const Meaning& meaning) { return _text == meaning.sequence; });
  return found == kMeanings.end() ? std::u32string() : std::u32string(1, found->key);
}

bool ReadSequence(KeyReader& reader, std::u32string& keys) {
  EscapeSequence sequence;
  while (true) {
    char32_t key = 0;
    const KeyReader::Result result = reader.Read(key, Channel::Clock::now() + kSequenceArrives);
    if (result == KeyReader::Result::kClosed) return false;
    if (result == KeyReader::Result::kTimedOut) return true;
    if (key == KeyReader::kEscape) {
      sequence = EscapeSequence();
    } else if (key < 0x20) {
      keys += key;
      return true;
    } else if (sequence.Add(key)) {
      keys += sequence.keys();
      return true;
    }
  }
}

}  // namespace olt_host
