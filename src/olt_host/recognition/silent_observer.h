// An observer of confirmations that are only asked for their outcome.
#ifndef OLT_HOST_RECOGNITION_SILENT_OBSERVER_H
#define OLT_HOST_RECOGNITION_SILENT_OBSERVER_H

#include <cstdint>

#include "confirmation/hooks.h"

namespace olt_host {

class SilentObserver : public ConfirmationObserver {
 public:
  void OnProfile(unsigned int /*stage*/, const ConfirmOnuType& /*profile*/) override {}
  void OnRealType(std::uint16_t /*real_type*/) override {}
  void OnReportType(std::uint16_t /*report_type*/) override {}
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_SILENT_OBSERVER_H
