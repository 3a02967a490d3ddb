// The name of an ability as log lines and cells print it. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H
#define ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H

#include "onu_ability_common_table/name_text.h"

// Asked from the code registry, whose own log lines so come before the line that
// prints the name; "NULL" for an unknown code. For the line at hand only.
class AbilityName {
 public:
  explicit AbilityName(unsigned short code);

  const char* c_str() const { return _name.c_str(); }

 private:
  NameText _name;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H
