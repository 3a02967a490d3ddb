// What an ONU told, and what the library makes of it before it looks for a type: gathered
// through the hooks by the library's own steps, value by value for the eye.
#ifndef OLT_HOST_RECOGNITION_GATHERED_REPORT_H
#define OLT_HOST_RECOGNITION_GATHERED_REPORT_H

#include <cstdint>
#include <optional>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/hooks.h"
#include "onu_ability_common_table.h"

namespace olt_host {

// kAnything: the value of all ones or the empty text. kNotTold: asked, without an answer.
// kNotAsked: the library does not ask for it, or cannot. kDerived: nobody told it, the
// library works it out of other values.
enum class Told { kValue, kAnything, kNotTold, kNotAsked, kDerived };

// "value", "anything", "not told", "not asked" or "derived".
const char* ToText(Told told);

struct ReportedValue {
  std::uint16_t code = 0;
  Told told = Told::kNotTold;
  ONU_ABILITY_COMMON_ABILITY_VALUE value;  // as told, of kValue and kAnything, also of kNotAsked
  bool has_value = false;                  // whether `value` holds something
  // Whether patterns are compared with the code, and then with what; nothing: the
  // comparison does not see it.
  bool is_compared = false;
  std::optional<ONU_ABILITY_COMMON_ABILITY_VALUE> compared;
};

struct GatheredReport {
  ConfirmOnuType gathered;
  // With the private capability brought in, as it is compared with patterns.
  ConfirmOnuType compared;
};

// REQUIRES: the hooks are registered, and `source` knows the ONU of `report`.
GatheredReport Gather(const ReportSource& source, const OnuReport& report);

// Ascending by code: all that was told, asked for, or is compared.
std::vector<ReportedValue> ValuesOf(const GatheredReport& gathered, const OnuReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_GATHERED_REPORT_H
