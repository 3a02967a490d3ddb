#include "session/escape_sequences.h"

#include <algorithm>
#include <array>

namespace olt_host {
namespace {

// No sequence that means something is longer; the rest of a longer one is dropped.
constexpr std::size_t kLongest = 8;

struct Meaning {
  const char* sequence;
  const char32_t* keys;
};

constexpr std::array<Meaning, 25> kMeanings = {{
    {"[A", U"\x10"},
    {"OA", U"\x10"},
    {"[B", U"\x0E"},
    {"OB", U"\x0E"},
    {"[C", U"\x06"},
    {"OC", U"\x06"},
    {"[D", U"\x02"},
    {"OD", U"\x02"},
    {"[H", U"\x01"},
    {"OH", U"\x01"},
    {"[1~", U"\x01"},
    {"[7~", U"\x01"},
    {"[F", U"\x05"},
    {"OF", U"\x05"},
    {"[4~", U"\x05"},
    {"[8~", U"\x05"},
    {"[3~", U"\x1F"},
    {"[1;5C",
     U"\x1B"
     U"f"},
    {"[1;5D",
     U"\x1B"
     U"b"},
    {"[5C",
     U"\x1B"
     U"f"},
    {"[5D",
     U"\x1B"
     U"b"},
    {"OM", U"\r"},
    {"Oc",
     U"\x1B"
     U"f"},
    {"Od",
     U"\x1B"
     U"b"},
    {"[3;5~",
     U"\x1B"
     U"d"},
}};

}  // namespace

bool EscapeSequence::Add(char32_t character) {
  const bool is_first = _text.empty();
  const bool is_last = character >= 0x40;
  if (_text.size() < kLongest || is_last) {
    _text += character < 0x80 ? static_cast<char>(character) : '?';
  }
  return !is_first && is_last;
}

std::u32string EscapeSequence::keys() const {
  const auto* const found =
      std::find_if(kMeanings.begin(), kMeanings.end(),
                   [this](const Meaning& meaning) { return _text == meaning.sequence; });
  return found == kMeanings.end() ? std::u32string() : std::u32string(found->keys);
}

}  // namespace olt_host
