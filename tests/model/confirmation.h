// The model's confirmation of an ONU's type.
#ifndef TESTS_MODEL_CONFIRMATION_H
#define TESTS_MODEL_CONFIRMATION_H

#include <map>
#include <string>
#include <vector>

#include "profile.h"

namespace model {

// What the hooks answer.
struct Report {
  u32 vendor_status = 0;
  std::string vendor_id;
  u32 reported_type = 0;
  bool sets_private_capability = false;
  u8 private_capability = 0xFF;
  u32 device_name_status = 0;
  std::string device_name;
  std::map<u16, u32> values;  // of hook 6, which leaves the others alone
  u16 settings[4] = {};
  u32 read_one_by_one = 0;
};

class Confirmation : public Profile {
 public:
  Confirmation(u16 place, u8 onu, const Report& report);
  ~Confirmation();

  u32 Perform();
  void Gather();
  u32 IsValidOnuType();
  u32 ConfirmByAbilities();
  u32 UpdateCapability();
  u32 Translate();

  u16 place;
  u8 onu;
  u32 key_value = 0;
  u32 report_type = 0;
  u16 settings[4] = {};
  u32 type_from_report = 0;
  u8 private_capability = 0xFF;

  std::vector<Profile> handed_over;  // by call of hook 3

 private:
  void GatherAbilities();
  u32 Translated(u32 capability, u32 flag);
  void CallHook(int hook, u32 argument = 0);
  void HandOver(u32 stage);

  Report report_;
};

}  // namespace model

#endif  // TESTS_MODEL_CONFIRMATION_H
