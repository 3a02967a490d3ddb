// The place of the cursor in a line that is being typed: what help and
// completion have in common.
#ifndef OLT_HOST_VTY_LINE_POSITION_H
#define OLT_HOST_VTY_LINE_POSITION_H

#include <optional>
#include <string>
#include <vector>

#include "vty/lexer.h"
#include "vty/syntax.h"
#include "vty/value_hints.h"

namespace olt_host {

struct LinePosition {
  // The word whose end the cursor is at; none behind a blank.
  std::optional<Word> typed;
  // What may stand in the place of that word, each text and help line once; empty
  // in a remark, inside quotes and behind words that fit nothing.
  std::vector<Token> tokens;
  bool may_end = false;  // whether the line may end before that word
};

// `text` is the line up to the cursor.
LinePosition FindPosition(unsigned int node, const std::string& text);

// Whether the word, with more typed behind it, may be the token.
bool MayBecome(const std::optional<Word>& typed, const Token& token);

// The known values of the token that the typed word begins, as they are typed:
// quoted where they have to be. Values that the token does not admit are left out.
std::vector<ValueHint> KnownValues(const Token& token, const std::optional<Word>& typed);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_LINE_POSITION_H
