// An entry of the catalogue for a group of unknown ONUs: a match profile that demands all
// that they reported, and a real profile with what they said that they can do; and which
// other ONUs that match profile would take.
//
// By the library as it is; on the thread that works with it. Nothing of it changes.
#ifndef OLT_HOST_RECOGNITION_PROPOSED_ENTRY_H
#define OLT_HOST_RECOGNITION_PROPOSED_ENTRY_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "confirmation/population.h"
#include "onu_ability_common_table.h"
#include "recognition/unknown_onus.h"

namespace olt_host {

// Why there is no entry for a group. kNothingToDemand: they told nothing by which to know
// them. kOperatorIsFirst: the profile of an operator takes them, and is asked before all of
// the catalogue. kNoKey: none is free that a match profile of them could have.
enum class NoEntry { kThereIsOne, kNothingToDemand, kOperatorIsFirst, kNoKey };

struct ProposedEntry {
  using Abilities = std::map<std::uint16_t, ONU_ABILITY_COMMON_ABILITY_VALUE>;

  NoEntry why_none = NoEntry::kNothingToDemand;
  std::uint32_t key = 0;
  std::string source;  // where it comes from, for people
  Abilities real;
  Abilities match;

  // ONUs beside the group that the match profile would take, the newest of the catalogue:
  // those that exactly one profile fits now, those of the other groups that several fit,
  // and those of the others that none fits.
  std::size_t takes_safe = 0;
  std::vector<const OnuReport*> safe_onus;  // the first hundred of those
  std::size_t takes_by_luck = 0;
  std::size_t takes_unrecognised = 0;

  bool Exists() const { return why_none == NoEntry::kThereIsOne; }
};

// An entry a group, in their order, each by itself: as if no other were pasted. No key is
// used by a profile, reported by an ONU outside the group, or given twice; a type that the
// whole group and nobody else reports becomes its key.
std::vector<ProposedEntry> ProposeEntries(const UnknownOnus& unknown, const Population& population);

// As one section each of a catalogue file, in lines of YAML; a file of nothing else can be
// loaded over the catalogue. Groups without an entry are left out.
std::string EntriesYaml(const std::vector<ProposedEntry>& entries);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PROPOSED_ENTRY_H
