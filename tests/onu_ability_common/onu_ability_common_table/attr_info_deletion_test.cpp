// Deleting attribute ids, which an ability code may still hold.
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr auto kPortType = ONU_ABILITY_ATTR_PORT_TYPE;

class AttrInfoDeletionTest : public LibraryTest {
 protected:
  void SetUp() override {
    registry_->Add(kLamp, "LAMP");
    registry_->Add(kPortType, "PORT_TYPE");
    registry_->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
    host.ForgetLog();
  }

  bool Registered(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id) {
    const bool registered = registry_->IsExist(id) != 0;
    host.ForgetLog();
    return registered;
  }

  void DefineOneCode() {
    DefineCode(1010, "FE_PORTS");
    host.ForgetLog();
  }

  OnuAbilityAttrInfo* registry_ = OnuAbilityAttrInfo::GetInstance();
};

TEST_F(AttrInfoDeletionTest, DelByIdErases) {
  registry_->Del(kLamp);
  EXPECT_EQ(Lines({Log(1, "find ability_attr_id null!ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_FALSE(Registered(kLamp));
  EXPECT_TRUE(Registered(kPortType));
}

TEST_F(AttrInfoDeletionTest, DelByUnknownIdIsLogged) {
  registry_->Del(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77));
  EXPECT_EQ(Lines({Log(1, "find ability_attr_id null!ability_attr_id:77"),
                   Log(1, "ability_attr_id is not exist!ability_attr_id:77")}),
            host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoDeletionTest, DelByNameErases) {
  registry_->Del("LAMP");
  EXPECT_EQ(Lines({Log(6, "ability_attr_name is equal!ability_attr_name:LAMP"),
                   Log(1, "find ability_attr_id null!ability_attr_id:3"),
                   Log(6, "ability_attr_name is equal!ability_attr_name:LAMP"),
                   Log(9, "find ability_attr_name ok!ability_attr_name:LAMP")}),
            host.TakeLogWithoutTraces());
  EXPECT_FALSE(Registered(kLamp));
  EXPECT_TRUE(Registered(kPortType));
}

TEST_F(AttrInfoDeletionTest, DelByUnknownNameIsLogged) {
  registry_->Del("COLOUR");
  EXPECT_EQ(Lines({Log(1, "find ability_attr_id null!ability_attr_id:0"),
                   Log(1, "find ability_attr_name null!ability_attr_name:COLOUR")}),
            host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoDeletionTest, DelByIdIsRefusedWhileACodeHoldsTheId) {
  DefineOneCode();
  registry_->Del(kLamp);
  EXPECT_EQ(Lines({Log(9, "ability attr id exist!ability_attr_id:3"),
                   Log(0, "ability_attr_id is using, can not del!ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_TRUE(Registered(kLamp));
}

TEST_F(AttrInfoDeletionTest, DelByNameIsRefusedWhileACodeHoldsTheId) {
  DefineOneCode();
  registry_->Del("LAMP");
  EXPECT_EQ(Lines({Log(6, "ability_attr_name is equal!ability_attr_name:LAMP"),
                   Log(9, "ability attr id exist!ability_attr_id:3"),
                   Log(0, "ability_attr_id is using, can not del!ability_attr_id:3")}),
            host.TakeLogWithoutTraces());
  EXPECT_TRUE(Registered(kLamp));
}

TEST_F(AttrInfoDeletionTest, DelSucceedsOnceTheCodeIsDeleted) {
  DefineOneCode();
  EXPECT_EQ(0U, OnuAbilityCodeInfo::GetInstance()->Del(static_cast<unsigned short>(1010)));
  registry_->Del(kLamp);
  registry_->Del("PORT_TYPE");
  host.ForgetLog();
  EXPECT_FALSE(Registered(kLamp));
  EXPECT_FALSE(Registered(kPortType));
}

TEST_F(AttrInfoDeletionTest, PresenceCountsWhateverTheValue) {
  DefineOneCode();
  ASSERT_EQ(0, OnuAbilityCodeInfo::GetInstance()->Get()[0].ability_attr.at(kPortType));
  registry_->Del(kPortType);
  EXPECT_TRUE(host.ClaimLog(0, "ability_attr_id is using, can not del!ability_attr_id:4"));
  EXPECT_TRUE(Registered(kPortType));
}

TEST_F(AttrInfoDeletionTest, IdRegisteredAfterTheCodeIsFree) {
  DefineOneCode();
  registry_->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "CONFIRM_TYPE");
  registry_->Del(ONU_ABILITY_ATTR_CONFIRM_TYPE);
  EXPECT_EQ(Lines(), host.TakeLog({0}));
  EXPECT_FALSE(Registered(ONU_ABILITY_ATTR_CONFIRM_TYPE));
}

TEST_F(AttrInfoDeletionTest, ReadOfAnAttributeTakesItIntoUse) {
  DefineOneCode();
  registry_->Add(ONU_ABILITY_ATTR_CONFIRM_TYPE, "CONFIRM_TYPE");
  OnuAbilityCodeInfo::GetInstance()->Get(1010, ONU_ABILITY_ATTR_CONFIRM_TYPE);
  registry_->Del(ONU_ABILITY_ATTR_CONFIRM_TYPE);
  EXPECT_TRUE(host.ClaimLog(0, "ability_attr_id is using, can not del!ability_attr_id:1"));
  EXPECT_TRUE(Registered(ONU_ABILITY_ATTR_CONFIRM_TYPE));
}

// An unknown name stands for id 0, so that a code with an entry 0 refuses it.
TEST_F(AttrInfoDeletionTest, DelByUnknownNameAsksForId0) {
  registry_->Add(ONU_ABILITY_ATTR_NONE, "ZERO");
  DefineOneCode();
  registry_->Del("COLOUR");
  EXPECT_EQ(Lines({Log(9, "ability attr id exist!ability_attr_id:0"),
                   Log(0, "ability_attr_id is using, can not del!ability_attr_id:0")}),
            host.TakeLogWithoutTraces());
}

}  // namespace
