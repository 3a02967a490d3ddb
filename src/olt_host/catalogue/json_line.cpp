#include "catalogue/json_line.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cctype>

#include "catalogue/nearest_name.h"
#include "catalogue/scalar_text.h"

namespace olt_host {

namespace {

// Deeper than anything that a report has, and far from what a stack holds.
constexpr std::size_t kMostLevels = 8;

const char* const kExpectedLine = "one JSON object a line";

// Lays the values of a line down in the order in which they stand.
class NodeWriter : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, NodeWriter> {
 public:
  explicit NodeWriter(std::vector<JsonNode>& nodes) : _nodes(nodes) {}

  bool IsTooDeep() const { return _levels == kMostLevels; }

  bool Null() { return Add(JsonKind::kNull); }
  bool Bool(bool value) { return Add(value ? JsonKind::kTrue : JsonKind::kFalse); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool /*copy*/) {
    return Add(JsonKind::kNumber, {text, size});
  }
  bool String(const char* text, rapidjson::SizeType size, bool /*copy*/) {
    return Add(JsonKind::kText, {text, size});
  }
  bool Key(const char* text, rapidjson::SizeType size, bool copy) {
    return String(text, size, copy);
  }
  bool StartObject() { return Open(JsonKind::kMap); }
  bool EndObject(rapidjson::SizeType /*members*/) { return Close(); }
  bool StartArray() { return Open(JsonKind::kList); }
  bool EndArray(rapidjson::SizeType /*elements*/) { return Close(); }

 private:
  bool Add(JsonKind kind, std::string_view text = {}) {
    _nodes.push_back({text, 0, kind});
    return true;
  }
  bool Open(JsonKind kind) {
    if (IsTooDeep()) return false;
    _open[_levels++] = _nodes.size();
    return Add(kind);
  }
  bool Close() {
    const std::size_t opened = _open[--_levels];
    _nodes[opened].within = _nodes.size() - opened - 1;
    return true;
  }

  std::vector<JsonNode>& _nodes;
  std::array<std::size_t, kMostLevels> _open = {};
  std::size_t _levels = 0;
};

// The second half of a character without its first: the parser would make bytes of it that
// are no character. The first without the second it refuses itself.
bool HasLoneSecondHalf(std::string_view line) {
  const auto unit = [line](std::size_t at) {
    return line.substr(at, 2) == "\\u" && line.size() >= at + 6
               ? ParseNumber("0x" + std::string(line.substr(at + 2, 4))).value_or(0)
               : 0;
  };
  std::size_t at = line.find('\\');
  while (at != std::string_view::npos) {
    const std::uint64_t half = unit(at) & 0xFC00U;
    if (half == 0xDC00U) return true;
    at = line.find('\\', at + (half == 0xD800U ? 12 : 2));
  }
  return false;
}

[[noreturn]] void FailBroken(const rapidjson::ParseResult& result, std::string_view line,
                             const SourcePosition& position) {
  const std::string place = " at byte " + std::to_string(result.Offset() + 1);
  const bool at_control =
      result.Code() == rapidjson::kParseErrorStringEscapeInvalid && line[result.Offset()] != '\\';
  std::string reason = at_control ? "Control character in a text" : GetParseError_En(result.Code());
  if (reason.back() == '.') reason.pop_back();
  throw InputError(position, "is broken JSON: " + reason + place, kExpectedLine);
}

void CheckBytes(std::string_view line, const SourcePosition& position) {
  if (line.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    throw InputError(position, "is empty", kExpectedLine);
  }
  if (line.substr(0, 3) == "\xEF\xBB\xBF") {
    throw InputError(position, "begins with a byte order mark", kExpectedLine);
  }
  const std::size_t zero = line.find('\0');
  if (zero != std::string_view::npos) {
    throw InputError(position, "has a zero byte at byte " + std::to_string(zero + 1),
                     "\\u0000 in its place");
  }
  if (HasLoneSecondHalf(line)) {
    throw InputError(position, "has the second half of a \\u pair alone", "both halves");
  }
}

}  // namespace

std::string JsonValue::Description() const {
  constexpr std::size_t kMostDigits = 40;
  switch (_node->kind) {
    case JsonKind::kNull:
      return "empty";
    case JsonKind::kTrue:
      return "true";
    case JsonKind::kFalse:
      return "false";
    case JsonKind::kNumber:
      return std::string(_node->text.substr(0, kMostDigits)) +
             (_node->text.size() > kMostDigits ? "..." : "");
    case JsonKind::kText:
      return Quoted(std::string(_node->text));
    case JsonKind::kList:
      return "a list";
    case JsonKind::kMap:
      break;
  }
  return "a map";
}

void JsonValue::Fail(const std::string& problem, const std::string& expectation) const {
  throw InputError(*_position, problem, expectation);
}

void JsonValue::FailValue(const std::string& expectation) const {
  Fail(std::string(_name) + " is " + Description(), expectation);
}

void JsonValue::CheckKind(JsonKind kind, const char* expectation) const {
  if (_node->kind != kind) FailValue(expectation);
}

std::string_view JsonValue::Word() const {
  return _node->kind == JsonKind::kText ? _node->text : std::string_view();
}

std::uint32_t JsonValue::Number(std::uint32_t min, std::uint32_t max, const char* words) const {
  const auto value = _node->kind == JsonKind::kNumber ? ParseNumber(_node->text) : std::nullopt;
  if (!value || *value < min || *value > max) {
    FailValue("a number from " + std::to_string(min) + " to " + std::to_string(max) + words);
  }
  return static_cast<std::uint32_t>(*value);
}

std::uint16_t JsonValue::Number16(std::uint16_t min, std::uint16_t max, const char* words) const {
  return static_cast<std::uint16_t>(Number(min, max, words));
}

bool JsonValue::Flag() const {
  if (_node->kind != JsonKind::kTrue && _node->kind != JsonKind::kFalse) FailValue("true or false");
  return _node->kind == JsonKind::kTrue;
}

std::string_view JsonValue::Text(const std::string& expectation) const {
  if (_node->kind != JsonKind::kText) FailValue(expectation);
  if (HasControlCharacter(_node->text)) FailValue(expectation + " without control characters");
  return _node->text;
}

std::string_view JsonValue::TextUpTo(std::size_t max_bytes) const {
  if (_node->text.size() <= max_bytes && _node->kind == JsonKind::kText &&
      !HasControlCharacter(_node->text)) {
    return _node->text;
  }
  const std::string expectation = "a text of at most " + std::to_string(max_bytes) + " bytes";
  const std::string_view text = Text(expectation);
  Fail(std::string(_name) + " " + Description() + " has " + std::to_string(text.size()) + " bytes",
       expectation);
}

std::string_view JsonValue::BufferUpTo(std::size_t max_bytes) const {
  const std::size_t terminator = Word().find('\0');
  if (terminator == std::string_view::npos || _node->text.size() > max_bytes) {
    return TextUpTo(max_bytes);
  }
  if (HasControlCharacter(_node->text.substr(0, terminator))) {
    FailValue("a text without control characters, and bytes behind \"\\u0000\" only");
  }
  return _node->text;
}

JsonValue JsonLine::Parse(std::string_view line, std::string_view name,
                          const SourcePosition& position) {
  CheckBytes(line, position);
  _bytes.assign(line);
  _nodes.clear();
  NodeWriter writer(_nodes);
  rapidjson::InsituStringStream stream(_bytes.data());
  rapidjson::Reader reader;
  const rapidjson::ParseResult result =
      reader.Parse<rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag>(stream,
                                                                                        writer);
  if (result.Code() == rapidjson::kParseErrorTermination && writer.IsTooDeep()) {
    throw InputError(position, "is nested more than " + std::to_string(kMostLevels) + " deep",
                     kExpectedLine);
  }
  if (result.IsError()) FailBroken(result, line, position);
  return {_nodes.front(), name, position};
}

void FailKey(const JsonValue& map, std::string_view key, bool twice,
             const std::vector<std::string>& known) {
  const std::string name(key);
  if (twice) {
    map.Fail(Quoted(name) + " stands twice in " + std::string(map.Name()), "every key once");
  }
  throw UnknownNameError(map.Position(),
                         Quoted(name) + " is not a key of " + std::string(map.Name()),
                         ExpectedName(name, known));
}

}  // namespace olt_host
