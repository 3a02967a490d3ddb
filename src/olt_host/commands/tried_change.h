// A change that an operator tries: lines that were run on the library and taken back at
// once, what the library would hold after them, and what that makes of the live ONUs.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_TRIED_CHANGE_H
#define OLT_HOST_COMMANDS_TRIED_CHANGE_H

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "onu_ability_common_table.h"
#include "recognition/population_difference.h"
#include "state/library_state.h"

namespace olt_host {

// Whether operators see no difference: what comparisons leave in profiles and what reading
// leaves in code records does not count.
bool SameForOperators(const LibraryState& a, const LibraryState& b);

struct TriedChange {
  // As it was before the first line, and as it is after the last one. The pending profiles
  // are the session's; null for none.
  std::shared_ptr<const LibraryState> base;
  std::shared_ptr<const OnuAbilityProfile> base_pending;
  std::shared_ptr<const LibraryState> wanted;
  std::shared_ptr<const OnuAbilityProfile> wanted_pending;
  std::size_t lines = 0;

  PopulationDifference difference;

  bool ChangesLibrary() const { return !SameForOperators(*base, *wanted); }
  // Whether the library and the session's pending profile are still as before the first
  // line.
  bool StillFits() const;
};

// Runs `change` on the library after the lines of `earlier` (null: none), confirms the
// population under both, and puts everything back: the library, the pending profile, also
// when `change` throws. Returns the lines together, or null when `change` returns false.
//
// REQUIRES: the session's pending profile is in the library; `earlier` StillFits.
std::shared_ptr<TriedChange> Try(const TriedChange* earlier, const Populations& populations,
                                 const std::function<bool()>& change);

// Makes the library and the session's pending profile what was tried. Throws
// std::runtime_error when the library did not take it; nothing is changed then.
// REQUIRES: it StillFits.
void Make(const TriedChange& tried);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_TRIED_CHANGE_H
