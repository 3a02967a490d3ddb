// A command's syntax as a graph of tokens: which token may follow which, and
// after which the line may end. Groups are written out as often as they may be
// repeated, so that a matcher only ever follows edges.
#ifndef OLT_HOST_VTY_GRAMMAR_H
#define OLT_HOST_VTY_GRAMMAR_H

#include <cstddef>
#include <vector>

#include "vty/syntax.h"

namespace olt_host {

struct GrammarVertex {
  Token token;
  std::vector<std::size_t> next;  // vertices that may follow, the nearer group first
  bool may_end = false;           // whether the line may end behind this token
};

struct Grammar {
  std::vector<GrammarVertex> vertices;
  std::vector<std::size_t> first;  // vertices with which a line begins
};

// REQUIRES: `syntax` was read without an error. The grammar has no vertices when
// its groups, nested and repeated, would make more than 4096 of them.
Grammar BuildGrammar(const Syntax& syntax);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_GRAMMAR_H
