// What a state file says, before it is held against a catalogue: every entry marked as
// changed by an operator or as what the catalogue of that time already said.
#ifndef OLT_HOST_STATE_STORED_STATE_H
#define OLT_HOST_STATE_STORED_STATE_H

#include <string>
#include <string_view>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

template <typename Value>
struct Stored {
  Value value;
  bool changed = false;  // false: only repeated the catalogue
};

struct StoredAttribute {
  unsigned short id = 0;
  std::string name;
};

struct StoredState {
  Stored<unsigned short> key_ability_code;
  Stored<unsigned short> sfu_common_type;
  Stored<unsigned short> hgu_common_type;
  std::vector<Stored<StoredAttribute>> attributes;        // by ascending id
  std::vector<Stored<ONU_ABILITY_CODE_ATTR_INFO>> codes;  // in the registry's order
  std::vector<unsigned short> deleted_codes;              // of the catalogue
  std::vector<OnuAbilityProfile> match_profiles;          // of source 1, in table order
  std::vector<OnuAbilityProfile> real_profiles;
};

// The bytes of a state file. Throws StateError when a profile cannot be serialised.
std::string EncodeStored(const StoredState& stored);

// Checks everything that the file alone can be held to; throws StateError.
StoredState DecodeStored(std::string_view content);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_STORED_STATE_H
