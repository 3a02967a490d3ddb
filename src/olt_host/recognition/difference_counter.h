// Counts, ONU by ONU, what becomes otherwise between two libraries.
#ifndef OLT_HOST_RECOGNITION_DIFFERENCE_COUNTER_H
#define OLT_HOST_RECOGNITION_DIFFERENCE_COUNTER_H

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "recognition/population_difference.h"

namespace olt_host {

// The type names of both libraries.
struct NamesOfBoth {
  const NamesByKey& before;
  const NamesByKey& after;
};

class DifferenceCounter {
 public:
  // `report` is kept with a group of which the ONU is the first example.
  void Count(const OnuAddress& address, const OnuOutcome& before, const OnuOutcome& after,
             const NamesOfBoth& names, std::string_view report = {});
  // A difference between the same two libraries, of other ONUs.
  void Add(const PopulationDifference& difference);

  PopulationDifference Difference() const;

 private:
  // What puts two changes, and two ONUs decided by luck, into one group.
  using ChangeKey = std::tuple<OnuChange, long, long, std::uint64_t, std::uint64_t>;
  using PatternKey = std::tuple<std::uint32_t, unsigned int, std::uint16_t>;
  using LuckGroups = std::map<std::pair<PatternKey, PatternKey>, LuckGroup>;

  static ChangeKey KeyOf(const ChangeGroup& group);
  void AddGroup(const ChangeGroup& group);
  static void AddGroup(const LuckGroup& group, LuckGroups& groups);
  static void CountLuck(const OnuAddress& address, const OnuOutcome& onu, const NamesByKey& names,
                        LuckGroups& groups);
  static Luck LuckOf(const LuckGroups& groups);

  std::size_t _onus = 0;
  std::map<ChangeKey, ChangeGroup> _changes;
  LuckGroups _luck_before;
  LuckGroups _luck_after;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_DIFFERENCE_COUNTER_H
