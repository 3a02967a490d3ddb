// Random arguments that are hard on indexes: few values, so that codes, keys, real
// types and names of different operations meet, and every odd one among them.
#ifndef TESTS_SHORT_WAYS_HOSTILE_INPUT_H
#define TESTS_SHORT_WAYS_HOSTILE_INPUT_H

#include <string>
#include <vector>

#include "onu_ability_common_table.h"
#include "support/random_numbers.h"

constexpr unsigned int kSlots = 4;  // profiles that a sequence works on

// Every attribute id, and every code of the catalogue, that a sequence may use.
extern const std::vector<ONU_ABILITY_ENUM_ABILITY_ATTR_ID> kAttributeIds;
extern const std::vector<unsigned short> kCatalogueCodes;

class HostileInput : public RandomNumbers {
 public:
  using RandomNumbers::RandomNumbers;

  unsigned int Slot() { return Below(kSlots); }
  ONU_ABILITY_ENUM_PROFILE_TYPE Type();
  ONU_ABILITY_ENUM_PROFILE_SOURCE Source();
  ONU_ABILITY_ENUM_MATCH_TYPE MatchType();

  ONU_ABILITY_ENUM_ABILITY_ATTR_ID AttributeId();
  std::string AttributeName();
  unsigned short AttributeValue();
  unsigned short Code();
  // Also codes that hold strings, confirm a type or are not registered.
  unsigned short KeyCode();
  std::string CodeName();
  ONU_ABILITY_CODE_ATTR_INFO Record();

  unsigned int Key();  // also of real types
  unsigned int Number();
  std::string Text();
  std::string Vendor();
  unsigned short Id();
  ONU_ABILITY_COMMON_ABILITY_VALUE Value();

  // Masks of a host in production, of one that looks for something, and of one that
  // listens to all.
  unsigned int QuietMask();
  unsigned int LoudMask();
};

#endif  // TESTS_SHORT_WAYS_HOSTILE_INPUT_H
