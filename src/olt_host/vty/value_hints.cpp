#include "vty/value_hints.h"

namespace olt_host {

ValueHints& ValueHints::Instance() {
  static ValueHints hints;
  return hints;
}

void ValueHints::Offer(const std::string& token, const std::string& help, Source source) {
  _sources[{token, help}] = std::move(source);
}

std::vector<ValueHint> ValueHints::For(const Token& token) const {
  auto source = _sources.find({token.text, token.help});
  if (source == _sources.end()) source = _sources.find({token.text, ""});
  return source == _sources.end() ? std::vector<ValueHint>() : source->second();
}

}  // namespace olt_host
