// Deleting ability codes, which a real profile may still hold.
#include "onu_ability_common_service_cinterface.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

class CodeInfoDeletionTest : public LibraryTest {
 protected:
  unsigned int Del(unsigned short code) { return registry_->Del(code); }
  unsigned int Del(const char* name) { return registry_->Del(std::string(name)); }

  // Codes, tables, and a profile of `type` that holds code 1010.
  void FillTable(int type) {
    DefineUsualCodes();
    InitTables();
    OnuAbilityProfile profile = type == 1 ? MakeRealProfile(5, 500) : MakeMatchProfile(5, 500);
    profile.Add(1010, 4U);
    AddToTable(profile);
    host.ForgetLog();
  }

  // Code 1010 and its neighbours, without any table.
  void DefineThree() {
    DefineCode(1002, "ONU_CAPA");
    DefineCode(1010, "FE_PORTS");
    DefineCode(1011, "GE_PORTS");
    OnuAbilityTableManager::GetInstance();  // the first use logs its construction
    host.ForgetLog();
  }

  bool Registered(unsigned short code) {
    const bool registered = registry_->IsExist(code) != 0;
    host.ForgetLog();
    return registered;
  }

  OnuAbilityCodeInfo* registry_ = OnuAbilityCodeInfo::GetInstance();

 private:
  void SetUp() override {
    OnuAbilityAttrInfo::GetInstance()->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
    host.ForgetLog();
  }
};

TEST_F(CodeInfoDeletionTest, DelOfACodeUsedByARealProfileFails) {
  FillTable(1);
  EXPECT_EQ(0x80000003U, Del(1010));
  EXPECT_TRUE(host.ClaimLog(6, "ability_code exist!key_ability_value:5, ability_code:1010"));
  EXPECT_EQ(Lines({Log(0, "ability_code exist!ability_code:1010")}), host.TakeLog({0}));
  EXPECT_TRUE(Registered(1010));
}

// The two refusals are meant to differ in their level.
TEST_F(CodeInfoDeletionTest, RefusalIsLevel0ByCodeAndLevel4ByName) {
  FillTable(1);
  EXPECT_EQ(0x80000003U, Del(1010));
  EXPECT_TRUE(host.ClaimLog(0, "ability_code exist!ability_code:1010"));
  host.ForgetLog();
  EXPECT_EQ(0x80000003U, Del("FE_PORTS"));
  EXPECT_TRUE(host.ClaimLog(4, "ability_name exist!ability_name:FE_PORTS"));
  EXPECT_EQ(Lines(), host.TakeLog({0}));
  EXPECT_TRUE(Registered(1010));
}

TEST_F(CodeInfoDeletionTest, DelOfACodeHeldOnlyByMatchProfilesSucceeds) {
  FillTable(2);
  EXPECT_EQ(0U, Del(1010));
  EXPECT_EQ(Lines(), host.TakeLog({0}));
  EXPECT_FALSE(Registered(1010));
}

TEST_F(CodeInfoDeletionTest, DelByNameOfACodeHeldOnlyByMatchProfilesSucceeds) {
  FillTable(2);
  EXPECT_EQ(0U, Del("FE_PORTS"));
  EXPECT_FALSE(Registered(1010));
}

TEST_F(CodeInfoDeletionTest, DelOfACodeThatNoRealProfileHoldsSucceeds) {
  FillTable(1);
  EXPECT_EQ(0U, Del(1011));
  EXPECT_FALSE(Registered(1011));
  EXPECT_EQ(0U, Del("POTS_PORTS"));
  EXPECT_FALSE(Registered(1020));
}

TEST_F(CodeInfoDeletionTest, DelByCodeErasesTheRecordAndMovesLaterOnesUp) {
  DefineThree();
  EXPECT_EQ(0U, Del(1010));
  EXPECT_EQ(Lines({Log(9, "ability_code is equal!ability_code:1010"),
                   Log(9, "find ability_code ok!ability_code:1010")}),
            host.TakeLogWithoutTraces());
  ASSERT_EQ(2U, registry_->Get().size());
  EXPECT_EQ(1002, registry_->Get()[0].ability_code);
  EXPECT_EQ(1011, registry_->Get()[1].ability_code);
  EXPECT_EQ("GE_PORTS", registry_->Get()[1].ability_name);
}

TEST_F(CodeInfoDeletionTest, DelOfAnUnknownCodeCountsAsSuccess) {
  DefineThree();
  EXPECT_EQ(0U, Del(7));
  EXPECT_EQ(Lines({Log(1, "find ability_code null!ability_code:7")}), host.TakeLogWithoutTraces());
  EXPECT_EQ(3U, registry_->Get().size());
}

TEST_F(CodeInfoDeletionTest, DelByNameErasesTheRecordAndMovesLaterOnesUp) {
  DefineThree();
  EXPECT_EQ(0U, Del("FE_PORTS"));
  EXPECT_EQ(Lines({Log(9, "ability_name is equal!ability_name:FE_PORTS"),
                   Log(9, "ability_name valid!ability_name:FE_PORTS")}),
            host.TakeLogWithoutTraces());
  ASSERT_EQ(2U, registry_->Get().size());
  EXPECT_EQ(1002, registry_->Get()[0].ability_code);
  EXPECT_EQ(1011, registry_->Get()[1].ability_code);
}

TEST_F(CodeInfoDeletionTest, DelOfAnUnknownNameCountsAsSuccessWithoutALine) {
  DefineThree();
  EXPECT_EQ(0U, Del("fe_ports"));
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
  EXPECT_EQ(3U, registry_->Get().size());
}

// An unknown name stands for code 65535, which a real profile may hold.
TEST_F(CodeInfoDeletionTest, DelOfAnUnknownNameAsksForCode65535) {
  DefineUsualCodes();
  InitTables();
  OnuAbilityProfile profile = MakeRealProfile(5, 500);
  profile.UpdateInit(65535, 1U);
  AddToTable(profile);
  host.ForgetLog();
  EXPECT_EQ(0x80000003U, Del("NO_SUCH_NAME"));
  EXPECT_TRUE(host.ClaimLog(4, "ability_name exist!ability_name:NO_SUCH_NAME"));
}

TEST_F(CodeInfoDeletionTest, UnknownCodeThatARealProfileHoldsIsRefusedToo) {
  DefineUsualCodes();
  InitTables();
  OnuAbilityProfile profile = MakeRealProfile(5, 500);
  profile.UpdateInit(4000, 1U);
  AddToTable(profile);
  host.ForgetLog();
  EXPECT_EQ(0x80000003U, Del(4000));
  EXPECT_TRUE(host.ClaimLog(0, "ability_code exist!ability_code:4000"));
}

TEST_F(CodeInfoDeletionTest, BeforeThereIsARealTableEveryKnownCodeIsDeleted) {
  DefineThree();
  EXPECT_EQ(0U, Del(1002));
  EXPECT_EQ(0U, Del(1011));
  EXPECT_EQ(0U, Del("FE_PORTS"));
  EXPECT_TRUE(registry_->Get().empty());
}

TEST_F(CodeInfoDeletionTest, EmptyEntryForTheRealTableCountsAsNoTable) {
  DefineThree();
  EXPECT_EQ(0U, onu_ability_get_onu_lamp_total_num(500));
  EXPECT_TRUE(host.ClaimLog(13, "there is null pointer!"));
  ASSERT_EQ(1U, OnuAbilityTableManager::GetInstance()->_map_table.size());
  EXPECT_EQ(0U, Del(1010));
  EXPECT_EQ(0U, Del("GE_PORTS"));
  EXPECT_EQ(1U, registry_->Get().size());
}

TEST_F(CodeInfoDeletionTest, MatchTableAloneIsNotConsulted) {
  DefineUsualCodes();
  OnuAbilityTableManager::GetInstance()->AddOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  OnuAbilityProfile profile = MakeMatchProfile(5, 500);
  profile.Add(1010, 4U);
  AddToTable(profile);
  host.ForgetLog();
  EXPECT_EQ(0U, Del(1010));
  EXPECT_FALSE(Registered(1010));
}

TEST_F(CodeInfoDeletionTest, EveryDeletionSaysLastThatItEnds) {
  FillTable(1);
  const auto says_its_end = [this] {
    const Lines lines = host.TakeLog();
    return !lines.empty() && lines.back() == Log(10, "function end!") &&
           lines.back().function == "Del";
  };
  for (const int code : {1010, 1011, 4000}) {
    Del(static_cast<unsigned short>(code));
    EXPECT_TRUE(says_its_end()) << code;
  }
  for (const char* name : {"FE_PORTS", "POTS_PORTS", "NO_SUCH_NAME"}) {
    Del(name);
    EXPECT_TRUE(says_its_end()) << name;
  }
}

// The in-use test reads without the table's lock, as the table's IsExist does.
TEST_F(CodeInfoDeletionTest, TakesNoLock) {
  FillTable(1);
  host.ForgetMutexCalls();
  Del(1010);
  Del("FE_PORTS");
  Del(1011);
  EXPECT_TRUE(host.mutex_calls().empty());
  host.ForgetLog();
}

}  // namespace
