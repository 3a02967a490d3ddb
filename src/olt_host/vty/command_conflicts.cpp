#include "vty/command_conflicts.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace olt_host {
namespace {

// Quoted, a word is no keyword of any command.
constexpr const char* kAnyName = "\"x\"";

std::string NumberOfBoth(const Token& one, const Token& other) {
  const unsigned int low = std::max(one.low, other.low);
  if (low <= std::min(one.high, other.high)) return std::to_string(low);
  return one.takes_name && other.takes_name ? kAnyName : "";
}

// A word that both tokens take; empty when there is none.
std::string WordOfBoth(const Token& one, const Token& other) {
  if (one.kind == TokenKind::kKeyword || other.kind == TokenKind::kKeyword) {
    return one.kind == other.kind && one.text == other.text ? one.text : "";
  }
  if (one.kind == TokenKind::kString && other.kind == TokenKind::kString) return kAnyName;
  if (one.kind == TokenKind::kString) return std::to_string(other.low);
  if (other.kind == TokenKind::kString) return std::to_string(one.low);
  return NumberOfBoth(one, other);
}

// Breadth first, so that the line found is a shortest one.
class Search {
 public:
  Search(const Grammar& one, const Grammar& other) : _one(one), _other(other) {}

  std::string Run() {
    std::size_t found = AddPairs(_one.first, _other.first, kNone);
    for (std::size_t at = 0; found == kNone && at < _places.size(); ++at) {
      // Copied: adding places moves them.
      const Place place = _places[at];
      found = AddPairs(_one.vertices[place.one].next, _other.vertices[place.other].next, at);
    }
    std::vector<std::string> words;
    for (; found != kNone; found = _places[found].from) words.push_back(_places[found].word);
    std::string line;
    for (auto word = words.rbegin(); word != words.rend(); ++word) {
      if (!line.empty()) line += ' ';
      line += *word;
    }
    return line;
  }

 private:
  // A vertex of each grammar that the same words lead to.
  struct Place {
    std::size_t one;
    std::size_t other;
    std::size_t from;  // the place before it
    std::string word;  // that led here
  };
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // The place among the new ones where the line may end, or kNone.
  std::size_t AddPairs(const std::vector<std::size_t>& ones, const std::vector<std::size_t>& others,
                       std::size_t from) {
    for (const std::size_t one : ones) {
      for (const std::size_t other : others) {
        if (_visited.count({one, other}) > 0) continue;
        std::string word = WordOfBoth(_one.vertices[one].token, _other.vertices[other].token);
        if (word.empty()) continue;
        _visited.emplace(one, other);
        _places.push_back(Place{one, other, from, std::move(word)});
        if (_one.vertices[one].may_end && _other.vertices[other].may_end) {
          return _places.size() - 1;
        }
      }
    }
    return kNone;
  }

  const Grammar& _one;
  const Grammar& _other;
  std::set<std::pair<std::size_t, std::size_t>> _visited;
  std::vector<Place> _places;
};

}  // namespace

std::string LineOfBoth(const Grammar& one, const Grammar& other) {
  return Search(one, other).Run();
}

}  // namespace olt_host
