#include "scripted_hooks.h"

#include <gtest/gtest.h>

#include "host_code.h"
#include "onu_ability_common_reg_extern_func.h"
#include "recording_host.h"

namespace {

void Record(int id, unsigned short place, int onu, unsigned int argument = 0,
            ConfirmOnuType* profile = nullptr) {
  HookCall call;
  call.id = id;
  call.place = place;
  call.onu = onu;
  call.argument = argument;
  call.order = RecordingHost::Instance().NextOrder();
  Hooks().calls.push_back(call);
  if (Hooks().meanwhile) {
    Hooks().meanwhile(id, profile);
  }
}

// Copies what the ONU reports, without a terminator, into a buffer of `room`
// bytes, which the library hands over zeroed.
void Write(const std::string& text, char* buffer, size_t room) {
  for (size_t i = 0; i < room; ++i) {
    EXPECT_EQ('\0', buffer[i]) << "byte " << i << " of the buffer is not zeroed";
  }
  text.copy(buffer, room);
}

unsigned int GetVendorId(unsigned short place, unsigned char onu, char* vendor_id) {
  const HostCode host_code;
  Record(0, place, onu);
  Write(Hooks().onu.vendor_id, vendor_id, 5);
  return Hooks().onu.status[0];
}

unsigned int GetReportType(unsigned short place, unsigned char onu) {
  const HostCode host_code;
  Record(1, place, onu);
  return Hooks().onu.reported_type;
}

unsigned int GetPrivateCapability(unsigned short place, unsigned char onu, unsigned short setting_3,
                                  unsigned char* private_capability) {
  const HostCode host_code;
  Record(2, place, onu, setting_3);
  if (Hooks().onu.set_private_capability) {
    *private_capability = Hooks().onu.private_capability;
  }
  return Hooks().onu.status[2];
}

unsigned int HandOverProfile(unsigned short place, unsigned char onu, unsigned int stage,
                             ConfirmOnuType* profile) {
  const HostCode host_code;
  Record(3, place, onu, stage, profile);
  Hooks().handed_over.push_back(*profile);
  return Hooks().onu.status[3];
}

unsigned int SetRealType(unsigned short place, unsigned char onu, unsigned short real_type) {
  const HostCode host_code;
  Record(4, place, onu, real_type);
  return Hooks().onu.status[4];
}

unsigned int SetReportType(unsigned short place, unsigned char onu, unsigned short report_type) {
  const HostCode host_code;
  Record(5, place, onu, report_type);
  return Hooks().onu.status[5];
}

unsigned int GetAbilityValue(unsigned short place, unsigned char onu, unsigned short ability_code,
                             unsigned int* value) {
  const HostCode host_code;
  Record(6, place, onu, ability_code);
  Hooks().presets.push_back(*value);
  const auto answer = Hooks().onu.values.find(ability_code);
  if (answer != Hooks().onu.values.end()) {
    *value = answer->second;
  }
  return Hooks().onu.status[6];
}

unsigned int GetIdentifySetting(unsigned int index, unsigned short place, unsigned short* setting) {
  const HostCode host_code;
  Record(7, place, -1, index);
  if (index > 3) {
    ADD_FAILURE() << "no identify setting " << index;
    return 0;
  }
  *setting = Hooks().onu.settings[index];
  return Hooks().onu.status[7];
}

unsigned int ReadOneByOne(unsigned short place, unsigned char onu) {
  const HostCode host_code;
  Record(8, place, onu);
  return Hooks().onu.read_one_by_one;
}

unsigned int GetDeviceName(unsigned short place, unsigned char onu, unsigned int length,
                           char* device_name) {
  const HostCode host_code;
  Record(9, place, onu, length);
  Write(Hooks().onu.device_name, device_name, 21);
  return Hooks().onu.status[9];
}

constexpr unsigned short kHookCount = 10;

}  // namespace

ScriptedHooks& Hooks() {
  static ScriptedHooks* hooks = new ScriptedHooks;
  return *hooks;
}

void* HookFunction(unsigned short id) {
  static void* const functions[kHookCount] = {
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_GET_VENDOR_ID_FUNC>(GetVendorId)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_GET_REPORT_TYPE_FUNC>(GetReportType)),
      reinterpret_cast<void*>(
          static_cast<ONU_ABILITY_GET_PRIVATE_CAPABILITY_FUNC>(GetPrivateCapability)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_HAND_OVER_PROFILE_FUNC>(HandOverProfile)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_SET_REAL_TYPE_FUNC>(SetRealType)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_SET_REPORT_TYPE_FUNC>(SetReportType)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_GET_ABILITY_VALUE_FUNC>(GetAbilityValue)),
      reinterpret_cast<void*>(
          static_cast<ONU_ABILITY_GET_IDENTIFY_SETTING_FUNC>(GetIdentifySetting)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_READ_ONE_BY_ONE_FUNC>(ReadOneByOne)),
      reinterpret_cast<void*>(static_cast<ONU_ABILITY_GET_DEVICE_NAME_FUNC>(GetDeviceName)),
  };
  if (id >= kHookCount) {
    ADD_FAILURE() << "no hook " << id;
    return nullptr;
  }
  return functions[id];
}

void RegisterHooks() { RegisterHooksExcept(kHookCount); }

void RegisterHooksExcept(unsigned short id) {
  for (unsigned short hook = 0; hook < kHookCount; ++hook) {
    if (hook != id) {
      onu_ability_register_extern_func(hook, HookFunction(hook));
    }
  }
}
