#include "onu_ability_common_table/ability_name.h"

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"

AbilityName::AbilityName(unsigned short code) : _text(nullptr) {
  if (NobodyListensTo(LogLevels(9, 10))) {
    _text = AbilityCodeReader().Name(code);
  }
  if (_text == nullptr) {
    _copy = OnuAbilityCodeInfo::GetInstance()->Get(code);
    _text = _copy.c_str();
  }
}
