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
  explicit Lexer(const std::string& line) : line_(line) {}

  LexedLine Run() {
    while (lexed_.error.empty()) {
      while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
      if (at_ == line_.size()) break;
      Word word;
      word.column = at_;
      word.quoted = line_[at_] == '"';
      const bool whole = word.quoted ? ReadQuoted(word) : ReadPlain(word);
      word.end = at_;
      if (whole) lexed_.words.push_back(word);
    }
    return lexed_;
  }

 private:
  bool Fail(const char* reason, std::size_t column) {
    lexed_.error = reason;
    lexed_.error_column = column;
    return false;
  }

  bool ReadPlain(Word& word) {
    for (; at_ < line_.size() && !IsBlank(line_[at_]); ++at_) {
      if (IsControl(line_[at_])) return Fail("Control character", at_);
      if (line_[at_] == '"') return Fail("Quote inside a word", at_);
      word.text += line_[at_];
    }
    return true;
  }

  bool ReadQuoted(Word& word) {
    for (++at_; at_ < line_.size() && line_[at_] != '"'; ++at_) {
      if (IsControl(line_[at_])) return Fail("Control character", at_);
      if (line_[at_] == '\\') {
        const char next = at_ + 1 < line_.size() ? line_[at_ + 1] : '\0';
        if (next != '"' && next != '\\') return Fail("Only \\\" and \\\\ are escapes", at_);
        ++at_;
      }
      word.text += line_[at_];
    }
    if (at_ == line_.size()) return Fail("Missing closing quote", word.column);
    ++at_;
    if (at_ < line_.size() && !IsBlank(line_[at_])) {
      return Fail("Blank expected after the closing quote", at_);
    }
    return true;
  }

  const std::string& line_;
  std::size_t at_ = 0;
  LexedLine lexed_;
};

}  // namespace

LexedLine LexLine(const std::string& line) { return Lexer(line).Run(); }

}  // namespace olt_host
