#include "catalogue/yaml_view.h"

#include <algorithm>

#include "catalogue/nearest_name.h"
#include "catalogue/scalar_text.h"

namespace olt_host {

namespace {

unsigned int LineOf(const YAML::Node& node, unsigned int otherwise) {
  const YAML::Mark mark = node.Mark();
  return mark.is_null() || node.IsNull() ? otherwise : static_cast<unsigned int>(mark.line) + 1;
}

}  // namespace

YamlView::YamlView(const YAML::Node& node, std::string name,
                   std::shared_ptr<const std::string> file, unsigned int line)
    : _node(node), _name(std::move(name)), _file(std::move(file)), _line(LineOf(_node, line)) {}

SourcePosition YamlView::Position() const { return {*_file, _line}; }

YamlView YamlView::Named(std::string name) const {
  YamlView view = *this;
  view._name = std::move(name);
  return view;
}

bool YamlView::IsPlainScalar() const {
  // yaml-cpp tags a scalar in quotes with "!" and a plain one with "?".
  return _node.IsScalar() && _node.Tag() != "!";
}

std::string YamlView::Description() const {
  if (_node.IsMap()) {
    return "a map";
  }
  if (_node.IsSequence()) {
    return "a list";
  }
  if (!_node.IsScalar()) {
    return "empty";
  }
  const std::string text = _node.Scalar();
  const std::string digits = text.substr(0, 1) == "-" ? text.substr(1) : text;
  return IsPlainScalar() && ParseNumber(digits) ? text : Quoted(text);
}

void YamlView::Fail(const std::string& problem, const std::string& expectation) const {
  throw InputError(Position(), problem, expectation);
}

void YamlView::FailUnknown(const std::string& problem, const std::string& expectation) const {
  throw UnknownNameError(Position(), problem, expectation);
}

void YamlView::FailValue(const std::string& expectation) const {
  Fail(_name + " is " + Description(), expectation);
}

bool YamlView::IsWord(const std::string& word) const {
  return IsPlainScalar() && _node.Scalar() == word;
}

std::string YamlView::Word() const { return IsPlainScalar() ? _node.Scalar() : ""; }

bool YamlView::LooksLikeNumber() const {
  return IsPlainScalar() && ParseNumber(_node.Scalar()).has_value();
}

std::uint32_t YamlView::Number(std::uint32_t min, std::uint32_t max,
                               const std::string& words) const {
  const auto value = IsPlainScalar() ? ParseNumber(_node.Scalar()) : std::nullopt;
  if (!value || *value < min || *value > max) {
    FailValue("a number from " + std::to_string(min) + " to " + std::to_string(max) + words);
  }
  return static_cast<std::uint32_t>(*value);
}

std::uint16_t YamlView::Number16(std::uint16_t min, std::uint16_t max,
                                 const std::string& words) const {
  return static_cast<std::uint16_t>(Number(min, max, words));
}

bool YamlView::Flag() const {
  if (!IsWord("true") && !IsWord("false")) {
    FailValue("true or false");
  }
  return IsWord("true");
}

std::string YamlView::Text(const std::string& expectation) const {
  if (!_node.IsScalar()) {
    FailValue(expectation);
  }
  if (HasControlCharacter(_node.Scalar())) {
    FailValue(expectation + " without control characters");
  }
  return _node.Scalar();
}

std::string YamlView::BufferUpTo(std::size_t max_bytes) const {
  const std::size_t terminator = _node.IsScalar() ? _node.Scalar().find('\0') : std::string::npos;
  if (terminator == std::string::npos || _node.Scalar().size() > max_bytes) {
    return TextUpTo(max_bytes);
  }
  if (HasControlCharacter(std::string_view(_node.Scalar()).substr(0, terminator))) {
    FailValue("a text without control characters, and bytes behind \"\\0\" only");
  }
  return _node.Scalar();
}

std::string YamlView::TextUpTo(std::size_t max_bytes) const {
  const std::string expectation = "a text of at most " + std::to_string(max_bytes) + " bytes";
  std::string text = Text(expectation);
  if (text.size() > max_bytes) {
    Fail(_name + " " + Quoted(text) + " has " + std::to_string(text.size()) + " bytes",
         expectation);
  }
  return text;
}

std::vector<std::pair<YamlView, YamlView>> YamlView::Entries(const std::string& expectation) const {
  if (!_node.IsMap()) {
    FailValue(expectation);
  }
  std::vector<std::pair<YamlView, YamlView>> entries;
  std::map<std::string, unsigned int> seen;
  for (const auto& entry : _node) {
    const YamlView key(entry.first, "a key of " + _name, _file, _line);
    const std::string text = key.Text("a word");
    const auto [earlier, is_new] = seen.emplace(text, key._line);
    if (!is_new) {
      key.Fail(Quoted(text) + " stands twice in " + _name + ", first in line " +
                   std::to_string(earlier->second),
               "every key once");
    }
    entries.emplace_back(key, YamlView(entry.second, text, _file, key._line));
  }
  return entries;
}

YamlMap YamlView::Map(const std::vector<std::string>& known) const {
  std::vector<std::pair<std::string, YamlView>> values;
  for (const auto& [key, value] : Entries("a map")) {
    const std::string& text = value.Name();
    if (std::find(known.begin(), known.end(), text) == known.end()) {
      key.FailUnknown(Quoted(text) + " is not a key of " + _name, ExpectedName(text, known));
    }
    values.emplace_back(text, value);
  }
  return YamlMap(*this, std::move(values));
}

std::string YamlView::ScalarOf(const std::string& key) const {
  if (!_node.IsMap()) {
    return "";
  }
  for (const auto& entry : _node) {
    if (entry.first.IsScalar() && entry.first.Scalar() == key && entry.second.IsScalar()) {
      return entry.second.Scalar();
    }
  }
  return "";
}

std::vector<YamlView> YamlView::Items(const std::string& item_name) const {
  if (!_node.IsSequence()) {
    FailValue("a list");
  }
  std::vector<YamlView> items;
  unsigned int line = _line;
  for (const auto& item : _node) {
    items.emplace_back(item, item_name, _file, line);
    line = items.back()._line;
  }
  return items;
}

YamlMap::YamlMap(YamlView view, std::vector<std::pair<std::string, YamlView>> values)
    : _view(std::move(view)), _values(std::move(values)) {}

std::optional<YamlView> YamlMap::Find(const std::string& key) const {
  for (const auto& [name, value] : _values) {
    if (name == key) {
      return value;
    }
  }
  return std::nullopt;
}

YamlView YamlMap::Get(const std::string& key, const std::string& expectation) const {
  const auto value = Find(key);
  if (!value) {
    _view.Fail(_view.Name() + " has no " + Quoted(key), expectation);
  }
  return *value;
}

}  // namespace olt_host
