#include "vty/grammar.h"

#include <algorithm>

namespace olt_host {
namespace {

constexpr std::size_t kMostVertices = 4096;

// What may come behind an item: some vertices, or the end of the line.
struct Follow {
  std::vector<std::size_t> next;
  bool may_end = false;
};

void Include(Follow& follow, const Follow& other) {
  for (const std::size_t vertex : other.next) {
    if (std::find(follow.next.begin(), follow.next.end(), vertex) == follow.next.end()) {
      follow.next.push_back(vertex);
    }
  }
  follow.may_end = follow.may_end || other.may_end;
}

// Builds from the end of the line backwards: each item is given what follows it
// and returns what may stand in its own place.
class GrammarBuilder {
 public:
  Grammar Run(const Syntax& syntax) {
    const Follow begin = AddSequence(syntax.items, Follow{{}, true});
    _grammar.first = begin.next;
    return _too_large ? Grammar() : _grammar;
  }

 private:
  Follow AddSequence(const std::vector<SyntaxNode>& items, Follow follow) {
    for (auto item = items.rbegin(); item != items.rend(); ++item) follow = AddItem(*item, follow);
    return follow;
  }

  Follow AddItem(const SyntaxNode& item, const Follow& follow) {
    switch (item.kind) {
      case SyntaxNode::kChoice:
        return AddChoice(item, follow);
      case SyntaxNode::kGroup:
        return AddGroup(item, follow);
      case SyntaxNode::kToken:
        break;
    }
    if (_grammar.vertices.size() == kMostVertices) {
      _too_large = true;
      return follow;
    }
    _grammar.vertices.push_back(GrammarVertex{item.token, follow.next, follow.may_end});
    return Follow{{_grammar.vertices.size() - 1}, false};
  }

  Follow AddChoice(const SyntaxNode& choice, const Follow& follow) {
    Follow any;
    for (const SyntaxNode& alternative : choice.children)
      Include(any, AddItem(alternative, follow));
    return any;
  }

  // At most n times is: nothing, or once and then at most n - 1 times.
  Follow AddGroup(const SyntaxNode& group, const Follow& follow) {
    Follow rest = follow;
    for (unsigned int i = 0; i < group.repeat && !_too_large; ++i) {
      Follow once_more = AddSequence(group.children, rest);
      Include(once_more, follow);
      rest = once_more;
    }
    return rest;
  }

  Grammar _grammar;
  bool _too_large = false;
};

}  // namespace

Grammar BuildGrammar(const Syntax& syntax) { return GrammarBuilder().Run(syntax); }

}  // namespace olt_host
