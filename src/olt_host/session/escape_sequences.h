// The keys that terminals send as escape sequences, as the control characters that
// mean the same to the line editor.
#ifndef OLT_HOST_SESSION_ESCAPE_SEQUENCES_H
#define OLT_HOST_SESSION_ESCAPE_SEQUENCES_H

#include <string>

namespace olt_host {

constexpr char32_t kEscape = 0x1B;
constexpr char32_t kDeleteKey = 0x1F;  // no key of its own among the control characters

// A sequence behind ESC: "[" or "O", what stands between, a last character.
class EscapeSequence {
 public:
  // Takes the next character, no control character; true when the sequence is
  // complete.
  bool Add(char32_t character);
  // The keys that it means; empty when it means nothing here.
  std::u32string keys() const;

 private:
  std::string _text;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_ESCAPE_SEQUENCES_H
