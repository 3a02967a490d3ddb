// The definition record of an ability code as it is constructed.
#include <map>

#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Attributes = std::map<int, unsigned short>;

class CodeAttrInfoTest : public LibraryTest {
 protected:
  static Attributes AttributesOf(const ONU_ABILITY_CODE_ATTR_INFO& info) {
    return Attributes(info.ability_attr.begin(), info.ability_attr.end());
  }

  static void Register(int id, const std::string& name) {
    OnuAbilityAttrInfo::GetInstance()->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id), name);
  }
};

TEST_F(CodeAttrInfoTest, NewRecordIsCode1001WithoutName) {
  const ONU_ABILITY_CODE_ATTR_INFO info;
  EXPECT_EQ("", info.ability_name);
  EXPECT_EQ(1001, info.ability_code);
}

TEST_F(CodeAttrInfoTest, RecordMadeWhileIds1And3And4AreRegisteredHasThemAnd5) {
  Register(4, "PORT_TYPE");
  Register(1, "CONFIRM_TYPE");
  Register(3, "LAMP");
  EXPECT_EQ(Attributes({{1, 0}, {3, 0}, {4, 0}, {5, 2}}),
            AttributesOf(ONU_ABILITY_CODE_ATTR_INFO()));
}

TEST_F(CodeAttrInfoTest, RecordMadeWhileRegistryIsEmptyHasOnly5) {
  EXPECT_EQ(Attributes({{5, 2}}), AttributesOf(ONU_ABILITY_CODE_ATTR_INFO()));
}

TEST_F(CodeAttrInfoTest, RegisteredId5StillStartsAsNumber) {
  Register(5, "VALUE_TYPE");
  EXPECT_EQ(Attributes({{5, 2}}), AttributesOf(ONU_ABILITY_CODE_ATTR_INFO()));
}

TEST_F(CodeAttrInfoTest, HostsOwnIdsGetAnEntry) {
  Register(2, "OWN");
  Register(700, "OTHER");
  EXPECT_EQ(Attributes({{2, 0}, {5, 2}, {700, 0}}), AttributesOf(ONU_ABILITY_CODE_ATTR_INFO()));
}

TEST_F(CodeAttrInfoTest, LaterRegistrationDoesNotReachARecord) {
  const ONU_ABILITY_CODE_ATTR_INFO info;
  Register(3, "LAMP");
  EXPECT_EQ(Attributes({{5, 2}}), AttributesOf(info));
}

TEST_F(CodeAttrInfoTest, CopyIsIndependent) {
  ONU_ABILITY_CODE_ATTR_INFO info;
  info.ability_name = "FE_PORTS";
  ONU_ABILITY_CODE_ATTR_INFO copy = info;
  info.ability_name = "OTHER";
  info.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = 3;
  EXPECT_EQ("FE_PORTS", copy.ability_name);
  EXPECT_EQ(Attributes({{5, 2}}), AttributesOf(copy));
}

}  // namespace
