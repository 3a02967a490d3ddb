#include "onu_ability_common_table/ability_name.h"

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_table/ability_code_index.h"

namespace {

// The short way, where asking a known code says nothing. Else null.
const char* KnownName(unsigned short code) {
  return NobodyListensTo(LogLevels(9, 10)) ? AbilityCodeReader().Name(code) : nullptr;
}

}  // namespace

AbilityName::AbilityName(unsigned short code)
    : _known(KnownName(code)),
      _copy(_known != nullptr ? std::string() : OnuAbilityCodeInfo::GetInstance()->Get(code)) {}
