// The ten hooks: where each is kept, and when the set is complete.
#include "onu_ability_common_reg_extern_func.h"

#include <array>
#include <vector>

#include "support/recording_host.h"
#include "support/scripted_hooks.h"

namespace {

using Members = std::array<void*, 10>;

template <typename Function>
void* Address(const OnuAbilityHook<Function>& hook) {
  return reinterpret_cast<void*>(static_cast<Function>(hook));
}

// The members by hook id.
Members MembersById() {
  const OnuAbilityRegExternFunc* registry = OnuAbilityRegExternFunc::GetInstance();
  return {Address(registry->_get_vendor_id),          Address(registry->_get_report_type),
          Address(registry->_get_private_capability), Address(registry->_hand_over_profile),
          Address(registry->_set_real_type),          Address(registry->_set_report_type),
          Address(registry->_get_ability_value),      Address(registry->_get_identify_setting),
          Address(registry->_read_one_by_one),        Address(registry->_get_device_name)};
}

class HookRegistrationTest : public LibraryTest {
 protected:
  OnuAbilityRegExternFunc* registry_ = OnuAbilityRegExternFunc::GetInstance();
};

TEST_F(HookRegistrationTest, StartsWithoutAnyHook) {
  EXPECT_EQ(Members(), MembersById());
  EXPECT_FALSE(registry_->WhetherExternFuncRegistered());
}

TEST_F(HookRegistrationTest, EachIdHasItsMember) {
  for (unsigned short id = 0; id < 10; ++id) {
    registry_->RegisterExternFunc(id, HookFunction(id));
    const Members members = MembersById();
    for (unsigned short other = 0; other < 10; ++other) {
      EXPECT_EQ(other <= id ? HookFunction(other) : nullptr, members[other])
          << "hook " << other << " after " << id;
    }
  }
}

TEST_F(HookRegistrationTest, CompleteInAscendingOrder) {
  for (unsigned short id = 0; id < 10; ++id) {
    EXPECT_FALSE(registry_->WhetherExternFuncRegistered()) << id;
    registry_->RegisterExternFunc(id, HookFunction(id));
  }
  EXPECT_TRUE(registry_->WhetherExternFuncRegistered());
}

TEST_F(HookRegistrationTest, CompleteInAnyOtherOrder) {
  for (const unsigned short id : std::vector<unsigned short>({9, 4, 0, 7, 2, 8, 1, 6, 3, 5})) {
    EXPECT_FALSE(registry_->WhetherExternFuncRegistered()) << id;
    registry_->RegisterExternFunc(id, HookFunction(id));
  }
  EXPECT_TRUE(registry_->WhetherExternFuncRegistered());
}

class MissingHookTest : public LibraryTest, public ::testing::WithParamInterface<int> {};

TEST_P(MissingHookTest, LeavingOutAnyOneIsIncomplete) {
  const auto id = static_cast<unsigned short>(GetParam());
  RegisterHooksExcept(id);
  EXPECT_FALSE(OnuAbilityRegExternFunc::GetInstance()->WhetherExternFuncRegistered());
  onu_ability_register_extern_func(id, HookFunction(id));
  EXPECT_TRUE(OnuAbilityRegExternFunc::GetInstance()->WhetherExternFuncRegistered());
}

INSTANTIATE_TEST_SUITE_P(EveryId, MissingHookTest, ::testing::Range(0, 10));

// Meant, and not the order of the ids.
TEST_F(HookRegistrationTest, DeviceNameHookIsKeptBetweenIds2And3) {
  const std::vector<const void*> members = {
      &registry_->_get_vendor_id,          &registry_->_get_report_type,
      &registry_->_get_private_capability, &registry_->_get_device_name,
      &registry_->_hand_over_profile,      &registry_->_set_real_type,
      &registry_->_set_report_type,        &registry_->_get_ability_value,
      &registry_->_get_identify_setting,   &registry_->_read_one_by_one};
  const auto* first = static_cast<const char*>(members[0]);
  for (size_t i = 0; i < members.size(); ++i) {
    EXPECT_EQ(first + i * sizeof(void*), static_cast<const char*>(members[i])) << "member " << i;
  }
}

TEST_F(HookRegistrationTest, LaterRegistrationReplacesAnEarlierOne) {
  registry_->RegisterExternFunc(4, HookFunction(4));
  registry_->RegisterExternFunc(4, HookFunction(5));
  EXPECT_EQ(HookFunction(5), MembersById()[4]);
}

TEST_F(HookRegistrationTest, IdAbove9ChangesNothingWithoutAWord) {
  RegisterHooks();
  const Members before = MembersById();
  host.ForgetLog();
  registry_->RegisterExternFunc(10, HookFunction(0));
  registry_->RegisterExternFunc(65535, HookFunction(0));
  EXPECT_EQ(std::vector<LogLine>(), host.TakeLog());
  EXPECT_EQ(before, MembersById());
  EXPECT_EQ(19U, registry_->GetModuleId());
  EXPECT_EQ(26U, registry_->GetCmdNode());
}

TEST_F(HookRegistrationTest, IdAbove9DoesNotCompleteTheSet) {
  RegisterHooksExcept(9);
  registry_->RegisterExternFunc(10, HookFunction(9));
  EXPECT_FALSE(registry_->WhetherExternFuncRegistered());
}

TEST_F(HookRegistrationTest, NullFunctionIsLoggedAndLeavesTheEarlierHook) {
  registry_->RegisterExternFunc(3, HookFunction(3));
  host.ForgetLog();
  registry_->RegisterExternFunc(3, nullptr);
  EXPECT_EQ(std::vector<LogLine>({Log(13, "there is null pointer!")}), host.TakeLogWithoutTraces());
  EXPECT_EQ(HookFunction(3), MembersById()[3]);
}

TEST_F(HookRegistrationTest, NullFunctionIsLoggedForAnyId) {
  registry_->RegisterExternFunc(10, nullptr);
  EXPECT_EQ(std::vector<LogLine>({Log(13, "there is null pointer!")}), host.TakeLogWithoutTraces());
}

TEST_F(HookRegistrationTest, PlainFunctionForwardsToTheSingleton) {
  onu_ability_register_extern_func(9, HookFunction(9));
  EXPECT_EQ(HookFunction(9), MembersById()[9]);
  onu_ability_register_extern_func(9, nullptr);
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  EXPECT_EQ(HookFunction(9), MembersById()[9]);
}

}  // namespace
