// A condition on what an ONU type can do:
//
//   lan>=4 and pots>=2 and capa=hgu
//   not (wifi_5g = 0 or vendor = ZKWM)
//
// Abilities are called as AbilityNames knows them. Numbers compare by = != < <= > >=,
// texts by = and !=, and by ~ for a text that contains, in capitals or not. A profile
// reads as ability_reading.h says. `not` binds closest, then `and`, then `or`.
#ifndef OLT_HOST_RECOGNITION_TYPE_EXPRESSION_H
#define OLT_HOST_RECOGNITION_TYPE_EXPRESSION_H

#include <cstdint>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"
#include "recognition/ability_names.h"
#include "recognition/expression_words.h"

namespace olt_host {

class TypeExpression {
 public:
  // Throws ExpressionError for the first thing that is wrong.
  TypeExpression(const std::string& expression, const AbilityNames& names);

  bool Holds(const OnuAbilityProfile& profile) const { return Holds(_nodes.back(), profile); }
  // The abilities that it asks about, each once, in the order of the text.
  const std::vector<NamedAbility>& abilities() const { return _abilities; }

 private:
  friend class TypeExpressionParser;

  enum class Kind { kAnd, kOr, kNot, kNumber, kText };
  enum class Relation {
    kEqual,
    kNotEqual,
    kLess,
    kLessOrEqual,
    kGreater,
    kGreaterOrEqual,
    kContains
  };
  struct Node {
    Kind kind = Kind::kNumber;
    std::size_t left = 0;  // places among the nodes; `right` of and, or
    std::size_t right = 0;
    std::uint16_t code = 0;  // of a comparison
    Relation relation = Relation::kEqual;
    std::uint32_t number = 0;
    std::string text;
  };

  bool Holds(const Node& node, const OnuAbilityProfile& profile) const;
  static bool NumberHolds(const Node& node, std::uint32_t held);
  static bool TextHolds(const Node& node, const std::string& held);

  std::vector<Node> _nodes;  // the last is the whole
  std::vector<NamedAbility> _abilities;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_TYPE_EXPRESSION_H
