#include "confirmation/confirmer.h"

#include <stdexcept>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

// What the library said about one ONU.
class Recorder : public ConfirmationObserver {
 public:
  void OnProfile(unsigned int stage, const ConfirmOnuType& profile) override {
    constexpr unsigned int kGathered = 0;
    if (stage == kGathered) {
      profile.Get(ONU_ABILITY_CODE_REPORT_TYPE, gathered_report_type);
    }
  }
  void OnRealType(std::uint16_t type) override { real_type = type; }
  void OnReportType(std::uint16_t type) override { report_type = type; }

  unsigned int gathered_report_type = 0;
  std::uint16_t real_type = 0;
  std::uint16_t report_type = 0;
};

Recognition HowRecognised(const ConfirmOnuType& confirmed) {
  if (confirmed._type_from_onu_report != kUnknownReportedType) {
    return Recognition::kType;
  }
  // Only a profile of the table carries match type 2; an ONU that nothing
  // recognised keeps the 1 of its own.
  return confirmed._flag_match_type == ONU_ABILITY_MATCH_TYPE_EXACT ? Recognition::kAbilities
                                                                    : Recognition::kNone;
}

// The report type of the match profile that took the ONU: what the translation
// started from.
unsigned int ReportTypeOfPattern(const ConfirmOnuType& confirmed) {
  std::vector<OnuAbilityProfile> patterns;
  OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_MATCH,
                                             ONU_ABILITY_PROFILE_SOURCE_ALL,
                                             confirmed._key_ability_value, patterns);
  unsigned int report_type = confirmed._report_type;
  for (const OnuAbilityProfile& pattern : patterns) {
    if (pattern._id == confirmed._id && pattern._profile_source == confirmed._profile_source) {
      pattern.Get(ONU_ABILITY_CODE_REPORT_TYPE, report_type);
      break;
    }
  }
  return report_type;
}

}  // namespace

ConfirmationResult ConfirmOnu(const ReportSource& source, const OnuReport& report,
                              ConfirmationTrace* trace) {
  Recorder recorder;
  const ScopedHookContext context(source, recorder,
                                  trace == nullptr ? nullptr : &trace->hook_calls);
  ConfirmOnuType confirmed(report.place, report.onu);
  if (confirmed.Perform() != ONU_ABILITY_RET_OK) {
    throw std::logic_error("an ONU was confirmed before the hooks were registered");
  }
  ConfirmationResult result;
  result.place = report.place;
  result.onu = report.onu;
  result.vendor_id = report.vendor_id;
  result.reported_type = report.reported_type;
  result.how = HowRecognised(confirmed);
  if (result.how != Recognition::kNone) {
    result.real_type = recorder.real_type;
    if (trace != nullptr) trace->winner = static_cast<const OnuAbilityProfile&>(confirmed);
  }
  confirmed.Get(ONU_ABILITY_CODE_TYPE_NAME, result.type_name);
  const unsigned int before_translation = result.how == Recognition::kNone
                                              ? recorder.gathered_report_type
                                              : ReportTypeOfPattern(confirmed);
  result.translated = before_translation != confirmed._report_type;
  result.report_type = recorder.report_type;
  result.expect = report.expect;
  result.position = report.position;
  return result;
}

}  // namespace olt_host
