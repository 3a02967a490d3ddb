// A table of an empty host while lines of a running configuration fill it: finds the
// lines for one profile after the other, and what these leave different.
//
// The profiles are built beside the library with the library's own operations, by the
// code registry as it is now.
#ifndef OLT_HOST_COMMANDS_REBUILT_TABLE_H
#define OLT_HOST_COMMANDS_REBUILT_TABLE_H

#include <string>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

class RebuiltTable {
 public:
  explicit RebuiltTable(ONU_ABILITY_ENUM_PROFILE_TYPE type) : _type(type) {}

  // Adds to `lines` the remarks about the next profile and the lines that make it, while
  // the key ability code is the profile's own.
  void Add(const OnuAbilityProfile& wanted, std::vector<std::string>& lines);

 private:
  bool Refuses(const OnuAbilityProfile& profile) const;
  bool IsOldest(const OnuAbilityProfile& profile) const;
  unsigned short NextId() const;

  const ONU_ABILITY_ENUM_PROFILE_TYPE _type;
  std::size_t _seen = 0;
  std::vector<OnuAbilityProfile> _built;
};

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_REBUILT_TABLE_H
