#include "vty/line_position.h"

#include "text/number.h"
#include "vty/command_table.h"
#include "vty/filter_syntax.h"
#include "vty/parsed_line.h"

namespace olt_host {
namespace {

// Whether the digits, followed by none or more, are a number of the range.
bool BeginsNumber(const std::string& digits, const Token& token) {
  unsigned int number = 0;
  if (!ReadNumber(digits, number)) return false;
  unsigned long long low = number;
  unsigned long long high = number;
  while (low <= token.high) {
    if (high >= token.low) return true;
    low *= 10;
    high = high * 10 + 9;
  }
  return false;
}

// The value as it has to be typed.
std::string AsTyped(const std::string& value) {
  const bool plain =
      !value.empty() && value != "|" && value.find_first_of(" \t\"") == std::string::npos;
  if (plain) return value;
  std::string quoted = "\"";
  for (const char c : value) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

// Whether a word of the value's text would reach the token.
bool CanBeTyped(const ValueHint& hint, const Token& token) {
  const LexedLine lexed = LexLine(AsTyped(hint.value));
  return lexed.error.empty() && lexed.words.size() == 1 && Admits(token, lexed.words.front());
}

}  // namespace

LinePosition FindPosition(unsigned int node, const std::string& text) {
  LinePosition position;
  const bool blank = text.find_first_not_of(" \t") == std::string::npos;
  if (IsBlankLine(text) && !blank) return position;
  LexedLine lexed = LexLine(text);
  if (!lexed.error.empty()) return position;
  std::vector<Word>& words = lexed.words;
  if (!words.empty() && words.back().end == text.size()) {
    position.typed = words.back();
    words.pop_back();
  }
  const std::size_t pipe = FirstPipe(words);
  if (pipe < words.size()) {
    const std::vector<Word> command(words.begin(),
                                    words.begin() + static_cast<std::ptrdiff_t>(pipe));
    bool complete = false;
    TokensBehind(CommandTable::Instance().Commands(node), command, &complete);
    if (!complete) return position;
    FilterSyntax filters = ReadFilters(words, pipe);
    position.tokens = std::move(filters.next);
    position.may_end = filters.may_end;
    return position;
  }
  position.tokens = TokensBehind(CommandTable::Instance().Commands(node), words, &position.may_end);
  if (position.may_end) position.tokens.push_back(PipeToken());
  return position;
}

bool MayBecome(const std::optional<Word>& typed, const Token& token) {
  if (!typed) return true;
  if (token.kind == TokenKind::kKeyword) return Abbreviates(*typed, token);
  return Admits(token, *typed) ||
         (token.kind == TokenKind::kNumber && !typed->quoted && BeginsNumber(typed->text, token));
}

std::vector<ValueHint> KnownValues(const Token& token, const std::optional<Word>& typed) {
  std::vector<ValueHint> known;
  if (token.kind == TokenKind::kKeyword || (typed && typed->quoted)) return known;
  const std::string begin = typed ? typed->text : "";
  for (const ValueHint& hint : ValueHints::Instance().For(token)) {
    const std::string value = AsTyped(hint.value);
    if (value.compare(0, begin.size(), begin) != 0 || !CanBeTyped(hint, token)) continue;
    known.push_back({value, hint.help});
  }
  return known;
}

}  // namespace olt_host
