#include "vty/matcher.h"

#include <algorithm>
#include <set>
#include <utility>

#include "text/number.h"

namespace olt_host {
namespace {

// One way of reading the words so far.
struct Reading {
  const Command* command;
  bool may_end;
  bool keyword;                          // whether the last word was one
  const std::vector<std::size_t>* next;  // vertices of the command's grammar
  std::vector<std::string> arguments;
};

// A reading together with the vertex that it may take next.
struct Candidate {
  const Reading* reading;
  std::size_t vertex;
  const Token& token() const { return reading->command->grammar.vertices[vertex].token; }
};

void AddOnce(std::vector<std::string>& texts, const std::string& text) {
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

class Matcher {
 public:
  explicit Matcher(const std::vector<Command>& commands) {
    for (const Command& command : commands) {
      _readings.push_back(Reading{&command, false, false, &command.grammar.first, {}});
    }
  }

  // Takes one more word; false when it does not fit, see outcome and expected.
  bool Take(const Word& word) {
    std::vector<Candidate> fitting = Fitting(word);
    if (fitting.empty()) return false;
    std::vector<Reading> advanced;
    for (const Candidate& candidate : fitting) Advance(candidate, word, advanced);
    _readings = std::move(advanced);
    return true;
  }

  // The line ends here.
  void End(Match& match) {
    const Command* counted = nullptr;  // the readings of one command stand together
    for (Reading& reading : _readings) {
      if (!reading.may_end || reading.command == counted) continue;
      counted = reading.command;
      _expected.push_back(reading.command->element->string);
      if (match.command != nullptr) continue;
      match.command = reading.command;
      match.arguments = std::move(reading.arguments);
      match.ends_in_keyword = reading.keyword;
    }
    if (match.command == nullptr) {
      _outcome = MatchOutcome::kIncomplete;
      for (const Candidate& candidate : Candidates()) AddOnce(_expected, candidate.token().text);
    } else if (_expected.size() > 1) {
      _outcome = MatchOutcome::kAmbiguous;
      match.command = nullptr;
      match.arguments.clear();
      match.ends_in_keyword = false;
    } else {
      _outcome = MatchOutcome::kMatched;
      _expected.clear();
    }
  }

  std::vector<Candidate> Candidates() const {
    std::vector<Candidate> candidates;
    for (const Reading& reading : _readings) {
      for (const std::size_t vertex : *reading.next) candidates.push_back({&reading, vertex});
    }
    return candidates;
  }

  bool MayEnd() const {
    return std::any_of(_readings.begin(), _readings.end(),
                       [](const Reading& reading) { return reading.may_end; });
  }

  MatchOutcome outcome() const { return _outcome; }
  const std::vector<std::string>& expected() const { return _expected; }

 private:
  // The candidates that the word means; none, and why, when it means nothing or
  // too much.
  std::vector<Candidate> Fitting(const Word& word) {
    std::vector<Candidate> exact;
    std::vector<Candidate> values;
    std::vector<Candidate> abbreviated;
    std::vector<std::string> keywords;
    const std::vector<Candidate> candidates = Candidates();
    for (const Candidate& candidate : candidates) {
      const Token& token = candidate.token();
      if (Admits(token, word)) values.push_back(candidate);
      if (!Abbreviates(word, token)) continue;
      (token.text == word.text ? exact : abbreviated).push_back(candidate);
      AddOnce(keywords, token.text);
    }
    if (!exact.empty()) return exact;
    if (!values.empty()) return values;
    if (keywords.size() == 1) return abbreviated;
    if (keywords.empty()) {
      NoteMisfit(word, candidates);
    } else {
      _outcome = MatchOutcome::kAmbiguous;
      _expected = std::move(keywords);
    }
    return {};
  }

  void NoteMisfit(const Word& word, const std::vector<Candidate>& candidates) {
    std::vector<std::string> numbers;
    for (const Candidate& candidate : candidates) {
      const Token& token = candidate.token();
      AddOnce(_expected, token.text);
      if (token.kind == TokenKind::kNumber) AddOnce(numbers, token.text);
    }
    _outcome = candidates.empty() && MayEnd() ? MatchOutcome::kTooMany : MatchOutcome::kUnknown;
    if (numbers.empty()) return;
    if (IsAllDigits(word.text)) {
      _outcome = MatchOutcome::kOutOfRange;
      _expected = std::move(numbers);
    } else if (numbers.size() == _expected.size()) {
      _outcome = MatchOutcome::kNotANumber;
    }
  }

  static void Advance(const Candidate& candidate, const Word& word,
                      std::vector<Reading>& readings) {
    const Reading& from = *candidate.reading;
    const GrammarVertex& vertex = from.command->grammar.vertices[candidate.vertex];
    for (const Reading& other : readings) {
      // The same place reached in two ways: the first, from the nearer group, counts.
      if (other.next == &vertex.next) return;
    }
    const bool keyword = vertex.token.kind == TokenKind::kKeyword;
    Reading reading{from.command, vertex.may_end, keyword, &vertex.next, from.arguments};
    if (vertex.token.is_argument) {
      reading.arguments.push_back(keyword ? vertex.token.text : word.text);
    }
    readings.push_back(std::move(reading));
  }

  std::vector<Reading> _readings;
  MatchOutcome _outcome = MatchOutcome::kUnknown;
  std::vector<std::string> _expected;
};

}  // namespace

bool Admits(const Token& token, const Word& word) {
  if (token.kind == TokenKind::kString) return true;
  if (token.kind != TokenKind::kNumber) return false;
  unsigned int number = 0;
  if (ReadNumber(word.text, number)) return number >= token.low && number <= token.high;
  return token.takes_name && !word.text.empty() && !IsAllDigits(word.text);
}

bool Abbreviates(const Word& word, const Token& token) {
  return !word.quoted && !word.text.empty() && token.kind == TokenKind::kKeyword &&
         token.text.compare(0, word.text.size(), word.text) == 0;
}

Match MatchWords(const std::vector<Command>& commands, const std::vector<Word>& words) {
  Match match;
  Matcher matcher(commands);
  while (match.word < words.size() && matcher.Take(words[match.word])) ++match.word;
  if (match.word == words.size()) matcher.End(match);
  match.outcome = matcher.outcome();
  match.expected = matcher.expected();
  return match;
}

std::vector<Token> TokensBehind(const std::vector<Command>& commands,
                                const std::vector<Word>& words, bool* may_end) {
  std::vector<Token> tokens;
  std::set<std::pair<std::string, std::string>> known;
  Matcher matcher(commands);
  const bool fits = std::all_of(words.begin(), words.end(),
                                [&matcher](const Word& word) { return matcher.Take(word); });
  if (may_end != nullptr) *may_end = fits && matcher.MayEnd();
  if (!fits) return tokens;
  for (const Candidate& candidate : matcher.Candidates()) {
    const Token& token = candidate.token();
    if (known.emplace(token.text, token.help).second) tokens.push_back(token);
  }
  return tokens;
}

}  // namespace olt_host
