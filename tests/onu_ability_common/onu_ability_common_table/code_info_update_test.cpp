// Defining and replacing ability codes, and the key ability code.
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

class CodeInfoUpdateTest : public LibraryTest {
 protected:
  void SetUp() override {
    RegisterAttributes();
    host.ForgetLog();
  }

  static ONU_ABILITY_CODE_ATTR_INFO Record(unsigned short code, const std::string& name) {
    ONU_ABILITY_CODE_ATTR_INFO info;
    info.ability_code = code;
    info.ability_name = name;
    return info;
  }

  // Code and name of every record, in vector order.
  std::vector<std::string> Records() {
    std::vector<std::string> records;
    for (const ONU_ABILITY_CODE_ATTR_INFO& info : registry_->Get()) {
      records.push_back(std::to_string(info.ability_code) + " " + info.ability_name);
    }
    return records;
  }

  void DefineThree() {
    DefineCode(1010, "FE_PORTS");
    DefineCode(1002, "ONU_CAPA");
    DefineCode(1020, "POTS_PORTS");
    host.ForgetLog();
  }

  OnuAbilityCodeInfo* registry_ = OnuAbilityCodeInfo::GetInstance();
};

// The lines of the attribute checks of a record with attributes 1, 3, 4 and 5.
Lines AttributeLines() {
  return {Log(6, "ability_attr_id:1"), Log(6, "ability_attr_id:3"), Log(6, "ability_attr_id:4"),
          Log(6, "ability_attr_id:5")};
}

Lines AttributeLinesAnd(const LogLine& last) {
  Lines lines = AttributeLines();
  lines.push_back(last);
  return lines;
}

TEST_F(CodeInfoUpdateTest, NewRegistryHasNoRecordsAndKeyCode1085) {
  EXPECT_TRUE(registry_->Get().empty());
  EXPECT_EQ(1085, registry_->GetKeyAbilityCode());
  EXPECT_EQ(registry_, OnuAbilityCodeInfo::GetInstance());
}

TEST_F(CodeInfoUpdateTest, KeyCodeNeedNotBeRegistered) {
  registry_->SetKeyAbilityCode(4242);
  EXPECT_EQ(4242, registry_->GetKeyAbilityCode());
  registry_->SetKeyAbilityCode(0);
  EXPECT_EQ(0, registry_->GetKeyAbilityCode());
}

TEST_F(CodeInfoUpdateTest, AccessorsLogNothing) {
  registry_->SetKeyAbilityCode(4242);
  registry_->GetKeyAbilityCode();
  registry_->Get();
  EXPECT_EQ(Lines(), host.TakeLog());
}

TEST_F(CodeInfoUpdateTest, KeyCodeReachesProfilesInitialisedAfterwards) {
  OnuAbilityProfile before = MakeProfile(1);
  registry_->SetKeyAbilityCode(4242);
  EXPECT_EQ(1085, before._key_ability_code);
  EXPECT_EQ(4242, MakeProfile(1)._key_ability_code);
}

TEST_F(CodeInfoUpdateTest, UpdateAppendsANewCode) {
  DefineThree();
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1001, "ALL_LAN");
  registry_->Update(info);
  EXPECT_EQ(AttributeLinesAnd(Log(1, "find ability code null!ability_code:1001")),
            host.TakeLogWithoutTraces());
  EXPECT_EQ(std::vector<std::string>(
                {"1010 FE_PORTS", "1002 ONU_CAPA", "1020 POTS_PORTS", "1001 ALL_LAN"}),
            Records());
}

TEST_F(CodeInfoUpdateTest, UpdateStoresACopy) {
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1010, "FE_PORTS");
  registry_->Update(info);
  info.ability_name = "OTHER";
  EXPECT_EQ(std::vector<std::string>({"1010 FE_PORTS"}), Records());
}

TEST_F(CodeInfoUpdateTest, UpdateReplacesNameAndAttributesInPlace) {
  DefineThree();
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1002, "CAPABILITY");
  info.ability_attr = {{ONU_ABILITY_ATTR_LAMP, 9}};
  registry_->Update(info);
  EXPECT_EQ(Lines({Log(6, "ability_attr_id:3"), Log(9, "ability code is equal!ability_code:1002")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ(std::vector<std::string>({"1010 FE_PORTS", "1002 CAPABILITY", "1020 POTS_PORTS"}),
            Records());
  EXPECT_EQ(info.ability_attr, registry_->Get()[1].ability_attr);
}

TEST_F(CodeInfoUpdateTest, SameCodeWithSameNameReplacesInPlace) {
  DefineThree();
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1010, "FE_PORTS");
  info.ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = 3;
  registry_->Update(info);
  EXPECT_EQ(AttributeLinesAnd(Log(9, "ability code is equal!ability_code:1010")),
            host.TakeLogWithoutTraces());
  EXPECT_EQ(std::vector<std::string>({"1010 FE_PORTS", "1002 ONU_CAPA", "1020 POTS_PORTS"}),
            Records());
  EXPECT_EQ(3, registry_->Get()[0].ability_attr.at(ONU_ABILITY_ATTR_PORT_TYPE));
}

TEST_F(CodeInfoUpdateTest, RefusesNameTakenByAnotherCode) {
  DefineThree();
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1011, "ONU_CAPA");
  registry_->Update(info);
  EXPECT_EQ(Lines({Log(0, "ability name is invalid!ability_code:1011, ability_name:ONU_CAPA"),
                   Log(0, "ability_code_info is invalid!")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ(3U, registry_->Get().size());
}

TEST_F(CodeInfoUpdateTest, RefusesRenamingACodeToAnothersName) {
  DefineThree();
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1010, "POTS_PORTS");
  registry_->Update(info);
  EXPECT_TRUE(
      host.ClaimLog(0, "ability name is invalid!ability_code:1010, ability_name:POTS_PORTS"));
  EXPECT_TRUE(host.ClaimLog(0, "ability_code_info is invalid!"));
  EXPECT_EQ(std::vector<std::string>({"1010 FE_PORTS", "1002 ONU_CAPA", "1020 POTS_PORTS"}),
            Records());
}

TEST_F(CodeInfoUpdateTest, RefusesAnAttributeIdThatIsNotRegistered) {
  ONU_ABILITY_CODE_ATTR_INFO info = Record(1010, "FE_PORTS");
  info.ability_attr = {{ONU_ABILITY_ATTR_CONFIRM_TYPE, 1},
                       {static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(2), 1},
                       {ONU_ABILITY_ATTR_LAMP, 1}};
  registry_->Update(info);
  EXPECT_EQ(Lines({Log(6, "ability_attr_id:1"), Log(6, "ability_attr_id:2"),
                   Log(1, "ability_attr_code is invalid!ability_attr_code:2"),
                   Log(0, "ability attr id do not exist!ability_attr_id:2"),
                   Log(0, "ability_code_info is invalid!")}),
            host.TakeLogWithoutTraces());
  EXPECT_TRUE(registry_->Get().empty());
}

TEST_F(CodeInfoUpdateTest, IsValidAnswersWithoutStoring) {
  DefineThree();
  EXPECT_EQ(1, registry_->IsValid(Record(1011, "GE_PORTS")));
  EXPECT_EQ(AttributeLines(), host.TakeLogWithoutTraces());
  EXPECT_EQ(1, registry_->IsValid(Record(1010, "FE_PORTS")));
  EXPECT_EQ(0, registry_->IsValid(Record(1011, "FE_PORTS")));
  EXPECT_TRUE(host.ClaimLog(0, "ability name is invalid!ability_code:1011, ability_name:FE_PORTS"));
  EXPECT_EQ(3U, registry_->Get().size());
}

TEST_F(CodeInfoUpdateTest, NamesCompareByteForByte) {
  DefineThree();
  EXPECT_EQ(1, registry_->IsValid(Record(1, "fe_ports")));
  EXPECT_EQ(1, registry_->IsValid(Record(1, "FE_PORT")));
  EXPECT_EQ(1, registry_->IsValid(Record(1, std::string("FE_PORTS\0", 9))));
}

TEST_F(CodeInfoUpdateTest, NeitherCodeNorEmptyOrLongNameIsTested) {
  for (const unsigned short code : std::vector<unsigned short>({0, 65535})) {
    EXPECT_EQ(1, registry_->IsValid(Record(code, "")));
    EXPECT_EQ(1, registry_->IsValid(Record(code, std::string(5000, 'X'))));
  }
}

TEST_F(CodeInfoUpdateTest, CopyOfEveryRecordReplacesTheCallersVector) {
  DefineThree();
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> out = {Record(1, "OLD"), Record(2, "OLDER"),
                                                 Record(3, "OLDEST"), Record(4, "FIRST")};
  onu_ability_get_all_ability_attr_info(out);
  ASSERT_EQ(3U, out.size());
  EXPECT_EQ(1010, out[0].ability_code);
  EXPECT_EQ("ONU_CAPA", out[1].ability_name);
  EXPECT_EQ(registry_->Get()[2].ability_attr, out[2].ability_attr);
  out[0].ability_name = "CHANGED";
  EXPECT_EQ("FE_PORTS", registry_->Get()[0].ability_name);
}

}  // namespace
