// The name of an ability as log lines and cells print it. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H
#define ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H

#include <string>

#include "onu_ability_common_table/onu_ability_code_info.h"

// Asked from the code registry, whose own log lines so come before the line that
// prints the name; "NULL" for an unknown code. For the line at hand only: a known
// code's name may be the record's own text, uncopied.
class AbilityName {
 public:
  explicit AbilityName(unsigned short code);
  AbilityName(const AbilityName&) = delete;
  AbilityName& operator=(const AbilityName&) = delete;

  const char* c_str() const { return _known != nullptr ? _known : _copy.c_str(); }

 private:
  const char* _known;  // the record's own text, or null
  std::string _copy;
};

#endif  // ONU_ABILITY_COMMON_TABLE_ABILITY_NAME_H
