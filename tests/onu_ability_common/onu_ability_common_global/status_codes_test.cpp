// The status codes: one test a code, provoked, and how a log prints them.
#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class StatusCodesTest : public LibraryTest {};

TEST_F(StatusCodesTest, NumbersAreFixed) {
  EXPECT_EQ(0U, ONU_ABILITY_RET_OK);
  EXPECT_EQ(0x80000001U, ONU_ABILITY_RET_NULL_PTR);
  EXPECT_EQ(0x80000002U, ONU_ABILITY_RET_INVALID_PARAM);
  EXPECT_EQ(0x80000003U, ONU_ABILITY_RET_OPERATE_FAILED);
  EXPECT_EQ(0x80000004U, ONU_ABILITY_RET_NOT_FOUND);
}

TEST_F(StatusCodesTest, NullPointerArgumentIsNullPtr) {
  EXPECT_EQ(ONU_ABILITY_RET_NULL_PTR, onu_ability_trans_str_lower_to_upper(nullptr));
  EXPECT_EQ(ONU_ABILITY_RET_NULL_PTR, all_1_onetype_to_twotype(1, nullptr));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
}

TEST_F(StatusCodesTest, AbsentRealTypeIsInvalidParam) {
  InitTables();
  EXPECT_EQ(ONU_ABILITY_RET_INVALID_PARAM, onu_ability_search_by_real_type(999));
}

TEST_F(StatusCodesTest, DuplicateRealProfileIsOperateFailed) {
  DefineUsualCodes();
  InitTables();
  AddToTable(MakeRealProfile(5, 500, 1));
  OnuAbilityProfile again = MakeRealProfile(5, 501, 1);
  EXPECT_EQ(ONU_ABILITY_RET_OPERATE_FAILED, OnuAbilityTableManager::GetInstance()->Add(again));
  host.ForgetLog();
}

TEST_F(StatusCodesTest, LookupWithoutProfileIsNotFound) {
  DefineUsualCodes();
  InitTables();
  unsigned int value = 1;
  EXPECT_EQ(ONU_ABILITY_RET_NOT_FOUND, OnuAbilityTableManager::GetInstance()->Get(
                                           ONU_ABILITY_PROFILE_TYPE_REAL, 5U, 1010, value));
  EXPECT_EQ(0U, value);
}

TEST_F(StatusCodesTest, LogPrintsAStatusInHex) {
  DefineUsualCodes();
  InitTables();
  host.ForgetLog();
  unsigned int value = 1;
  OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL, 5U, 1010, value);
  EXPECT_TRUE(host.ClaimLog(
      5,
      "Get Ability Value failed!profile_type:1, key_ability_value:5, ability_code:1010, "
      "ability_name:FE_PORTS, ret:0x80000004"));
}

}  // namespace
