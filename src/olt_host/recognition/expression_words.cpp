#include "recognition/expression_words.h"

#include "text/columns.h"

namespace olt_host {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Messages count characters, of which UTF-8 may take several bytes.
std::size_t CharacterNumber(const std::string& text, std::size_t at) {
  return 1 + DisplayWidth(text.substr(0, at));
}

class Cutter {
 public:
  explicit Cutter(const std::string& expression) : _expression(expression) {}

  std::vector<ExpressionWord> Run() {
    std::vector<ExpressionWord> words;
    do {
      while (_at < _expression.size() && IsBlank(_expression[_at])) ++_at;
      words.push_back(Next());
    } while (words.back().kind != ExpressionWordKind::kEnd);
    return words;
  }

 private:
  // A '!' is an operator only before '=': names of types have it too.
  std::size_t OperatorLength() const {
    const char c = _expression[_at];
    const bool equals = _at + 1 < _expression.size() && _expression[_at + 1] == '=';
    if (c == '=' || c == '~') return 1;
    if (c == '<' || c == '>') return equals ? 2 : 1;
    return c == '!' && equals ? 2 : 0;
  }

  bool EndsText() const {
    const char c = _expression[_at];
    return IsBlank(c) || c == '(' || c == ')' || OperatorLength() != 0;
  }

  ExpressionWord Next() {
    ExpressionWord word;
    word.at = _at;
    if (_at == _expression.size()) return word;
    const char c = _expression[_at];
    if (c == '(' || c == ')') {
      word.kind = c == '(' ? ExpressionWordKind::kOpen : ExpressionWordKind::kClose;
      word.text = _expression.substr(_at++, 1);
    } else if (const std::size_t length = OperatorLength(); length != 0) {
      word.kind = ExpressionWordKind::kOperator;
      word.text = _expression.substr(_at, length);
      _at += length;
    } else if (c == '"' || c == '\'') {
      word.kind = ExpressionWordKind::kQuoted;
      word.text = ReadQuoted(c);
    } else {
      word.kind = ExpressionWordKind::kText;
      while (_at < _expression.size() && !EndsText()) word.text += _expression[_at++];
    }
    return word;
  }

  std::string ReadQuoted(char quote) {
    const std::size_t opened = _at++;
    std::string text;
    for (; _at < _expression.size() && _expression[_at] != quote; ++_at) {
      if (_expression[_at] == '\\' && _at + 1 < _expression.size()) ++_at;
      text += _expression[_at];
    }
    if (_at == _expression.size()) {
      throw ExpressionError(_expression, opened, "the quote is not closed",
                            std::string("a second ") + quote);
    }
    ++_at;
    return text;
  }

  const std::string& _expression;
  std::size_t _at = 0;
};

}  // namespace

ExpressionError::ExpressionError(const std::string& expression, std::size_t at,
                                 const std::string& problem, const std::string& expectation)
    : std::runtime_error("character " + std::to_string(CharacterNumber(expression, at)) + ": " +
                         problem + "; expected " + expectation),
      _at(at),
      _rule(problem + "; expected " + expectation) {}

std::vector<ExpressionWord> CutExpression(const std::string& expression) {
  return Cutter(expression).Run();
}

std::string QuotedWord(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace olt_host
