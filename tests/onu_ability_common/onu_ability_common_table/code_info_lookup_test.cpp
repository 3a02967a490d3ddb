// Asking the code registry, and the traces of its operations.
#include <functional>

#include "support/catalogue_builder.h"
#include "support/recording_host.h"
#include "support/traces.h"

namespace {

using Lines = std::vector<LogLine>;

constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr auto kPortType = ONU_ABILITY_ATTR_PORT_TYPE;
constexpr auto kUnknown = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77);

class CodeInfoLookupTest : public LibraryTest {
 protected:
  void SetUp() override {
    RegisterAttributes();
    DefineCode(1010, "FE_PORTS", {{kPortType, 3}});
    DefineCode(1030, "POWER_LAMP", {{kLamp, 65535}});
    host.ForgetLog();
  }

  OnuAbilityCodeInfo* registry_ = OnuAbilityCodeInfo::GetInstance();
};

TEST_F(CodeInfoLookupTest, KnownCodeExists) {
  EXPECT_EQ(1U, registry_->IsExist(static_cast<unsigned short>(1010)));
  EXPECT_EQ(Lines({Log(6, "ability code is equal!ability_code:1010")}),
            host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, UnknownCodeDoesNotExist) {
  EXPECT_EQ(0U, registry_->IsExist(static_cast<unsigned short>(65535)));
  EXPECT_EQ(Lines({Log(1, "find ability code null!ability_code:65535")}),
            host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, AttributeOfSomeRecordExistsWhateverItsValue) {
  DefineCode(1031, "LAN_LAMP", {{kUnknown, 0}});
  host.ForgetLog();
  EXPECT_EQ(1U, registry_->IsExist(kLamp));
  EXPECT_EQ(1U, registry_->IsExist(ONU_ABILITY_ATTR_CONFIRM_TYPE));
  EXPECT_EQ(Lines({Log(9, "ability attr id exist!ability_attr_id:3"),
                   Log(9, "ability attr id exist!ability_attr_id:1")}),
            host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, AttributeOfNoRecordDoesNotExist) {
  EXPECT_EQ(0U, registry_->IsExist(kUnknown));
  EXPECT_EQ(Lines({Log(1, "find ability_attr_id null!ability_attr_id:77")}),
            host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, GetByNameGivesTheCode) {
  EXPECT_EQ(1030, registry_->Get("POWER_LAMP"));
  EXPECT_EQ(Lines({Log(9, "ability_name is equal!ability_name:POWER_LAMP")}),
            host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, GetByUnknownNameGives65535WithoutALine) {
  EXPECT_EQ(65535, registry_->Get("power_lamp"));
  EXPECT_EQ(65535, registry_->Get(""));
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, GetByCodeGivesTheName) {
  EXPECT_EQ("FE_PORTS", registry_->Get(static_cast<unsigned short>(1010)));
  EXPECT_EQ(Lines({Log(9, "ability_code is equal!ability_code:1010, ability_name:FE_PORTS")}),
            host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, GetByUnknownCodeGivesTheTextNull) {
  EXPECT_EQ("NULL", registry_->Get(static_cast<unsigned short>(1)));
  EXPECT_EQ(Lines({Log(1, "find ability_code null!ability_code:1")}), host.TakeLogWithoutTraces());
}

TEST_F(CodeInfoLookupTest, FirstOfTwoRecordsAnswers) {
  registry_->Get().push_back(registry_->Get()[0]);
  registry_->Get().back().ability_name = "SECOND";
  EXPECT_EQ("FE_PORTS", registry_->Get(static_cast<unsigned short>(1010)));
  registry_->Get().back().ability_code = 9;
  registry_->Get().back().ability_name = "FE_PORTS";
  EXPECT_EQ(1010, registry_->Get("FE_PORTS"));
}

TEST_F(CodeInfoLookupTest, GetOfAnAttributeGivesItsValue) {
  EXPECT_EQ(3, registry_->Get(1010, kPortType));
  EXPECT_TRUE(host.ClaimLog(9,
                            "ability_code is equal!ability_code:1010, ability_name:FE_PORTS, "
                            "ability_attr_id:4, ability_attr_name:PORT_TYPE, "
                            "ability_attr_value:3"));
  EXPECT_EQ(0, registry_->Get(1010, kLamp));
  EXPECT_EQ(2, registry_->Get(1010, ONU_ABILITY_ATTR_VALUE_TYPE));
  EXPECT_EQ(65535, registry_->Get(1030, kLamp));
  EXPECT_TRUE(host.ClaimLog(9,
                            "ability_code is equal!ability_code:1030, ability_name:POWER_LAMP, "
                            "ability_attr_id:3, ability_attr_name:LAMP, "
                            "ability_attr_value:65535"));
}

// A write on read, and meant: a code registered before an attribute acquires it
// the first time it is read.
TEST_F(CodeInfoLookupTest, GetOfAMissingAttributeGives0AndAddsTheEntry) {
  OnuAbilityAttrInfo::GetInstance()->Add(kUnknown, "COLOUR");
  ASSERT_EQ(0U, registry_->Get()[0].ability_attr.count(kUnknown));
  host.ForgetLog();
  EXPECT_EQ(0, registry_->Get(1010, kUnknown));
  ASSERT_EQ(1U, registry_->Get()[0].ability_attr.count(kUnknown));
  EXPECT_EQ(0, registry_->Get()[0].ability_attr.at(kUnknown));
  EXPECT_EQ(0U, registry_->Get()[1].ability_attr.count(kUnknown));
  EXPECT_TRUE(host.ClaimLog(9,
                            "ability_code is equal!ability_code:1010, ability_name:FE_PORTS, "
                            "ability_attr_id:77, ability_attr_name:COLOUR, "
                            "ability_attr_value:0"));
}

TEST_F(CodeInfoLookupTest, GetOfAnUnregisteredAttributeGives65535AndAddsNothing) {
  EXPECT_EQ(65535, registry_->Get(1010, kUnknown));
  EXPECT_TRUE(host.ClaimLog(0, "ability_attr_id do not exist,ability_attr_id:77"));
  EXPECT_EQ(0U, registry_->Get()[0].ability_attr.count(kUnknown));
}

TEST_F(CodeInfoLookupTest, UnregisteredAttributeIsRefusedEvenIfTheRecordHasIt) {
  registry_->Get()[0].ability_attr[kUnknown] = 8;
  EXPECT_EQ(65535, registry_->Get(1010, kUnknown));
  EXPECT_TRUE(host.ClaimLog(0, "ability_attr_id do not exist,ability_attr_id:77"));
}

TEST_F(CodeInfoLookupTest, GetOfAnAttributeOfAnUnknownCodeGives65535) {
  EXPECT_EQ(65535, registry_->Get(1, kLamp));
  EXPECT_TRUE(host.ClaimLog(1, "find ability_code null!ability_code:1"));
  EXPECT_EQ(2U, registry_->Get().size());
}

TEST_F(CodeInfoLookupTest, AttributeIsTestedBeforeTheCode) {
  EXPECT_EQ(65535, registry_->Get(1, kUnknown));
  EXPECT_TRUE(host.ClaimLog(0, "ability_attr_id do not exist,ability_attr_id:77"));
  EXPECT_FALSE(host.ClaimLog(1, "find ability_code null!ability_code:1"));
}

TEST_F(CodeInfoLookupTest, EveryOperationTracesStartAndEnd) {
  vty terminal;
  OnuAbilityTableManager::GetInstance();  // the first use logs its construction
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_name = "ALL_LAN";
  ONU_ABILITY_CODE_ATTR_INFO taken = info;
  taken.ability_code = 7;
  constexpr unsigned short kCode = 1010;
  constexpr unsigned short kNoCode = 1;
  const std::vector<std::function<void()>> operations = {
      [&] { registry_->IsValid(info); },
      [&] { registry_->Update(info); },
      [&] { registry_->IsValid(taken); },
      [&] { registry_->Update(taken); },
      [&] { registry_->IsExist(kCode); },
      [&] { registry_->IsExist(kNoCode); },
      [&] { registry_->IsExist(kLamp); },
      [&] { registry_->IsExist(kUnknown); },
      [&] { registry_->Get("FE_PORTS"); },
      [&] { registry_->Get("NONE"); },
      [&] { registry_->Get(kCode); },
      [&] { registry_->Get(kNoCode); },
      [&] { registry_->Get(kCode, kLamp); },
      [&] { registry_->Get(kNoCode, kLamp); },
      [&] { registry_->Get(kCode, kUnknown); },
      [&] { registry_->Show(&terminal); },
      [&] { registry_->Show(&terminal, kCode); },
      [&] { registry_->Show(&terminal, std::string("fe")); },
      [&] { registry_->Show(nullptr); },
      [&] { registry_->Show(nullptr, kCode); },
      [&] { registry_->Show(nullptr, std::string("fe")); },
      [&] { registry_->Del(kNoCode); },
      [&] { registry_->Del(kCode); },
      [&] { registry_->Del("POWER_LAMP"); },
      [&] { registry_->Del("NONE"); },
  };
  for (size_t i = 0; i < operations.size(); ++i) {
    host.ForgetLog();
    operations[i]();
    const Lines lines = host.TakeLog();
    ASSERT_GE(lines.size(), 2U) << "operation " << i;
    EXPECT_EQ(Log(10, "function start!"), lines.front()) << "operation " << i;
    EXPECT_EQ(Log(10, "function end!"), lines.back()) << "operation " << i;
    EXPECT_EQ(lines.front().function, lines.back().function) << "operation " << i;
    EXPECT_EQ("", UnevenTraces(lines)) << "operation " << i;
  }
}

}  // namespace
