// The values that the host knows for a place of a command: codes, types, keys.
// They are offered by completion and beside '?', never demanded.
//
// Filled at start-up; asked on the command thread, because the sources look at
// what commands change.
#ifndef OLT_HOST_VTY_VALUE_HINTS_H
#define OLT_HOST_VTY_VALUE_HINTS_H

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "vty/syntax.h"

namespace olt_host {

struct ValueHint {
  std::string value;
  std::string help;  // such as the code's name; may be empty
};

class ValueHints {
 public:
  using Source = std::function<std::vector<ValueHint>()>;

  static ValueHints& Instance();

  // For every value token with this text ("<value>") and this help line; an empty
  // `help` stands for any help line. The closer one counts.
  void Offer(const std::string& token, const std::string& help, Source source);

  // Empty for a token that nobody knows values for.
  std::vector<ValueHint> For(const Token& token) const;

 private:
  std::map<std::pair<std::string, std::string>, Source> _sources;
};

}  // namespace olt_host

#endif  // OLT_HOST_VTY_VALUE_HINTS_H
