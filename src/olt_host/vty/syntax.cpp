#include "vty/syntax.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "text/number.h"

namespace olt_host {
namespace {

constexpr unsigned int kMostRepeats = 64;
constexpr unsigned int kDeepestGroup = 4;

std::vector<std::string> HelpLines(const std::string& doc) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < doc.size();) {
    const std::size_t end = std::min(doc.find('\n', start), doc.size());
    std::string line = doc.substr(start, end - start);
    while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

bool EndsWith(const std::string& text, const std::string& tail) {
  return text.size() >= tail.size() &&
         text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

bool IsKeywordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-' || c == '.';
}

// Recursive descent. Every Parse function leaves `_at` behind what it read and
// returns false after the first error, which Fail has noted.
class SyntaxParser {
 public:
  SyntaxParser(const std::string& text, const std::string& doc)
      : _text(text), _help(HelpLines(doc)) {}

  Syntax Run() {
    std::vector<SyntaxNode> items;
    if (!ParseItems(items, 0)) return _result;
    if (items.empty() || items.front().kind != SyntaxNode::kToken ||
        items.front().token.kind != TokenKind::kKeyword) {
      Fail("a command begins with a keyword", std::min(_text.find_first_not_of(' '), _text.size()));
      return _result;
    }
    _result.items = std::move(items);
    return _result;
  }

 private:
  bool Fail(const std::string& reason, std::size_t column) {
    _result.error = reason;
    _result.error_column = column;
    return false;
  }

  bool AtEnd() const { return _at == _text.size(); }
  char Peek() const { return AtEnd() ? '\0' : _text[_at]; }

  // Items up to the end of the text, or to the brace that closes the group.
  bool ParseItems(std::vector<SyntaxNode>& items, unsigned int depth) {
    for (bool separated = true;;) {
      const std::size_t blanks = _at;
      while (Peek() == ' ') ++_at;
      if (AtEnd() || (depth > 0 && Peek() == '}')) return true;
      if (!separated && _at == blanks) return Fail("items stand between blanks", _at);
      SyntaxNode item;
      if (!ParseItem(item, depth)) return false;
      items.push_back(std::move(item));
      separated = false;
    }
  }

  bool ParseItem(SyntaxNode& item, unsigned int depth) {
    switch (Peek()) {
      case '[':
        return ParseChoice(item);
      case '{':
        return ParseGroup(item, depth);
      default:
        return ParseToken(item.token, false);
    }
  }

  bool ParseToken(Token& token, bool in_choice) {
    const std::size_t start = _at;
    if (Peek() == '<') {
      if (!ParsePlaceholder(token)) return false;
    } else {
      while (IsKeywordCharacter(Peek())) ++_at;
      if (_at == start) return Fail("a keyword or a value was expected", _at);
      token.kind = TokenKind::kKeyword;
      token.is_argument = in_choice;
    }
    token.text = _text.substr(start, _at - start);
    if (_tokens_read < _help.size()) token.help = _help[_tokens_read];
    ++_tokens_read;
    token.takes_name = token.text == "<value>" && EndsWith(token.help, "or name");
    return true;
  }

  bool ParsePlaceholder(Token& token) {
    const std::size_t start = _at;
    const std::size_t close = _text.find('>', _at);
    if (close == std::string::npos) return Fail("this < is not closed", start);
    const std::string name = _text.substr(start + 1, close - start - 1);
    token.is_argument = true;
    token.kind = TokenKind::kNumber;
    if (name == "value") {
      token.high = 4294967295U;
    } else if (name == "onutype_code") {
      token.high = 65535;
    } else if (name == "string") {
      token.kind = TokenKind::kString;
    } else if (!ParseRange(name, token)) {
      return Fail("<value>, <string>, <onutype_code> or a range <low-high> was expected", start);
    }
    _at = close + 1;
    return true;
  }

  static bool ParseRange(const std::string& name, Token& token) {
    const std::size_t dash = name.find('-');
    return dash != std::string::npos && ReadNumber(name.substr(0, dash), token.low) &&
           ReadNumber(name.substr(dash + 1), token.high) && token.low <= token.high;
  }

  bool ParseChoice(SyntaxNode& choice) {
    const std::size_t start = _at;
    choice.kind = SyntaxNode::kChoice;
    do {
      ++_at;  // behind the bracket or the bar
      const std::size_t place = _at;
      SyntaxNode alternative;
      if (!ParseToken(alternative.token, true)) return false;
      for (const SyntaxNode& other : choice.children) {
        if (other.token.text == alternative.token.text) return Fail("offered twice", place);
      }
      choice.children.push_back(std::move(alternative));
    } while (Peek() == '|');
    if (AtEnd()) return Fail("this [ is not closed", start);
    if (Peek() != ']') return Fail("| or ] was expected", _at);
    ++_at;
    return true;
  }

  bool ParseGroup(SyntaxNode& group, unsigned int depth) {
    const std::size_t start = _at;
    if (depth == kDeepestGroup) return Fail("groups are nested too deeply", start);
    group.kind = SyntaxNode::kGroup;
    ++_at;
    if (!ParseItems(group.children, depth + 1)) return false;
    if (AtEnd()) return Fail("this { is not closed", start);
    if (group.children.empty()) return Fail("an empty group", start);
    ++_at;
    if (Peek() != '*') return Fail("a group ends in }*n", _at);
    const std::size_t digits = ++_at;
    while (std::isdigit(static_cast<unsigned char>(Peek())) != 0) ++_at;
    if (!ReadNumber(_text.substr(digits, _at - digits), group.repeat) || group.repeat == 0 ||
        group.repeat > kMostRepeats) {
      return Fail("a group is repeated 1 to 64 times", digits);
    }
    return true;
  }

  const std::string& _text;
  std::vector<std::string> _help;
  std::size_t _at = 0;
  std::size_t _tokens_read = 0;
  Syntax _result;
};

}  // namespace

Syntax ParseSyntax(const std::string& text, const std::string& doc) {
  return SyntaxParser(text, doc).Run();
}

}  // namespace olt_host
