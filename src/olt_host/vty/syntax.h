// Reads the syntax string of a command into a tree.
//
//   show                  a keyword, which an operator may abbreviate
//   <value>               a number, 0 to 4294967295
//   <onutype_code>        a number, 0 to 65535
//   <1-2>                 a number in a range, both ends included
//   <string>              any word
//   [match|real] [key]    one of the keywords or values between the bars
//   {<value> [on|off]}*8  the items in braces, together, none to eight times
//
// Items stand between blanks; the first is a keyword. Whatever reads otherwise
// is refused with its place, never guessed at.
#ifndef OLT_HOST_VTY_SYNTAX_H
#define OLT_HOST_VTY_SYNTAX_H

#include <cstddef>
#include <string>
#include <vector>

namespace olt_host {

enum class TokenKind { kKeyword, kNumber, kString };

// What may stand in the place of one word.
struct Token {
  TokenKind kind = TokenKind::kKeyword;
  std::string text;          // as the syntax string has it: "show", "<0-2>"
  bool is_argument = false;  // handed to the handler; plain keywords are not
  unsigned int low = 0;      // of a number
  unsigned int high = 0;     // of a number, included
  bool takes_name = false;   // a <value> that may also be a name, see ParseSyntax
  std::string help;          // its line of the command's help, may be empty
};

struct SyntaxNode {
  enum Kind { kToken, kChoice, kGroup } kind = kToken;
  Token token;                       // of kToken
  std::vector<SyntaxNode> children;  // alternatives of kChoice, sequence of kGroup
  unsigned int repeat = 0;           // of kGroup: at most so often
};

struct Syntax {
  std::vector<SyntaxNode> items;  // empty when the string was refused
  std::string error;              // why it was refused; empty when it was read
  std::size_t error_column = 0;   // where, in bytes from 0
};

// Reads `text`; `doc` is the command's help, lines in the order of the tokens.
//
// A <value> whose help line ends in "or name" takes names too: "show ability
// code" promises "ability code value or name". There a word of digits alone is
// a number, within range or refused, and every other word is a name. All other
// <value>s refuse words, because handlers would read them as 0.
Syntax ParseSyntax(const std::string& text, const std::string& doc);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_SYNTAX_H
