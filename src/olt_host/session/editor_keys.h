// The keys of the line editor: what its library is told to do for each, and how the
// escape sequences of terminals become such keys.
//
// The library never sees ESC. It sees control characters, and for keys that have
// none the codes below, which no client can send.
#ifndef OLT_HOST_SESSION_EDITOR_KEYS_H
#define OLT_HOST_SESSION_EDITOR_KEYS_H

#include <string>
#include <vector>

#include "session/key_reader.h"

namespace olt_host {

constexpr char32_t kNextLine = 0x0E;  // ^N, and the arrow down
constexpr char32_t kDeleteNext = 0x80;
constexpr char32_t kNextWord = 0x81;
constexpr char32_t kPreviousWord = 0x82;
constexpr char32_t kDeleteNextWord = 0x83;
constexpr char32_t kDeletePreviousWord = 0x84;
constexpr char32_t kUpperCase = 0x85;
constexpr char32_t kLowerCase = 0x86;
constexpr char32_t kCapital = 0x87;
constexpr char32_t kSearchStep = 0x88;
constexpr char32_t kInsert = 0x89;

struct KeyBinding {
  char32_t key;
  const char* function;  // as the library names it, or the editor
};

// Whether the key stands in the line as it is.
bool IsText(char32_t key);

// For every control character and every code above 0x7F that is no text, so that
// nothing of the library's own choice remains: some of that runs commands of the
// library, repeats a key a million times, or matches patterns at great length.
std::vector<KeyBinding> KeyBindings();

// What is sent behind ESC.
class EscapeSequence {
 public:
  // Takes the next character, no control character; true when that ended it.
  bool Add(char32_t character);
  // The keys that it means; empty when it means nothing here.
  std::u32string keys() const;

 private:
  std::string _text;
};

// Reads what came behind ESC and adds to `keys` what it means: nothing when it means
// nothing here or is only a part. A control character ends it and is a key of its own.
// False when the client is gone.
bool ReadSequence(KeyReader& reader, std::u32string& keys);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_KEYS_H
