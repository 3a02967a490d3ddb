// Who last changed each profile of the operators, and when. Kept beside the library while
// the host runs: what the state file brings back at the start counts as restored.
//
// On the command thread.
#ifndef OLT_HOST_COMMANDS_OPERATOR_REGISTER_H
#define OLT_HOST_COMMANDS_OPERATOR_REGISTER_H

#include <map>
#include <optional>
#include <utility>

#include "onu_ability_common_table.h"
#include "recognition/profile_origin.h"

namespace olt_host {

class OperatorRegister {
 public:
  // Looks at the operators' profiles: those that are new or hold other abilities than at
  // the last look are noted with `note`, those that are gone are forgotten.
  void Look(const OperatorNote& note);

  // Nothing for a profile that is not as it was at the last look.
  std::optional<OperatorNote> Of(const OnuAbilityProfile& profile) const;

 private:
  struct Entry {
    OnuAbilityProfile profile;
    OperatorNote note;
  };
  // By type and id.
  using Entries = std::map<std::pair<unsigned int, unsigned int>, Entry>;

  static Entries::key_type KeyOf(const OnuAbilityProfile& profile);
  void Take(ONU_ABILITY_ENUM_PROFILE_TYPE type, const OperatorNote& note, Entries& entries) const;

  Entries _entries;
};

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_OPERATOR_REGISTER_H
