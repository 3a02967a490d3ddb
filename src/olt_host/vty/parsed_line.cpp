#include "vty/parsed_line.h"

#include "vty/command_table.h"
#include "vty/match_message.h"

namespace olt_host {
namespace {

// `whole`: whether the words end where the command does.
bool WantsJsonError(const Match& match, const std::vector<Word>& words, bool whole) {
  if (match.outcome == MatchOutcome::kMatched) {
    return whole && match.ends_in_keyword && !match.arguments.empty() &&
           match.arguments.back() == "json";
  }
  Token show;
  show.text = "show";
  return whole && words.size() > 1 && Abbreviates(words.front(), show) && !words.back().quoted &&
         words.back().text == "json";
}

}  // namespace

bool IsBlankLine(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first == std::string::npos || line[first] == '!';
}

ParsedLine ParseLine(unsigned int node, const std::string& line) {
  ParsedLine parsed;
  parsed.blank = IsBlankLine(line);
  if (parsed.blank) return parsed;
  const LexedLine lexed = LexLine(line);
  const std::size_t pipe = FirstPipe(lexed.words);
  const std::vector<Word> words(lexed.words.begin(),
                                lexed.words.begin() + static_cast<std::ptrdiff_t>(pipe));
  parsed.match = MatchWords(CommandTable::Instance().Commands(node), words);
  const bool whole = lexed.error.empty() || pipe < lexed.words.size();
  parsed.wants_json = WantsJsonError(parsed.match, words, whole);
  if (!lexed.error.empty()) {
    parsed.error = lexed.error;
    parsed.error_column = lexed.error_column;
    return parsed;
  }
  parsed.column = lexed.words.front().column;
  if (words.empty()) {
    parsed.error = "Unknown command";
    parsed.error_column = parsed.column;
  } else if (parsed.match.outcome != MatchOutcome::kMatched) {
    parsed.error = MatchMessage(parsed.match, words);
    parsed.error_column = MisfitColumn(words, parsed.match.word);
  } else if (pipe < lexed.words.size()) {
    FilterSyntax filters = ReadFilters(lexed.words, pipe);
    parsed.filters = std::move(filters.filters);
    parsed.error = std::move(filters.error);
    parsed.error_column = filters.error_column;
  }
  return parsed;
}

}  // namespace olt_host
