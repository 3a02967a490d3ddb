#include "vty/lexer.h"

namespace olt_host {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Arguments travel as terminated text and end up on terminals and in logs.
bool IsControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\t') || byte == 0x7F;
}

class Lexer {
 public:
  explicit Lexer(const std::string& line) : _line(line) {}

  LexedLine Run() {
    while (_lexed.error.empty()) {
      while (_at < _line.size() && IsBlank(_line[_at])) ++_at;
      if (_at == _line.size()) break;
      Word word;
      word.column = _at;
      word.quoted = _line[_at] == '"';
      const bool whole = word.quoted ? ReadQuoted(word) : ReadPlain(word);
      word.end = _at;
      if (whole) _lexed.words.push_back(word);
    }
    return _lexed;
  }

 private:
  bool Fail(const char* reason, std::size_t column) {
    _lexed.error = reason;
    _lexed.error_column = column;
    return false;
  }

  bool ReadPlain(Word& word) {
    for (; _at < _line.size() && !IsBlank(_line[_at]); ++_at) {
      if (IsControl(_line[_at])) return Fail("Control character", _at);
      if (_line[_at] == '"') return Fail("Quote inside a word", _at);
      word.text += _line[_at];
    }
    return true;
  }

  bool ReadQuoted(Word& word) {
    for (++_at; _at < _line.size() && _line[_at] != '"'; ++_at) {
      if (IsControl(_line[_at])) return Fail("Control character", _at);
      if (_line[_at] == '\\') {
        const char next = _at + 1 < _line.size() ? _line[_at + 1] : '\0';
        if (next != '"' && next != '\\') return Fail("Only \\\" and \\\\ are escapes", _at);
        ++_at;
      }
      word.text += _line[_at];
    }
    if (_at == _line.size()) return Fail("Missing closing quote", word.column);
    ++_at;
    if (_at < _line.size() && !IsBlank(_line[_at])) {
      return Fail("Blank expected after the closing quote", _at);
    }
    return true;
  }

  const std::string& _line;
  std::size_t _at = 0;
  LexedLine _lexed;
};

}  // namespace

LexedLine LexLine(const std::string& line) { return Lexer(line).Run(); }

}  // namespace olt_host
