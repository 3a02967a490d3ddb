// What stands behind the command of a line: the filters through which its output
// goes, each behind a '|'.
//
//   show ability code | include name | exclude LAMP | count PORTS
//   show running-config | save "my profiles.txt"
//
// TEXT is one word, a quoted text, or all words up to the next '|'. Names may be
// abbreviated. A quoted "|" is a word like any other.
#ifndef OLT_HOST_VTY_FILTER_SYNTAX_H
#define OLT_HOST_VTY_FILTER_SYNTAX_H

#include <cstddef>
#include <string>
#include <vector>

#include "vty/lexer.h"
#include "vty/syntax.h"

namespace olt_host {

enum class FilterKind { kInclude, kExclude, kBegin, kSection, kCount, kSave };

struct Filter {
  FilterKind kind = FilterKind::kInclude;
  std::string text;             // of kSave: the file
  std::size_t name_column = 0;  // of the filter's name in the line
  std::size_t text_column = 0;  // of its text
};

struct FilterSyntax {
  std::vector<Filter> filters;   // kSave only as the last
  std::string error;             // empty when all was read
  std::size_t error_column = 0;  // in bytes from 0
  // What may stand behind the last word, and whether the line may end there;
  // nothing and false when a word is wrong.
  std::vector<Token> next;
  bool may_end = false;
};

// Whether the word begins a filter.
bool IsPipe(const Word& word);

// The first word that does, or the number of words.
std::size_t FirstPipe(const std::vector<Word>& words);

// The token that offers filters where a command may end.
Token PipeToken();

// Reads the filters from words[first] on. REQUIRES: that word is a pipe.
FilterSyntax ReadFilters(const std::vector<Word>& words, std::size_t first);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_FILTER_SYNTAX_H
