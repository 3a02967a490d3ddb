// The ten hooks, through which the library learns about a live ONU while ConfirmOnuType
// recognises it. Each is called by the thread that performs the confirmation, in the order
// of that road: 7 four times, 0, 1, 8, then 6 for every code that is asked, 2 and 9, and 3;
// after the comparison 3 again, 4 and 5.
//
// `place` and `onu` are what the confirmation was made with. A hook may ask the library
// anything, may take its time, and must not throw. Of the results only those of 0, 1, 8 and 9
// are looked at.
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_table.h"
#include "port.h"

namespace {

// 0: the vendor identifier, 4 characters such as "XMPL", into a zeroed buffer of 5 bytes. 0 when
// it is known; with anything else the ONU is compared as one of any vendor.
unsigned int GetVendorId(unsigned short place, unsigned char onu, char* vendor_id) { NotPorted(); }

// 1: the type that the ONU reported. A type that has a match profile settles it; with any
// other, and 0xFFFFFFFF for none, the ONU is recognised by its abilities.
unsigned int GetReportType(unsigned short place, unsigned char onu) { NotPorted(); }

// 2: into `private_capability` 0 for an SFU, 1 for an HGU, 0xFF when it is not known, which it
// also holds before. `setting_3` is identify setting 3, from hook 7.
unsigned int GetPrivateCapability(unsigned short place, unsigned char onu, unsigned short setting_3,
                                  unsigned char* private_capability) {
  NotPorted();
}

// 3: the profile to read or to keep a copy of: at stage 0 what the ONU reported, at stage 2
// what it was recognised as. It is destroyed with the confirmation.
unsigned int HandOverProfile(unsigned short place, unsigned char onu, unsigned int stage,
                             ConfirmOnuType* profile) {
  NotPorted();
}

// 4: the real type that was found.
unsigned int SetRealType(unsigned short place, unsigned char onu, unsigned short real_type) {
  NotPorted();
}

// 5: the reported type, translated by the identify settings where the real type allows it.
unsigned int SetReportType(unsigned short place, unsigned char onu, unsigned short report_type) {
  NotPorted();
}

// 6: into `value` how much the ONU has of `ability_code`; leave it alone when that is not known.
// Asked for every code whose attribute 1 has bit 2 and whose value is a number.
unsigned int GetAbilityValue(unsigned short place, unsigned char onu, unsigned short ability_code,
                             unsigned int* value) {
  NotPorted();
}

// 7: into `setting` the identify setting `index` of the place: 0 how SFUs are served, 1 not
// used, 2 how HGUs are served, 3 what is handed to hook 2. 0 translates nothing.
unsigned int GetIdentifySetting(unsigned int index, unsigned short place, unsigned short* setting) {
  NotPorted();
}

// 8: anything but 0 to have hooks 6, 2 and 9 called; 0 for an ONU that cannot be asked.
unsigned int ReadOneByOne(unsigned short place, unsigned char onu) { NotPorted(); }

// 9: the device name, up to `length` (20) characters, into a zeroed buffer of 21 bytes. 0 when it
// is known.
unsigned int GetDeviceName(unsigned short place, unsigned char onu, unsigned int length,
                           char* device_name) {
  NotPorted();
}

// The type is named at each call, so that the compiler holds the hook against it.
template <typename Hook>
void Register(unsigned short id, Hook hook) {
  onu_ability_register_extern_func(id, reinterpret_cast<void*>(hook));
}

}  // namespace

// To be called before other threads use the library.
void RegisterHooks() {
  Register<ONU_ABILITY_GET_VENDOR_ID_FUNC>(0, GetVendorId);
  Register<ONU_ABILITY_GET_REPORT_TYPE_FUNC>(1, GetReportType);
  Register<ONU_ABILITY_GET_PRIVATE_CAPABILITY_FUNC>(2, GetPrivateCapability);
  Register<ONU_ABILITY_HAND_OVER_PROFILE_FUNC>(3, HandOverProfile);
  Register<ONU_ABILITY_SET_REAL_TYPE_FUNC>(4, SetRealType);
  Register<ONU_ABILITY_SET_REPORT_TYPE_FUNC>(5, SetReportType);
  Register<ONU_ABILITY_GET_ABILITY_VALUE_FUNC>(6, GetAbilityValue);
  Register<ONU_ABILITY_GET_IDENTIFY_SETTING_FUNC>(7, GetIdentifySetting);
  Register<ONU_ABILITY_READ_ONE_BY_ONE_FUNC>(8, ReadOneByOne);
  Register<ONU_ABILITY_GET_DEVICE_NAME_FUNC>(9, GetDeviceName);
}
