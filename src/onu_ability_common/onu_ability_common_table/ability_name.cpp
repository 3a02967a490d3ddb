#include "onu_ability_common_table/ability_name.h"

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"

AbilityName::AbilityName(unsigned short code) {
  // The short way, where asking for a known code's name says nothing.
  if (!NobodyListensTo(LogLevels(9, 10)) || !AbilityCodeReader().CopyName(code, _name)) {
    _name.Assign(OnuAbilityCodeInfo::GetInstance()->Get(code));
  }
}
