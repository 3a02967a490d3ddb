// Whether an operation may take a short way (an index, a value kept from before)
// instead of the plain walk through profiles and codes. Not for hosts.
//
// A short way gives the results, outputs and side effects of the walk, but not the
// log lines on the way. So it is open only while nobody listens to the levels of
// the lines that it would leave out.
#ifndef ONU_ABILITY_COMMON_GLOBAL_SHORT_WAYS_H
#define ONU_ABILITY_COMMON_GLOBAL_SHORT_WAYS_H

#include <atomic>

// The log mask, or every bit while all operations must walk: one word to test.
extern std::atomic<unsigned int> onu_ability_walked_levels;
extern std::atomic<bool> onu_ability_walks_only;

// A set of levels, as a mask.
template <typename... Level>
constexpr unsigned int LogLevels(Level... level) {
  return ((1U << level) | ...);
}

// True when nobody listens to any of these levels.
inline bool NobodyListensTo(unsigned int levels) {
  return (onu_ability_walked_levels.load(std::memory_order_relaxed) & levels) == 0;
}

// Closes every short way, or opens them again: the tests hold short ways and walks
// against each other, the benchmarks measure both. Results never depend on it.
void SetWalksOnly(bool walks_only);
inline bool WalksOnly() { return onu_ability_walks_only.load(std::memory_order_relaxed); }

#endif  // ONU_ABILITY_COMMON_GLOBAL_SHORT_WAYS_H
