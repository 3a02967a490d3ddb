// The names by which an operator may call an ability code: its number, its name in
// capitals or not, a short word for the codes that the library itself knows, the first
// words or letters of a name as long as they fit no other.
//
// By the code registry as it was when this was made.
#ifndef OLT_HOST_RECOGNITION_ABILITY_NAMES_H
#define OLT_HOST_RECOGNITION_ABILITY_NAMES_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace olt_host {

struct NamedAbility {
  std::uint16_t code = 0;
  std::string name;
  bool holds_text = false;
};

class AbilityNames {
 public:
  // All codes of the registry.
  AbilityNames();

  // The ability that `text` calls. Null when there is none, or several: `problem` and
  // `expectation` then say so.
  const NamedAbility* Find(const std::string& text, std::string& problem,
                           std::string& expectation) const;
  // Null for a code that is not registered.
  const NamedAbility* Find(std::uint16_t code) const;

  // The short words and the codes that they stand for.
  static const std::vector<std::pair<std::string, std::uint16_t>>& ShortWords();

 private:
  std::vector<const NamedAbility*> Called(const std::string& text) const;

  std::vector<NamedAbility> _abilities;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_ABILITY_NAMES_H
