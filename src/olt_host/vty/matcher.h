// Finds the command that a line of words means.
//
// All commands of a node are followed at once, word by word. A word that is a
// keyword's whole text is that keyword; else it is whatever values admit it;
// else it abbreviates the one keyword that begins with it. A word that could
// abbreviate two different keywords is ambiguous there and then, whatever
// follows it: such a line never runs anything.
#ifndef OLT_HOST_VTY_MATCHER_H
#define OLT_HOST_VTY_MATCHER_H

#include <cstddef>
#include <string>
#include <vector>

#include "vty.h"
#include "vty/grammar.h"
#include "vty/lexer.h"

namespace olt_host {

struct Command {
  cmd_element* element = nullptr;
  Grammar grammar;
};

enum class MatchOutcome {
  kMatched,
  kUnknown,     // no token here admits the word
  kIncomplete,  // the line ends too early
  kAmbiguous,   // the word, or the whole line, means several things
  kNotANumber,  // only a number can stand here
  kOutOfRange,  // a number, but not one that can stand here
  kTooMany,     // the command ended before this word
};

struct Match {
  MatchOutcome outcome = MatchOutcome::kUnknown;
  // Of kMatched: the command and its arguments. Keywords in brackets stand in
  // full, however they were typed; everything else as it was typed.
  const Command* command = nullptr;
  std::vector<std::string> arguments;
  bool ends_in_keyword = false;  // whether the last word was taken for a keyword
  // Otherwise: the word that does not fit, or the number of words when the end
  // of the line is what does not fit; and what was expected there (for
  // kAmbiguous: what the word may mean), without repetitions.
  std::size_t word = 0;
  std::vector<std::string> expected;
};

// Whether a value may be this word; never true of a keyword.
bool Admits(const Token& token, const Word& word);
// Whether the word is a keyword or its beginning; never true of a quoted word.
bool Abbreviates(const Word& word, const Token& token);

Match MatchWords(const std::vector<Command>& commands, const std::vector<Word>& words);

// The tokens that may stand behind `words`, each text and help line once; none
// when the words themselves do not fit. `may_end` (may be null): whether the line
// may end there.
std::vector<Token> TokensBehind(const std::vector<Command>& commands,
                                const std::vector<Word>& words, bool* may_end);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_MATCHER_H
