#include "vty/completion.h"

#include <algorithm>

#include "text/columns.h"
#include "vty/filter_syntax.h"
#include "vty/line_position.h"
#include "vty/matcher.h"

namespace olt_host {
namespace {

using Texts = std::vector<std::string>;

// As far as all texts agree, whole characters only.
std::string SharedStart(const Texts& texts) {
  std::string shared = texts.front();
  for (const std::string& text : texts) {
    const auto differ = std::mismatch(shared.begin(), shared.end(), text.begin(), text.end());
    shared.erase(differ.first, shared.end());
  }
  const auto cut = [&shared](const std::string& text) {
    return text.size() > shared.size() && !StartsCharacter(text[shared.size()]);
  };
  while (!shared.empty() && std::any_of(texts.begin(), texts.end(), cut)) shared.pop_back();
  return shared;
}

void AddOnce(Texts& texts, const std::string& text) {
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

struct Candidates {
  Texts certain;  // keywords and known values
  Texts open;     // values of which none is known
};

Candidates Collect(const LinePosition& position) {
  Candidates candidates;
  for (const Token& token : position.tokens) {
    if (token.kind == TokenKind::kKeyword) {
      // Filters are offered to those who asked for one.
      const bool unasked = token.text == PipeToken().text && !position.typed;
      if (!unasked && MayBecome(position.typed, token)) AddOnce(candidates.certain, token.text);
      continue;
    }
    const std::vector<ValueHint> known = KnownValues(token, position.typed);
    for (const ValueHint& value : known) AddOnce(candidates.certain, value.value);
    if (known.empty() && !position.typed) AddOnce(candidates.open, token.text);
  }
  return candidates;
}

}  // namespace

Completion Complete(unsigned int node, const std::string& text) {
  Completion completion;
  const LinePosition position = FindPosition(node, text);
  if (position.typed && position.typed->quoted) return completion;
  const Candidates candidates = Collect(position);
  completion.candidates = candidates.certain;
  completion.candidates.insert(completion.candidates.end(), candidates.open.begin(),
                               candidates.open.end());
  if (candidates.certain.empty() || !candidates.open.empty()) return completion;
  const std::size_t typed = position.typed ? position.typed->text.size() : 0;
  completion.insert = SharedStart(candidates.certain).substr(typed);
  if (candidates.certain.size() == 1) completion.insert += ' ';
  return completion;
}

}  // namespace olt_host
