// The host's side of the ten hooks: they answer for the ONUs of a report source
// and pass on what the library confirms.
//
// The hooks carry no context of their own, so each thread names the source and
// the observer that they serve with a ScopedHookContext. Threads are independent
// of each other. Without a context, and for an ONU that the source does not
// know, the hooks answer like an ONU that tells nothing.
#ifndef OLT_HOST_CONFIRMATION_HOOKS_H
#define OLT_HOST_CONFIRMATION_HOOKS_H

#include <cstdint>

#include "catalogue/reports.h"
#include "confirmation/hook_calls.h"

class ConfirmOnuType;

namespace olt_host {

// Where the hooks find what an ONU reports.
class ReportSource {
 public:
  virtual ~ReportSource() = default;
  // Null when there is no such ONU.
  virtual const OnuReport* Find(std::uint16_t place, std::uint8_t onu) const = 0;
  virtual const IdentifySettings& Settings(std::uint16_t place) const = 0;
};

// Told, in this order, what becomes of an ONU.
class ConfirmationObserver {
 public:
  virtual ~ConfirmationObserver() = default;
  // Hook 3: the profile as gathered (stage 0) and as confirmed (stage 2).
  virtual void OnProfile(unsigned int stage, const ConfirmOnuType& profile) = 0;
  // Hook 4.
  virtual void OnRealType(std::uint16_t real_type) = 0;
  // Hook 5: the reported type after translation.
  virtual void OnReportType(std::uint16_t report_type) = 0;
};

// Serves `source` and `observer` on this thread until destroyed, then whatever
// was served before. All must outlive it. `calls`, unless null, counts the calls meanwhile.
class ScopedHookContext {
 public:
  ScopedHookContext(const ReportSource& source, ConfirmationObserver& observer,
                    HookCalls* calls = nullptr);
  ~ScopedHookContext();
  ScopedHookContext(const ScopedHookContext&) = delete;
  ScopedHookContext& operator=(const ScopedHookContext&) = delete;

 private:
  const ReportSource* _previous_source;
  ConfirmationObserver* _previous_observer;
  HookCalls* _previous_calls;
};

// Registers all ten with the library. Once, at start-up.
void RegisterHooks();

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_HOOKS_H
