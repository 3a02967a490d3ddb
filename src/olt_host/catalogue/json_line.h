// Checked reading of JSON that stands on one line: values that know where they stand and
// what they are, and turn everything that does not fit into an InputError.
//
// Made for millions of lines: what a line holds lies in buffers that the next one takes
// over. Texts are bytes; whether they are UTF-8 is not looked at.
#ifndef OLT_HOST_CATALOGUE_JSON_LINE_H
#define OLT_HOST_CATALOGUE_JSON_LINE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/input_error.h"

namespace olt_host {

enum class JsonKind : std::uint8_t { kNull, kTrue, kFalse, kNumber, kText, kList, kMap };

// A value as it stands in the line, those within a list or map right behind it.
struct JsonNode {
  std::string_view text;   // of a number as written, of a text without its escapes
  std::size_t within = 0;  // nodes within, keys and theirs included
  JsonKind kind = JsonKind::kNull;

  const JsonNode* Behind() const { return this + 1 + within; }
};

// A value; cheap to copy, and no longer of use once its line is gone.
class JsonValue {
 public:
  JsonValue() = default;
  // `name` says in messages what the value is.
  JsonValue(const JsonNode& node, std::string_view name, const SourcePosition& position)
      : _node(&node), _name(name), _position(&position) {}

  // Whether there is a value at all.
  explicit operator bool() const { return _node != nullptr; }
  std::string_view Name() const { return _name; }
  const SourcePosition& Position() const { return *_position; }
  // The value as it stands, for messages: "a list", "70000", "\"abc\"".
  std::string Description() const;
  [[noreturn]] void Fail(const std::string& problem, const std::string& expectation) const;
  // Fails with "NAME is VALUE".
  [[noreturn]] void FailValue(const std::string& expectation) const;

  bool IsNull() const { return _node->kind == JsonKind::kNull; }
  // The text, "" when it is none: whether it is one of the words that a caller knows.
  std::string_view Word() const;
  // A number from `min` to `max` in plain digits. `words` ends the expectation with what
  // else the caller takes, such as " or unknown".
  std::uint32_t Number(std::uint32_t min, std::uint32_t max, const char* words = "") const;
  std::uint16_t Number16(std::uint16_t min, std::uint16_t max, const char* words = "") const;
  bool Flag() const;
  // A text without control characters, and of at most `max_bytes` bytes.
  std::string_view Text(const std::string& expectation = "a text") const;
  std::string_view TextUpTo(std::size_t max_bytes) const;
  // What a buffer of so many bytes holds: a text, and behind its terminator anything.
  std::string_view BufferUpTo(std::size_t max_bytes) const;

  // Calls `visit` with each member of a list, which are named `item_name`.
  template <typename Visit>
  void ForEachItem(std::string_view item_name, const Visit& visit) const {
    CheckKind(JsonKind::kList, "a list");
    for (const JsonNode* item = _node + 1; item != _node->Behind(); item = item->Behind()) {
      visit(JsonValue(*item, item_name, *_position));
    }
  }
  // Calls `visit` with each value of a map, named as its key. Keys may come twice.
  template <typename Visit>
  void ForEachEntry(const char* expectation, const Visit& visit) const {
    CheckKind(JsonKind::kMap, expectation);
    for (const JsonNode* key = _node + 1; key != _node->Behind(); key = (key + 1)->Behind()) {
      visit(JsonValue(*(key + 1), key->text, *_position));
    }
  }

 private:
  void CheckKind(JsonKind kind, const char* expectation) const;

  const JsonNode* _node = nullptr;
  std::string_view _name;
  const SourcePosition* _position = nullptr;
};

class JsonLine {
 public:
  // The value of the line, called `name`, for as long as neither is `position` gone nor
  // another line parsed.
  JsonValue Parse(std::string_view line, std::string_view name, const SourcePosition& position);

 private:
  std::string _bytes;
  std::vector<JsonNode> _nodes;
};

// What is wrong with a key that a map does not know, or that stands twice in it.
[[noreturn]] void FailKey(const JsonValue& map, std::string_view key, bool twice,
                          const std::vector<std::string>& known);

// The entries of a map that has these keys and no others, each only once.
template <std::size_t kCount>
class JsonMap {
 public:
  using Keys = std::array<const char*, kCount>;

  JsonMap(const JsonValue& map, const Keys& keys) : _map(map), _keys(keys) {
    std::size_t expected = 0;  // lines are alike, and mostly have their keys in order
    map.ForEachEntry("a map", [&](const JsonValue& value) {
      std::size_t tried = 0;
      while (tried < kCount && keys[expected] != value.Name()) {
        expected = (expected + 1) % kCount;
        ++tried;
      }
      if (tried == kCount || _values[expected]) {
        FailKey(map, value.Name(), tried < kCount, {keys.begin(), keys.end()});
      }
      _values[expected] = value;
      expected = (expected + 1) % kCount;
    });
  }

  // By the key's place among the keys; there may be no value.
  const JsonValue& Find(std::size_t key) const { return _values[key]; }
  // The value of a key that must be there; `expectation` says what belongs in it.
  const JsonValue& Get(std::size_t key, const char* expectation) const {
    if (!_values[key]) {
      _map.Fail(std::string(_map.Name()) + " has no " + Quoted(_keys[key]), expectation);
    }
    return _values[key];
  }

 private:
  const JsonValue& _map;
  const Keys& _keys;
  std::array<JsonValue, kCount> _values;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_JSON_LINE_H
