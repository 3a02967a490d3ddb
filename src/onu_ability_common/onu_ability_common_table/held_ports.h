/// @file
/// What a profile remembers between two fillings: where its ports stand, so that the
/// counts derived from them need not be looked for among all its codes. For the profile
/// alone.
///
/// Worth something only for the very map it was made from, as long as that map's codes
/// and the code registry are the same; it never travels with a copy or a move.
#ifndef ONU_ABILITY_COMMON_TABLE_HELD_PORTS_H
#define ONU_ABILITY_COMMON_TABLE_HELD_PORTS_H

#include <cstdint>
#include <vector>

#include "onu_ability_common_table/ability_map.h"

class AbilityCodeReader;

/// Where the ports of one profile stand. Of no use to a host.
class ONU_ABILITY_LOCAL HeldPorts {
 public:
  /// One port code that the profile holds.
  struct Port {
    const ONU_ABILITY_COMMON_ABILITY_VALUE* value;  ///< how many there are
    bool is_lan;                                    ///< counts for code 1001
    bool is_data_uni;                               ///< counts for code 65533
  };

  /// Nothing is known yet.
  HeldPorts() = default;
  /// Nothing travels with a copy.
  HeldPorts(const HeldPorts&) noexcept {}
  HeldPorts& operator=(const HeldPorts&) = delete;
  ~HeldPorts() = default;

  /// Whether the ports are known already; `generation` is the code registry's.
  bool AreKnown(const AbilityMap& abilities, unsigned int generation) const {
    return Follow(abilities) && generation != 0 && _generation == generation;
  }
  /// Looks for them among all codes. False when a walk over the codes would say
  /// something or acquire an attribute, and when the memory does not suffice.
  bool Find(AbilityMap& abilities, const AbilityCodeReader& codes);
  /// What is known. The LAN total is never among the data UNIs.
  const std::vector<Port>& Ports() const { return _ports; }
  /// @{
  /// The derived counts, null where they are not held.
  ONU_ABILITY_COMMON_ABILITY_VALUE* LanTotal() const { return _lan_total; }
  ONU_ABILITY_COMMON_ABILITY_VALUE* DataUniTotal() const { return _data_uni_total; }
  /// @}
  /// An empty value under a code that is not held, in front of `place`. What is known
  /// stays known.
  ONU_ABILITY_COMMON_ABILITY_VALUE& Insert(AbilityMap& abilities, AbilityMap::const_iterator place,
                                           unsigned short code, const AbilityCodeReader& codes);

 private:
  bool Follow(const AbilityMap& abilities) const {
    return _changes != 0 && _changes == abilities.Changes();
  }
  // Whether the code can be read silently.
  bool Note(unsigned short code, ONU_ABILITY_COMMON_ABILITY_VALUE& value,
            const AbilityCodeReader& codes);

  std::vector<Port> _ports;
  ONU_ABILITY_COMMON_ABILITY_VALUE* _lan_total = nullptr;
  ONU_ABILITY_COMMON_ABILITY_VALUE* _data_uni_total = nullptr;
  std::uint64_t _changes = 0;    // the map's, when they were found; 0: nothing is known
  unsigned int _generation = 0;  // the registry's
};

#endif  // ONU_ABILITY_COMMON_TABLE_HELD_PORTS_H
