#include "vty/completion.h"

#include <algorithm>

#include "vty/command_table.h"

namespace olt_host {
namespace {

std::string SharedStart(const std::vector<std::string>& texts) {
  std::string shared = texts.front();
  for (const std::string& text : texts) {
    const auto differ = std::mismatch(shared.begin(), shared.end(), text.begin(), text.end());
    shared.erase(differ.first, shared.end());
  }
  return shared;
}

}  // namespace

Completion Complete(unsigned int node, const std::string& text) {
  Completion completion;
  LexedLine lexed = LexLine(text);
  if (!lexed.error.empty()) return completion;
  std::string typed;
  if (!lexed.words.empty() && lexed.words.back().end == text.size()) {
    if (lexed.words.back().quoted) return completion;
    typed = lexed.words.back().text;
    lexed.words.pop_back();
  }
  std::vector<std::string> keywords;
  std::vector<std::string> values;
  for (const Token& token :
       TokensBehind(CommandTable::Instance().Commands(node), lexed.words, nullptr)) {
    if (token.kind != TokenKind::kKeyword) {
      if (typed.empty()) values.push_back(token.text);
    } else if (token.text.compare(0, typed.size(), typed) == 0) {
      keywords.push_back(token.text);
    }
  }
  completion.candidates = keywords;
  completion.candidates.insert(completion.candidates.end(), values.begin(), values.end());
  if (keywords.empty() || !values.empty()) return completion;
  completion.insert = SharedStart(keywords).substr(typed.size());
  if (keywords.size() == 1) completion.insert += ' ';
  return completion;
}

}  // namespace olt_host
