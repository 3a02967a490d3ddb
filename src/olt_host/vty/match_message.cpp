#include "vty/match_message.h"

#include "text/columns.h"

namespace olt_host {
namespace {

constexpr std::size_t kLongestQuote = 40;

// <value> and <onutype_code> as the figures they stand for.
std::string Ranges(const std::vector<std::string>& texts) {
  std::vector<std::string> ranges;
  for (const std::string& text : texts) {
    if (text == "<value>") {
      ranges.emplace_back("<0-4294967295>");
    } else {
      ranges.push_back(text == "<onutype_code>" ? "<0-65535>" : text);
    }
  }
  return ListTexts(ranges);
}

}  // namespace

std::string QuoteWord(const std::string& word) {
  if (word.size() <= kLongestQuote) return "\"" + Printable(word) + "\"";
  std::size_t end = kLongestQuote;
  while (end > 0 && !StartsCharacter(word[end])) --end;
  return "\"" + Printable(word.substr(0, end)) + "...\"";
}

std::string ListTexts(const std::vector<std::string>& texts, std::size_t most) {
  std::string list;
  for (std::size_t i = 0; i < texts.size() && i < most; ++i) {
    list += (i == 0 ? "" : ", ") + texts[i];
  }
  return texts.size() > most ? list + ", ..." : list;
}

std::string MatchMessage(const Match& match, const std::vector<Word>& words) {
  const std::string word =
      match.word < words.size() ? QuoteWord(words[match.word].text) : "the line";
  switch (match.outcome) {
    case MatchOutcome::kIncomplete:
      return "Command incomplete: expected " + ListTexts(match.expected);
    case MatchOutcome::kAmbiguous:
      return "Ambiguous command: " + word + " may be " +
             ListTexts(match.expected, match.expected.size());
    case MatchOutcome::kNotANumber:
      return "Not a number: " + word + ", expected " + ListTexts(match.expected);
    case MatchOutcome::kOutOfRange:
      return "Number out of range: " + words[match.word].text.substr(0, kLongestQuote) +
             " is not in " + Ranges(match.expected);
    case MatchOutcome::kTooMany:
      return "Too many arguments";
    case MatchOutcome::kUnknown:
    case MatchOutcome::kMatched:
      break;
  }
  return match.word == 0 ? "Unknown command"
                         : "Unknown command: expected " + ListTexts(match.expected);
}

std::size_t MisfitColumn(const std::vector<Word>& words, std::size_t word) {
  if (word < words.size()) return words[word].column;
  return words.empty() ? 0 : words.back().end + 1;
}

}  // namespace olt_host
