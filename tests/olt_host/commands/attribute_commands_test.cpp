// What operators see of the attributes, and how they add one.
#include <gtest/gtest.h>

#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "onu_ability_common_table.h"

namespace olt_host_test {
namespace {

class AttributeCommands : public testing::Test {
 protected:
  CommandSession session_{{olt_host::InstallAttributeCommands}};
};

TEST_F(AttributeCommands, ShowsIdsNamesUseAndFixedMeaning) {
  session_.Type("register attribute 65 COLOUR");
  const std::string text = session_.Type("show attribute");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            "Id  Name          Codes  Fixed meaning\r\n"
            " 1  CONFIRM_TYPE      5  confirms types: 1 compared, 2 asked from the ONU\r\n"
            " 3  LAMP              1  not 0: counts lamps\r\n"
            " 4  PORT_TYPE         3  3 LAN port, 3 or 7 data UNI\r\n"
            " 5  VALUE_TYPE       13  2 number, 3 string\r\n"
            "65  COLOUR            0  -\r\n");
}

TEST_F(AttributeCommands, ShowsThemAsJson) {
  session_.Type("register attribute 65 COLOUR");
  const auto attributes = session_.TypeJson("show attribute json")["attributes"];
  ASSERT_EQ(attributes.size(), 5U);
  EXPECT_EQ(attributes[1].dump(),
            R"({"id":3,"name":"LAMP","codes":1,"meaning":"not 0: counts lamps"})");
  EXPECT_EQ(attributes[4].dump(), R"({"id":65,"name":"COLOUR","codes":0,"meaning":null})");
}

TEST_F(AttributeCommands, RegisteredAttributeCanBeGivenToACode) {
  EXPECT_EQ(session_.Type("register attribute 65 COLOUR"), "Attribute 65 is COLOUR\r\n");
  EXPECT_EQ(OnuAbilityAttrInfo::GetInstance()->Get("COLOUR"), 65);
  session_.Type("set ability_code 2000 name PAINT 65 7");
  const auto attributes = session_.TypeJson("show attribute json")["attributes"];
  EXPECT_EQ(attributes[4]["codes"], 1);
}

TEST_F(AttributeCommands, RegisteringAnAttributeAgainUnderItsNameIsNoMistake) {
  EXPECT_EQ(session_.Type("register attribute 3 LAMP"), "Attribute 3 is LAMP\r\n");
  EXPECT_EQ(session_.TypeJson("show attribute json")["attributes"].size(), 4U);
}

TEST_F(AttributeCommands, TakenIdsAndNamesAreRefusedWithWhoHasThem) {
  EXPECT_EQ(session_.Refusal("register attribute 5 COLOUR"), "Attribute 5 is already VALUE_TYPE");
  EXPECT_EQ(session_.Refusal("register attribute 65 LAMP"),
            "LAMP is already the name of attribute 3");
  EXPECT_EQ(session_.TypeJson("show attribute json")["attributes"].size(), 4U);
}

TEST_F(AttributeCommands, NamesThatNoCatalogueCouldHaveAreRefused) {
  for (const char* name : {"\"\"", "123", "\"two words\"", "\"tab\tbed\""}) {
    const std::string line = std::string("register attribute 65 ") + name;
    EXPECT_NE(session_.Refusal(line).find("is no name of an attribute"), std::string::npos) << line;
  }
  EXPECT_EQ(session_.TypeJson("show attribute json")["attributes"].size(), 4U);
}

TEST_F(AttributeCommands, IdsOutsideTheirRangeAreRefused) {
  for (const char* line : {"register attribute 0 X", "register attribute 65536 X"}) {
    session_.Type(line);
    EXPECT_EQ(session_.last().kind, olt_host::CommandResult::kRefused) << line;
  }
}

TEST_F(AttributeCommands, LongNamesAreCutOnTheScreenOnly) {
  const std::string name(100, 'N');
  session_.Type("register attribute 65 " + name);
  ExpectFitsScreen(session_.Type("show attribute"));
  EXPECT_NE(session_.Type("show attribute").find("NNN...  "), std::string::npos);
  EXPECT_EQ(session_.TypeJson("show attribute json")["attributes"][4]["name"], name);
}

TEST_F(AttributeCommands, WithoutAnySaysSo) {
  OnuAbilityCodeInfo::GetInstance()->Get().clear();
  for (const int id : {1, 3, 4, 5}) {
    OnuAbilityAttrInfo::GetInstance()->Del(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
  }
  EXPECT_EQ(session_.Type("show attribute"), "No attributes\r\n");
  EXPECT_EQ(session_.TypeJson("show attribute json").dump(), R"({"attributes":[]})");
}

TEST_F(AttributeCommands, ReadOnlyOperatorsMayLookButNotRegister) {
  session_.terminal().settings().access = olt_host::Access::kReadOnly;
  EXPECT_EQ(session_.TypeJson("show attribute json")["attributes"].size(), 4U);
  session_.Type("register attribute 65 COLOUR");
  EXPECT_FALSE(session_.last().ok());
  EXPECT_EQ(session_.TypeJson("show attribute json")["attributes"].size(), 4U);
}

TEST_F(AttributeCommands, MayBeAbbreviated) {
  EXPECT_EQ(session_.Type("sh at j"), session_.Type("show attribute json"));
  EXPECT_EQ(session_.Type("reg a 66 SIZE"), "Attribute 66 is SIZE\r\n");
}

}  // namespace
}  // namespace olt_host_test
