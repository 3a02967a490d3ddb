#include "vty/filter_syntax.h"

#include <algorithm>
#include <iterator>

#include "vty/match_message.h"
#include "vty/matcher.h"

namespace olt_host {
namespace {

// More than anybody has a use for; each costs a pass over every line.
constexpr std::size_t kMostFilters = 8;

struct FilterName {
  FilterKind kind;
  const char* name;
  const char* help;
};

constexpr FilterName kNames[] = {
    {FilterKind::kInclude, "include", "print only the lines that hold TEXT"},
    {FilterKind::kExclude, "exclude", "print only the lines that do not hold TEXT"},
    {FilterKind::kBegin, "begin", "print from the first line on that holds TEXT"},
    {FilterKind::kSection, "section", "print the sections that hold TEXT"},
    {FilterKind::kCount, "count", "print the number of lines that hold TEXT"},
    {FilterKind::kSave, "save", "write the output to a new file"},
};

Token Keyword(const std::string& text, const std::string& help) {
  Token token;
  token.text = text;
  token.help = help;
  return token;
}

Token Value(const std::string& text, const std::string& help) {
  Token token = Keyword(text, help);
  token.kind = TokenKind::kString;
  return token;
}

class FilterReader {
 public:
  FilterReader(const std::vector<Word>& words, std::size_t first) : _words(words), _at(first) {}

  FilterSyntax Run() {
    while (_at < _words.size() && ReadFilter()) continue;
    return _result;
  }

 private:
  // Names `next` as what was expected where the words end.
  bool FailAtEnd() {
    std::vector<std::string> expected;
    for (const Token& token : _result.next) expected.push_back(token.text);
    _result.error = "Command incomplete: expected " + ListTexts(expected);
    _result.error_column = MisfitColumn(_words, _words.size());
    return false;
  }

  bool Fail(const std::string& error, std::size_t word) {
    _result.next.clear();
    _result.may_end = false;
    _result.error = error;
    _result.error_column = MisfitColumn(_words, word);
    return false;
  }

  // From the pipe to the next one.
  bool ReadFilter() {
    if (_result.filters.size() == kMostFilters) {
      return Fail("More than " + std::to_string(kMostFilters) + " filters", _at);
    }
    ++_at;
    Filter filter;
    return ReadName(filter) &&
           (filter.kind == FilterKind::kSave ? ReadFile(filter) : ReadText(filter));
  }

  bool ReadName(Filter& filter) {
    _result.may_end = false;
    _result.next.clear();
    for (const FilterName& name : kNames) _result.next.push_back(Keyword(name.name, name.help));
    if (_at == _words.size()) return FailAtEnd();
    std::vector<std::string> known;
    std::vector<std::string> meant;
    for (const FilterName& name : kNames) {
      known.emplace_back(name.name);
      if (!Abbreviates(_words[_at], Keyword(name.name, ""))) continue;
      meant.emplace_back(name.name);
      filter.kind = name.kind;
    }
    if (meant.empty()) return Fail("Unknown filter: expected " + ListTexts(known), _at);
    if (meant.size() > 1) {
      return Fail(
          "Ambiguous filter: " + QuoteWord(_words[_at].text) + " may be " + ListTexts(meant), _at);
    }
    filter.name_column = _words[_at].column;
    ++_at;
    return true;
  }

  bool ReadText(Filter& filter) {
    const Token text = Value("TEXT", "a word, \"a text\", or all words up to the next |");
    _result.next = {text};
    if (_at == _words.size()) return FailAtEnd();
    if (IsPipe(_words[_at])) return Fail("Command incomplete: expected TEXT", _at);
    filter.text_column = _words[_at].column;
    std::size_t end = _words[_at].column;
    for (; _at < _words.size() && !IsPipe(_words[_at]); ++_at) {
      // Blanks count as typed.
      filter.text.append(_words[_at].column - end, ' ');
      filter.text += _words[_at].text;
      end = _words[_at].end;
    }
    if (filter.text.empty()) return Fail("Empty text", _at - 1);
    _result.next.push_back(PipeToken());
    _result.may_end = true;
    _result.filters.push_back(std::move(filter));
    return true;
  }

  bool ReadFile(Filter& filter) {
    _result.next = {Value("FILE", "the file, which must not be there yet")};
    if (_at == _words.size()) return FailAtEnd();
    if (IsPipe(_words[_at])) return Fail("Command incomplete: expected FILE", _at);
    filter.text = _words[_at].text;
    filter.text_column = _words[_at].column;
    if (filter.text.empty()) return Fail("Empty file name", _at);
    if (++_at < _words.size()) {
      return Fail(
          IsPipe(_words[_at]) ? "Nothing is left to filter behind save" : "Too many arguments",
          _at);
    }
    _result.next.clear();
    _result.may_end = true;
    _result.filters.push_back(std::move(filter));
    return true;
  }

  const std::vector<Word>& _words;
  std::size_t _at;
  FilterSyntax _result;
};

}  // namespace

bool IsPipe(const Word& word) { return !word.quoted && word.text == "|"; }

std::size_t FirstPipe(const std::vector<Word>& words) {
  return static_cast<std::size_t>(
      std::distance(words.begin(), std::find_if(words.begin(), words.end(), IsPipe)));
}

Token PipeToken() { return Keyword("|", "filter or save the output"); }

FilterSyntax ReadFilters(const std::vector<Word>& words, std::size_t first) {
  return FilterReader(words, first).Run();
}

}  // namespace olt_host
