#include "recognition/type_expression.h"

#include <algorithm>
#include <charconv>

#include "catalogue/input_error.h"
#include "catalogue/nearest_name.h"
#include "recognition/ability_reading.h"
#include "recognition/letter_case.h"
#include "text/number.h"

namespace olt_host {

namespace {

using Kind = ExpressionWordKind;

bool IsKeyword(const ExpressionWord& word, const char* keyword) {
  return word.kind == Kind::kText && LowerCase(word.text) == keyword;
}

// Decimal or with 0x, up to 4294967295.
bool ReadUnsigned(const std::string& text, std::uint32_t& number) {
  const bool hexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
  if (!hexadecimal) return ReadNumber(text, number);
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data() + 2, end, number, 16);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

class TypeExpressionParser {
 public:
  TypeExpressionParser(const std::string& expression, const AbilityNames& names,
                       TypeExpression& result)
      : _expression(expression),
        _names(names),
        _result(result),
        _words(CutExpression(expression)) {}

  void Run() {
    if (Word().kind == Kind::kEnd) {
      Fail(Word(), "the expression is empty", "a comparison such as lan>=4");
    }
    // Reading and asking go as deep as the expression is long.
    constexpr std::size_t kMostWords = 2000;
    if (_words.size() > kMostWords) Fail(_words[kMostWords], "too long", "at most 2000 words");
    ReadOr();
    if (Word().kind == Kind::kClose) {
      Fail(Word(), "this parenthesis closes nothing", "one that is opened before");
    }
    if (Word().kind != Kind::kEnd) FailBehindComparison();
  }

 private:
  using Node = TypeExpression::Node;
  using NodeKind = TypeExpression::Kind;
  using Relation = TypeExpression::Relation;

  const ExpressionWord& Word() const { return _words[_next]; }

  [[noreturn]] void Fail(const ExpressionWord& word, const std::string& problem,
                         const std::string& expectation) const {
    throw ExpressionError(_expression, word.at, problem, expectation);
  }

  static std::string Named(const ExpressionWord& word) {
    return word.kind == Kind::kEnd ? "the expression ends" : Quoted(word.text) + " stands";
  }

  [[noreturn]] void FailBehindComparison() const {
    const std::string nearest =
        Word().kind == Kind::kText ? NearestName(Word().text, {"and", "or"}) : "";
    const std::string hint = _after_text ? " (a text with blanks stands in quotes)" : "";
    Fail(Word(), Quoted(Word().text) + " stands behind a comparison",
         nearest.empty() ? "and, or, or the end" + hint : Quoted(nearest));
  }

  std::size_t Add(const Node& node) {
    _result._nodes.push_back(node);
    return _result._nodes.size() - 1;
  }

  std::size_t ReadOr() {
    std::size_t left = ReadAnd();
    while (IsKeyword(Word(), "or")) {
      ++_next;
      left = Join(NodeKind::kOr, left, ReadAnd());
    }
    return left;
  }

  std::size_t ReadAnd() {
    std::size_t left = ReadNot();
    while (IsKeyword(Word(), "and")) {
      ++_next;
      left = Join(NodeKind::kAnd, left, ReadNot());
    }
    return left;
  }

  std::size_t Join(NodeKind kind, std::size_t left, std::size_t right) {
    Node node;
    node.kind = kind;
    node.left = left;
    node.right = right;
    return Add(node);
  }

  std::size_t ReadNot() {
    constexpr unsigned int kDeepest = 100;
    if (++_depth > kDeepest) Fail(Word(), "too deep", "at most 100 not and parentheses in one");
    std::size_t read = 0;
    if (IsKeyword(Word(), "not")) {
      ++_next;
      read = Join(NodeKind::kNot, ReadNot(), 0);
    } else if (Word().kind == Kind::kOpen) {
      read = ReadParentheses();
    } else {
      read = ReadComparison();
    }
    --_depth;
    return read;
  }

  std::size_t ReadParentheses() {
    const ExpressionWord& opened = _words[_next++];
    const std::size_t read = ReadOr();
    if (Word().kind == Kind::kEnd) Fail(opened, "the parenthesis is not closed", "a )");
    if (Word().kind != Kind::kClose) FailBehindComparison();
    ++_next;
    _after_text = false;
    return read;
  }

  std::size_t ReadComparison() {
    if (Word().kind != Kind::kText) {
      Fail(Word(), Named(Word()) + " where a comparison must stand", "the name of an ability");
    }
    for (const char* keyword : {"and", "or"}) {
      if (IsKeyword(Word(), keyword)) {
        Fail(Word(), Named(Word()) + " where a comparison must stand", "the name of an ability");
      }
    }
    std::string problem;
    std::string expectation;
    const NamedAbility* ability = _names.Find(Word().text, problem, expectation);
    if (ability == nullptr) Fail(Word(), problem, expectation);
    ++_next;
    NoteAbility(*ability);
    Node node;
    node.kind = ability->holds_text ? NodeKind::kText : NodeKind::kNumber;
    node.code = ability->code;
    node.relation = ReadRelation(*ability);
    ReadValue(*ability, node);
    return Add(node);
  }

  void NoteAbility(const NamedAbility& ability) {
    std::vector<NamedAbility>& noted = _result._abilities;
    const bool known = std::any_of(noted.begin(), noted.end(), [&ability](const auto& other) {
      return other.code == ability.code;
    });
    if (!known) noted.push_back(ability);
  }

  Relation ReadRelation(const NamedAbility& ability) {
    static const std::pair<const char*, Relation> relations[] = {
        {"=", Relation::kEqual},   {"!=", Relation::kNotEqual},
        {"<", Relation::kLess},    {"<=", Relation::kLessOrEqual},
        {">", Relation::kGreater}, {">=", Relation::kGreaterOrEqual},
        {"~", Relation::kContains}};
    const std::string expectation = ability.holds_text ? "=, != or ~" : "=, !=, <, <=, > or >=";
    if (Word().kind != Kind::kOperator) {
      Fail(Word(), Named(Word()) + " behind " + ability.name, expectation);
    }
    const bool fits_text = Word().text == "=" || Word().text == "!=" || Word().text == "~";
    if (ability.holds_text ? !fits_text : Word().text == "~") {
      Fail(Word(),
           ability.name + " holds " + (ability.holds_text ? "a text" : "a number") +
               ", which has no " + Word().text,
           expectation);
    }
    const ExpressionWord& word = _words[_next++];
    for (const auto& [text, relation] : relations) {
      if (word.text == text) return relation;
    }
    throw std::logic_error("an operator that nobody knows");
  }

  void ReadValue(const NamedAbility& ability, Node& node) {
    const ExpressionWord& word = Word();
    const bool is_capability = ability.code == ONU_ABILITY_CODE_ONU_CAPA;
    const std::string expectation = ability.holds_text ? "a text"
                                    : is_capability    ? "sfu, hgu or a number"
                                                       : "a number from 0 to 4294967295";
    if (word.kind != Kind::kText && word.kind != Kind::kQuoted) {
      Fail(word, Named(word) + " where a value of " + ability.name + " must stand", expectation);
    }
    ++_next;
    _after_text = ability.holds_text;
    if (ability.holds_text) {
      node.text = node.relation == Relation::kContains ? LowerCase(word.text) : word.text;
    } else if (is_capability && (LowerCase(word.text) == "sfu" || LowerCase(word.text) == "hgu")) {
      node.number = LowerCase(word.text) == "hgu" ? 1 : 0;
    } else if (!ReadUnsigned(word.text, node.number)) {
      Fail(word, ability.name + " is compared with " + Quoted(word.text), expectation);
    }
  }

  const std::string& _expression;
  const AbilityNames& _names;
  TypeExpression& _result;
  std::vector<ExpressionWord> _words;
  std::size_t _next = 0;
  unsigned int _depth = 0;
  bool _after_text = false;  // whether the last comparison was with a text
};

TypeExpression::TypeExpression(const std::string& expression, const AbilityNames& names) {
  TypeExpressionParser(expression, names, *this).Run();
}

bool TypeExpression::NumberHolds(const Node& node, std::uint32_t held) {
  switch (node.relation) {
    case Relation::kEqual:
      return held == node.number;
    case Relation::kNotEqual:
      return held != node.number;
    case Relation::kLess:
      return held < node.number;
    case Relation::kLessOrEqual:
      return held <= node.number;
    case Relation::kGreater:
      return held > node.number;
    case Relation::kGreaterOrEqual:
      return held >= node.number;
    case Relation::kContains:
      break;
  }
  return false;
}

bool TypeExpression::TextHolds(const Node& node, const std::string& held) {
  if (node.relation == Relation::kContains) {
    return LowerCase(held).find(node.text) != std::string::npos;
  }
  return (held == node.text) == (node.relation == Relation::kEqual);
}

bool TypeExpression::Holds(const Node& node, const OnuAbilityProfile& profile) const {
  switch (node.kind) {
    case Kind::kAnd:
      return Holds(_nodes[node.left], profile) && Holds(_nodes[node.right], profile);
    case Kind::kOr:
      return Holds(_nodes[node.left], profile) || Holds(_nodes[node.right], profile);
    case Kind::kNot:
      return !Holds(_nodes[node.left], profile);
    case Kind::kNumber:
      return NumberHolds(node, NumberUnder(profile, node.code));
    case Kind::kText:
      return TextHolds(node, TextUnder(profile, node.code));
  }
  return false;
}

}  // namespace olt_host
