// What becomes of one ONU after the other under the library as it is.
//
// By the library's own steps of a confirmation; the host is told nothing. Match profiles
// without a key may gain the unset entry that every comparison leaves. On the thread that
// works with the library.
#ifndef OLT_HOST_RECOGNITION_OUTCOME_READER_H
#define OLT_HOST_RECOGNITION_OUTCOME_READER_H

#include <vector>

#include "recognition/fit_index.h"
#include "recognition/population_outcome.h"

namespace olt_host {

class OutcomeReader {
 public:
  // Of the library as it is now. It may hold something else in between: what it holds at
  // a Read must be what it held here.
  OutcomeReader();

  // REQUIRES: the hooks are registered; `source` knows the ONU of `report`.
  OnuOutcome Read(const ReportSource& source, const OnuReport& report);

 private:
  void Recognise(ConfirmOnuType& onu, OnuOutcome& outcome);

  const std::vector<OnuAbilityProfile> _patterns;
  FitIndex _index;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_OUTCOME_READER_H
