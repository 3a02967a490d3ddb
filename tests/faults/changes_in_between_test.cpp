// A log sink that changes the registries while an operation on them says its lines: what
// the operation found before a line may be gone after it. Whenever the change comes, names
// stay unique, and no code has an attribute that is not registered.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "onu_ability_common_global/log_settings.h"
#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/library_reset.h"
#include "support/recording_host.h"

namespace {

constexpr auto kOther = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(8);
constexpr auto kAnother = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(9);

OnuAbilityAttrInfo& Attributes() { return *OnuAbilityAttrInfo::GetInstance(); }
OnuAbilityCodeInfo& Codes() { return *OnuAbilityCodeInfo::GetInstance(); }

void Define(unsigned short code, const std::string& name, bool has_other = false) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = code;
  record.ability_name = name;
  record.ability_attr.clear();
  if (has_other) {
    record.ability_attr[kOther] = 1;
  }
  Codes().Update(record);
}

// What is wrong with the registries; empty when nothing is.
std::string Faults() {
  std::string faults;
  std::set<std::string> names;
  for (int id = 0; id < 16; ++id) {
    const auto attribute = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id);
    if (Attributes().IsExist(attribute) != 0 && !names.insert(Attributes().Get(attribute)).second) {
      faults += "two attributes have one name; ";
    }
  }
  names.clear();
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : records) {
    if (!names.insert(record.ability_name).second) {
      faults += "two codes have one name; ";
    }
    for (const auto& attribute : record.ability_attr) {
      if (Attributes().IsExist(attribute.first) == 0) {
        faults += "a code has an attribute that is not registered; ";
      }
    }
  }
  return faults;
}

struct Meeting {
  const char* name;
  void (*prepare)();
  void (*operation)();
  void (*change)();             // made at one line of the operation
  const char* said;             // at least once, for the change that came at that moment; or null
  const char* never = nullptr;  // at no moment: it would be untrue
};

std::ostream& operator<<(std::ostream& out, const Meeting& meeting) { return out << meeting.name; }

void Nothing() {}

const Meeting kMeetings[] = {
    {"TwoAddOneName", Nothing, [] { Attributes().Add(kOther, "NEW"); },
     [] { Attributes().Add(kAnother, "NEW"); },
     "ability attr name is invalid!ability_attr_name:NEW",
     "ability_attr_id exist,ability_attr_id:8"},
    {"TwoAddOneId", Nothing, [] { Attributes().Add(kOther, "NEW"); },
     [] { Attributes().Add(kOther, "ELSE"); }, "ability_attr_id exist,ability_attr_id:8"},
    {"RenamedToATakenName", [] { Attributes().Add(kOther, "OLD"); },
     [] { Attributes().Update(kOther, "NEW"); }, [] { Attributes().Add(kAnother, "NEW"); },
     "ability attr name is invalid!ability_attr_name:NEW",
     "ability_attr_id do not exist,ability_attr_id:8"},
    {"RenamedWhenDeleted", [] { Attributes().Add(kOther, "OLD"); },
     [] { Attributes().Update(kOther, "NEW"); }, [] { Attributes().Del(kOther); },
     "ability_attr_id do not exist,ability_attr_id:8"},
    {"AttributeDeletedWhenUsed", [] { Attributes().Add(kOther, "OLD"); },
     [] { Attributes().Del(kOther); }, [] { Define(2000, "CODE", true); },
     "ability_attr_id is using, can not del!ability_attr_id:8",
     "ability_attr_id is not exist!ability_attr_id:8"},
    {"AttributeDeletedByNameWhenUsed", [] { Attributes().Add(kOther, "OLD"); },
     [] { Attributes().Del(std::string("OLD")); }, [] { Define(2000, "CODE", true); },
     "ability_attr_id is using, can not del!ability_attr_id:8",
     "find ability_attr_name null!ability_attr_name:OLD"},
    {"TwoCodesOfOneName", Nothing, [] { Define(2000, "CODE"); }, [] { Define(2001, "CODE"); },
     "ability_code_info is invalid!"},
    {"CodeWithAnAttributeThatGoes", [] { Attributes().Add(kOther, "OLD"); },
     [] { Define(2000, "CODE", true); }, [] { Attributes().Del(kOther); },
     "ability_code_info is invalid!"},
    {"CodeDeletedTwice", [] { Define(2000, "CODE"); },
     [] { Codes().Del(static_cast<unsigned short>(2000)); },
     [] { Codes().Del(static_cast<unsigned short>(2000)); }, nullptr},
};

class ChangesInBetween : public ::testing::TestWithParam<Meeting> {
 protected:
  // Makes the change at the k-th line; false when the operation has fewer.
  static bool Meet(unsigned int k) {
    RecordingHost& host = RecordingHost::Instance();
    unsigned int line = 0;
    host.log_listener = [&line, k](const LogLine& /*said*/) {
      if (++line == k) {
        GetParam().change();
      }
    };
    GetParam().operation();
    host.log_listener = nullptr;
    return line >= k;
  }

  // True when the operation said what is expected of it, for some line.
  static bool MeetAtEveryLine() {
    RecordingHost& host = RecordingHost::Instance();
    bool said = false;
    bool met = true;
    for (unsigned int k = 1; met; ++k) {
      ResetLibrary({kOther, kAnother});
      GetParam().prepare();
      host.ForgetLog();
      met = Meet(k);
      for (const LogLine& line : host.TakeLog()) {
        said = said || (met && GetParam().said != nullptr && line.text == GetParam().said);
        EXPECT_FALSE(GetParam().never != nullptr && line.text == GetParam().never)
            << line << ", the change came at line " << k;
      }
      EXPECT_EQ("", Faults()) << "the change came at line " << k;
      host.ForgetLog();
    }
    return said;
  }
};

TEST_P(ChangesInBetween, LeaveTheRegistriesWhole) {
  const bool said = MeetAtEveryLine();
  EXPECT_TRUE(GetParam().said == nullptr || said) << GetParam().said;
}

TEST_P(ChangesInBetween, LeaveTheRegistriesWholeWhileNobodyHearsOfARejection) {
  onu_ability_set_log_level_mask(~1U);
  MeetAtEveryLine();
}

// Two that ask for an id at the same time must not get the same one.
TEST(ProfilesAddedInBetween, HaveIdsOfTheirOwn) {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  RecordingHost& host = RecordingHost::Instance();
  bool met = true;
  for (unsigned int k = 1; met; ++k) {
    ResetLibrary({});
    manager.Init();
    OnuAbilityProfile first = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, 1);
    OnuAbilityProfile second = MakeProfile(ONU_ABILITY_PROFILE_TYPE_MATCH, 1);
    unsigned int line = 0;
    host.log_listener = [&](const LogLine& /*said*/) {
      // The table's own lines come under its lock, where none may call back for it.
      if (host.locks_held() == 0 && ++line == k) {
        manager.Add(second);
      }
    };
    manager.Add(first);
    host.log_listener = nullptr;
    met = line >= k;
    std::vector<OnuAbilityProfile> stored;
    manager.GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, stored);
    ASSERT_EQ(met ? 2U : 1U, stored.size());
    EXPECT_NE(stored.front()._id, met ? stored.back()._id : 0) << "it came at line " << k;
    host.ForgetLog();
  }
}

std::string NameOf(const ::testing::TestParamInfo<Meeting>& parameter) {
  return parameter.param.name;
}

INSTANTIATE_TEST_SUITE_P(Of, ChangesInBetween, ::testing::ValuesIn(kMeetings), NameOf);

}  // namespace
