#include "confirmation/hooks.h"

#include "catalogue/catalogue.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_table.h"

namespace olt_host {

namespace {

constexpr unsigned int kDone = 0;
constexpr unsigned int kNoAnswer = 1;

thread_local const ReportSource* current_source = nullptr;
thread_local ConfirmationObserver* current_observer = nullptr;
thread_local HookCalls* current_calls = nullptr;

void CountCall(std::size_t hook) {
  if (current_calls != nullptr) ++(*current_calls)[hook];
}

const OnuReport* FindReport(unsigned short place, unsigned char onu) {
  return current_source == nullptr ? nullptr : current_source->Find(place, onu);
}

// The buffers of the library are zeroed and have room for the terminator; the limit is
// what a hook may write, `behind` included.
unsigned int CopyText(const std::string& text, const std::string& behind, std::size_t limit,
                      char* buffer) {
  text.copy(buffer, limit);
  if (text.size() + 1 < limit) behind.copy(buffer + text.size() + 1, limit - text.size() - 1);
  return kDone;
}

unsigned int GetVendorId(unsigned short place, unsigned char onu, char* vendor_id) {
  CountCall(0);
  const OnuReport* report = FindReport(place, onu);
  if (report == nullptr || !report->vendor_id) {
    return kNoAnswer;
  }
  return CopyText(*report->vendor_id, report->behind_vendor_id, kVendorIdBytes, vendor_id);
}

unsigned int GetReportedType(unsigned short place, unsigned char onu) {
  CountCall(1);
  const OnuReport* report = FindReport(place, onu);
  return report == nullptr ? kUnknownReportedType : report->reported_type;
}

unsigned int GetPrivateCapability(unsigned short place, unsigned char onu,
                                  unsigned short /*setting_3*/, unsigned char* private_capability) {
  CountCall(2);
  const OnuReport* report = FindReport(place, onu);
  // An ONU that has none leaves what it answered for the ONU capability.
  if (report == nullptr || !report->private_capability) {
    return kNoAnswer;
  }
  *private_capability = *report->private_capability;
  return kDone;
}

unsigned int TakeProfile(unsigned short /*place*/, unsigned char /*onu*/, unsigned int stage,
                         ConfirmOnuType* profile) {
  CountCall(3);
  if (current_observer != nullptr) {
    current_observer->OnProfile(stage, *profile);
  }
  return kDone;
}

unsigned int TakeRealType(unsigned short /*place*/, unsigned char /*onu*/,
                          unsigned short real_type) {
  CountCall(4);
  if (current_observer != nullptr) {
    current_observer->OnRealType(real_type);
  }
  return kDone;
}

unsigned int TakeReportType(unsigned short /*place*/, unsigned char /*onu*/,
                            unsigned short report_type) {
  CountCall(5);
  if (current_observer != nullptr) {
    current_observer->OnReportType(report_type);
  }
  return kDone;
}

unsigned int GetAbility(unsigned short place, unsigned char onu, unsigned short ability_code,
                        unsigned int* value) {
  CountCall(6);
  const OnuReport* report = FindReport(place, onu);
  if (report == nullptr) {
    return kNoAnswer;
  }
  const auto ability = report->abilities.find(ability_code);
  if (ability == report->abilities.end()) {
    return kNoAnswer;
  }
  *value = ability->second;
  return kDone;
}

unsigned int GetIdentifySetting(unsigned int index, unsigned short place, unsigned short* setting) {
  CountCall(7);
  if (current_source == nullptr) {
    return kNoAnswer;
  }
  const IdentifySettings& settings = current_source->Settings(place);
  switch (index) {
    case 0:
      *setting = settings.sfu_mode;
      return kDone;
    case 1:
      *setting = settings.setting_1;
      return kDone;
    case 2:
      *setting = settings.hgu_mode;
      return kDone;
    case 3:
      *setting = settings.setting_3;
      return kDone;
    default:
      return kNoAnswer;
  }
}

unsigned int ReadOneByOne(unsigned short place, unsigned char onu) {
  CountCall(8);
  const OnuReport* report = FindReport(place, onu);
  return report != nullptr && report->read_abilities ? 1 : 0;
}

unsigned int GetDeviceName(unsigned short place, unsigned char onu, unsigned int length,
                           char* device_name) {
  CountCall(9);
  const OnuReport* report = FindReport(place, onu);
  if (report == nullptr || !report->device_name) {
    return kNoAnswer;
  }
  return CopyText(*report->device_name, report->behind_device_name, length, device_name);
}

// A hook goes to the library as void*; its type is held here first.
template <typename Hook>
void Register(unsigned short id, Hook hook) {
  onu_ability_register_extern_func(id, reinterpret_cast<void*>(hook));
}

}  // namespace

ScopedHookContext::ScopedHookContext(const ReportSource& source, ConfirmationObserver& observer,
                                     HookCalls* calls)
    : _previous_source(current_source),
      _previous_observer(current_observer),
      _previous_calls(current_calls) {
  current_source = &source;
  current_observer = &observer;
  current_calls = calls;
}

ScopedHookContext::~ScopedHookContext() {
  current_source = _previous_source;
  current_observer = _previous_observer;
  current_calls = _previous_calls;
}

void RegisterHooks() {
  Register<ONU_ABILITY_GET_VENDOR_ID_FUNC>(0, GetVendorId);
  Register<ONU_ABILITY_GET_REPORT_TYPE_FUNC>(1, GetReportedType);
  Register<ONU_ABILITY_GET_PRIVATE_CAPABILITY_FUNC>(2, GetPrivateCapability);
  Register<ONU_ABILITY_HAND_OVER_PROFILE_FUNC>(3, TakeProfile);
  Register<ONU_ABILITY_SET_REAL_TYPE_FUNC>(4, TakeRealType);
  Register<ONU_ABILITY_SET_REPORT_TYPE_FUNC>(5, TakeReportType);
  Register<ONU_ABILITY_GET_ABILITY_VALUE_FUNC>(6, GetAbility);
  Register<ONU_ABILITY_GET_IDENTIFY_SETTING_FUNC>(7, GetIdentifySetting);
  Register<ONU_ABILITY_READ_ONE_BY_ONE_FUNC>(8, ReadOneByOne);
  Register<ONU_ABILITY_GET_DEVICE_NAME_FUNC>(9, GetDeviceName);
}

}  // namespace olt_host
