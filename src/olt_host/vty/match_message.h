// Why a line means no command, in the words that operators read.
#ifndef OLT_HOST_VTY_MATCH_MESSAGE_H
#define OLT_HOST_VTY_MATCH_MESSAGE_H

#include <cstddef>
#include <string>
#include <vector>

#include "vty/matcher.h"

namespace olt_host {

// A word of the operator as messages show it: quoted, printable, a long one cut.
std::string QuoteWord(const std::string& word);

// The texts with commas between, the first `most` of them.
std::string ListTexts(const std::vector<std::string>& texts, std::size_t most = 8);

// One line without "% ". REQUIRES: the outcome is not kMatched.
std::string MatchMessage(const Match& match, const std::vector<Word>& words);

// The place, in bytes from 0, of a misfit word; one blank behind the last word where
// the line ends too early.
std::size_t MisfitColumn(const std::vector<Word>& words, std::size_t word);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_MATCH_MESSAGE_H
