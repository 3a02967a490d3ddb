// Cuts an expression about types into words: names, values, operators, parentheses.
//
//   lan>=4 and (pots >= 2 or name ~ "FRITZ!Box 55")
//
// Blanks may stand anywhere between. A text in quotes, single or double, is one word;
// in it a backslash makes the next character one of the text.
#ifndef OLT_HOST_RECOGNITION_EXPRESSION_WORDS_H
#define OLT_HOST_RECOGNITION_EXPRESSION_WORDS_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace olt_host {

// What is wrong with an expression. what() is "character N: problem; expected
// expectation".
class ExpressionError : public std::runtime_error {
 public:
  // `at` counts bytes of `expression` from 0.
  ExpressionError(const std::string& expression, std::size_t at, const std::string& problem,
                  const std::string& expectation);

  std::size_t at() const { return _at; }
  // what() without the place.
  const std::string& rule() const { return _rule; }

 private:
  std::size_t _at;
  std::string _rule;
};

// kEnd stands behind the last word.
enum class ExpressionWordKind { kText, kQuoted, kOperator, kOpen, kClose, kEnd };

struct ExpressionWord {
  ExpressionWordKind kind = ExpressionWordKind::kEnd;
  std::string text;    // without quotes
  std::size_t at = 0;  // of its first byte
};

// The words and a kEnd. Throws ExpressionError for a quote that is not closed.
std::vector<ExpressionWord> CutExpression(const std::string& expression);

// The text as a word in quotes.
std::string QuotedWord(const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_EXPRESSION_WORDS_H
