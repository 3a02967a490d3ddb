// Registering attribute ids and renaming them.
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr auto kPortType = ONU_ABILITY_ATTR_PORT_TYPE;

class AttrInfoRegistrationTest : public LibraryTest {
 protected:
  // The whole registry, as its listing writes it.
  std::string Listing() {
    vty terminal;
    registry_->Show(&terminal);
    host.ForgetLog();
    return terminal.text;
  }

  void AddLamp() {
    registry_->Add(kLamp, "lamp");
    host.ForgetLog();
  }

  OnuAbilityAttrInfo* registry_ = OnuAbilityAttrInfo::GetInstance();
};

TEST_F(AttrInfoRegistrationTest, StartsEmpty) { EXPECT_EQ("", Listing()); }

TEST_F(AttrInfoRegistrationTest, ThereIsOneRegistry) {
  EXPECT_EQ(registry_, OnuAbilityAttrInfo::GetInstance());
}

TEST_F(AttrInfoRegistrationTest, AddInsertsANewIdWithAFreeName) {
  registry_->Add(kLamp, "lamp");
  EXPECT_EQ(Lines({Log(1, "ability_attr_id is valid!ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ("ability_attr_id:3, ability_attr_name:lamp\r\n", Listing());
}

TEST_F(AttrInfoRegistrationTest, AddRefusesANameOfAnotherId) {
  AddLamp();
  registry_->Add(kPortType, "lamp");
  EXPECT_EQ(Lines({Log(6, "ability attr name is equal!"),
                   Log(0, "ability attr name is invalid!ability_attr_name:lamp")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ("ability_attr_id:3, ability_attr_name:lamp\r\n", Listing());
}

TEST_F(AttrInfoRegistrationTest, AddRefusesARegisteredIdAndKeepsItsName) {
  AddLamp();
  registry_->Add(kLamp, "lamp2");
  EXPECT_EQ(Lines({Log(9, "ability_attr_id exist,ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ("ability_attr_id:3, ability_attr_name:lamp\r\n", Listing());
}

TEST_F(AttrInfoRegistrationTest, LampTwiceAndLamp2LeaveOnlyId3NamedLamp) {
  registry_->Add(kLamp, "lamp");
  registry_->Add(kPortType, "lamp");
  registry_->Add(kLamp, "lamp2");
  EXPECT_EQ("ability_attr_id:3, ability_attr_name:lamp\r\n", Listing());
}

TEST_F(AttrInfoRegistrationTest, AddTakesNamesThatDifferInCaseOrLength) {
  AddLamp();
  registry_->Add(kPortType, "LAMP");
  registry_->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "lam");
  registry_->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, std::string("lamp\0x", 6));
  EXPECT_EQ(Lines(), host.TakeLog({0}));
  EXPECT_EQ(4U, ONU_ABILITY_CODE_ATTR_INFO().ability_attr.size());
}

TEST_F(AttrInfoRegistrationTest, AddTakesAnyNumberAndTheEmptyName) {
  registry_->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(-5), "");
  registry_->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(70000), "big");
  EXPECT_EQ(
      "ability_attr_id:-5, ability_attr_name:\r\n"
      "ability_attr_id:70000, ability_attr_name:big\r\n",
      Listing());
}

TEST_F(AttrInfoRegistrationTest, UpdateRenamesARegisteredId) {
  AddLamp();
  registry_->Update(kLamp, "lamps");
  EXPECT_EQ(Lines({Log(9, "ability_attr_id exist,ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ("ability_attr_id:3, ability_attr_name:lamps\r\n", Listing());
}

// Its own name counts as taken like any other: meant.
TEST_F(AttrInfoRegistrationTest, UpdateRefusesTheNameThatTheIdAlreadyHas) {
  AddLamp();
  registry_->Update(kLamp, "lamp");
  EXPECT_EQ(Lines({Log(6, "ability attr name is equal!"),
                   Log(0, "ability attr name is invalid!ability_attr_name:lamp")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ("ability_attr_id:3, ability_attr_name:lamp\r\n", Listing());
}

TEST_F(AttrInfoRegistrationTest, UpdateRefusesTheNameOfAnotherId) {
  AddLamp();
  registry_->Add(kPortType, "port");
  registry_->Update(kPortType, "lamp");
  EXPECT_TRUE(host.ClaimLog(0, "ability attr name is invalid!ability_attr_name:lamp"));
  EXPECT_EQ("port", registry_->Get(kPortType));
}

TEST_F(AttrInfoRegistrationTest, UpdateRefusesAnUnknownId) {
  registry_->Update(kLamp, "lamp");
  EXPECT_EQ(Lines({Log(1, "ability_attr_id do not exist,ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_EQ("", Listing());
}

TEST_F(AttrInfoRegistrationTest, NameIsTestedBeforeTheId) {
  AddLamp();
  registry_->Add(kLamp, "lamp");
  registry_->Update(kPortType, "lamp");
  const LogLine equal = Log(6, "ability attr name is equal!");
  const LogLine invalid = Log(0, "ability attr name is invalid!ability_attr_name:lamp");
  EXPECT_EQ(Lines({equal, invalid, equal, invalid}), host.TakeLogWithoutTraces());
}

}  // namespace
