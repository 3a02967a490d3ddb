// Checked reading of YAML: a view of one value that knows its file, its line
// and what it is, and turns everything that does not fit into an InputError.
//
// Views are cheap to copy and keep the document alive. One thread at a time: the
// nodes of a document share state.
#ifndef OLT_HOST_CATALOGUE_YAML_VIEW_H
#define OLT_HOST_CATALOGUE_YAML_VIEW_H

#include <yaml-cpp/yaml.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/input_error.h"

namespace olt_host {

class YamlMap;

class YamlView {
 public:
  // `name` says in messages what the value is. `line` counts where the value
  // itself has no place of its own, as an empty one.
  YamlView(const YAML::Node& node, std::string name, std::shared_ptr<const std::string> file,
           unsigned int line);

  SourcePosition Position() const;
  const std::string& Name() const { return _name; }
  // The same value under another name.
  YamlView Named(std::string name) const;

  // The value as it stands, for messages: "a list", "70000", "\"abc\"".
  std::string Description() const;
  [[noreturn]] void Fail(const std::string& problem, const std::string& expectation) const;
  // Fails for a name that means nothing here.
  [[noreturn]] void FailUnknown(const std::string& problem, const std::string& expectation) const;
  // Fails with "NAME is VALUE".
  [[noreturn]] void FailValue(const std::string& expectation) const;

  // Whether nothing stands there, or only null or ~.
  bool IsEmpty() const { return _node.IsNull(); }
  // Whether the value is this word, written without quotes.
  bool IsWord(const std::string& word) const;
  // The word that stands there without quotes, "" when it is none.
  std::string Word() const;
  // Whether the value is a number as Number takes them, whatever its range.
  bool LooksLikeNumber() const;

  // A number from `min` to `max`, decimal or with 0x. `words` ends the
  // expectation with what else the caller takes, such as " or unknown".
  std::uint32_t Number(std::uint32_t min, std::uint32_t max, const std::string& words = "") const;
  std::uint16_t Number16(std::uint16_t min, std::uint16_t max, const std::string& words = "") const;
  // true or false.
  bool Flag() const;
  // A text without control characters.
  std::string Text(const std::string& expectation = "a text") const;
  // A text of at most `max_bytes` bytes.
  std::string TextUpTo(std::size_t max_bytes) const;
  // What a buffer of so many bytes holds: a text, and behind its terminator anything.
  std::string BufferUpTo(std::size_t max_bytes) const;

  // A map with any keys, each only once, in the order of the file.
  std::vector<std::pair<YamlView, YamlView>> Entries(const std::string& expectation) const;
  // A map with no other keys than `known`.
  YamlMap Map(const std::vector<std::string>& known) const;
  // The scalar under `key` as it stands, "" when there is none; fails never.
  std::string ScalarOf(const std::string& key) const;
  // A list; its members are named `item_name`.
  std::vector<YamlView> Items(const std::string& item_name) const;

 private:
  bool IsPlainScalar() const;

  YAML::Node _node;
  std::string _name;
  std::shared_ptr<const std::string> _file;
  unsigned int _line;
};

// A map whose keys have been checked.
class YamlMap {
 public:
  YamlMap(YamlView view, std::vector<std::pair<std::string, YamlView>> values);

  std::optional<YamlView> Find(const std::string& key) const;
  // The value of a key that must be there; `expectation` says what belongs in it.
  YamlView Get(const std::string& key, const std::string& expectation) const;

 private:
  YamlView _view;
  std::vector<std::pair<std::string, YamlView>> _values;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_YAML_VIEW_H
