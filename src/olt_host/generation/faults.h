// What goes wrong with the reports of real ONUs, and how often it shall in a population.
#ifndef OLT_HOST_GENERATION_FAULTS_H
#define OLT_HOST_GENERATION_FAULTS_H

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "generation/random_stream.h"

namespace olt_host {

enum class FaultKind {
  kMissing,    // a value or text is not told
  kOnes,       // a number is told as 0xFFFFFFFF
  kTruncated,  // a text lacks its end
  kCase,       // a text is in small letters, or in capitals
  kPadding,    // blanks or zero bytes fill a text
  kGarbage,    // bytes behind the terminator of a text
  kUnknown,    // values of codes that the catalogue does not define
  kChanged,    // told otherwise when the ONU is asked again
};

// In the order in which they come over a report.
constexpr std::array<FaultKind, 8> kFaultKinds = {
    FaultKind::kMissing, FaultKind::kOnes,    FaultKind::kTruncated, FaultKind::kCase,
    FaultKind::kPadding, FaultKind::kGarbage, FaultKind::kUnknown,   FaultKind::kChanged};

// "missing", "ones" and so on.
const char* ToText(FaultKind kind);

// How many of a million reports shall have each fault.
using FaultRates = std::array<std::uint32_t, kFaultKinds.size()>;
constexpr std::uint32_t kAlways = 1000000;

// Reads "garbage=5,padding=2.5" or "all=1", later entries counting. Throws
// std::runtime_error.
FaultRates ReadFaultRates(const std::string& text);

struct FaultContext {
  const std::set<std::uint16_t>& known_codes;  // of the catalogue
  bool asked_again = false;
  std::uint32_t type = kUnknownReportedType;  // what the ONU reports when it tells its type
};

// Brings the fault over the report. kNone: there was nothing that it could come over;
// kHarmless: what recognises ONUs does not see it.
enum class FaultEffect { kNone, kHarmless, kHarmful };
FaultEffect BringFault(FaultKind kind, const FaultContext& context, RandomStream& random,
                       OnuReport& report);

}  // namespace olt_host

#endif  // OLT_HOST_GENERATION_FAULTS_H
