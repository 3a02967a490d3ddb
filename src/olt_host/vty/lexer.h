// Cuts an operator's line into words.
//
// Words stand between blanks. A word that opens with a double quote reaches to
// the closing quote, blanks included; inside it \" is a quote and \\ a
// backslash. Knows nothing of commands. Columns count bytes from 0.
#ifndef OLT_HOST_VTY_LEXER_H
#define OLT_HOST_VTY_LEXER_H

#include <cstddef>
#include <string>
#include <vector>

namespace olt_host {

struct Word {
  std::string text;        // without quotes and escapes
  std::size_t column = 0;  // of its first byte, the opening quote included
  std::size_t end = 0;     // of the byte behind it
  bool quoted = false;     // a quoted word is never a keyword
};

struct LexedLine {
  std::vector<Word> words;       // on an error, the words before it
  std::string error;             // empty when the whole line was read
  std::size_t error_column = 0;  // the place of the error
};

LexedLine LexLine(const std::string& line);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_LEXER_H
