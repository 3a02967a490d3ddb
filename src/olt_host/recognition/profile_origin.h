// Where a profile of the library comes from: an entry of the catalogue's files, or an
// operator.
#ifndef OLT_HOST_RECOGNITION_PROFILE_ORIGIN_H
#define OLT_HOST_RECOGNITION_PROFILE_ORIGIN_H

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// What the host noted when an operator last changed a profile.
struct OperatorNote {
  std::string user;          // empty: not known
  unsigned int session = 0;  // 0: none
  bool restored = false;     // from a state file
  std::chrono::system_clock::time_point when;
};

// kUnknown: of source 0, but not an entry of the catalogue as it was last loaded.
enum class OriginKind { kCatalogue, kOperator, kUnknown };

struct ProfileOrigin {
  OriginKind kind = OriginKind::kUnknown;
  SourcePosition position;           // of kCatalogue
  bool changed = false;              // of kCatalogue: not as the entry says any more
  std::optional<OperatorNote> note;  // of kOperator: nothing when nobody noted it
};

// Of a profile of source 1.
using NoteOfProfile = std::function<std::optional<OperatorNote>(const OnuAbilityProfile&)>;

// Whether both hold the same abilities. An unset entry, which a comparison leaves for the
// key code, is none.
bool SameAbilities(const OnuAbilityProfile& a, const OnuAbilityProfile& b);

// REQUIRES: the catalogue outlives this.
class ProfileOrigins {
 public:
  explicit ProfileOrigins(const Catalogue& catalogue, NoteOfProfile note = nullptr);

  ProfileOrigin Of(const OnuAbilityProfile& profile) const;

 private:
  using Ids = std::map<unsigned short, std::size_t>;

  // The positions of a table's entries by the ids that loading gives them.
  static Ids IdsOf(const std::vector<ProfileEntry>& entries);

  const Catalogue& _catalogue;
  NoteOfProfile _note;
  Ids _match_ids;
  Ids _real_ids;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_PROFILE_ORIGIN_H
