// Whether a profile fits a report, by the library's comparison of the whole.
#ifndef TESTS_OLT_HOST_RECOGNITION_WHOLE_COMPARISON_H
#define TESTS_OLT_HOST_RECOGNITION_WHOLE_COMPARISON_H

#include "recognition/pattern_comparison.h"

namespace olt_host_test {

// The profile stays as it is.
inline bool Fits(const OnuAbilityProfile& profile, const OnuAbilityProfile& report) {
  OnuAbilityProfile compared = profile;
  return olt_host::ComparedReport(report).Fits(compared);
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_RECOGNITION_WHOLE_COMPARISON_H
