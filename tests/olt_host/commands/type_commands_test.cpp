// What operators see of the types that can do something, and of how two differ.
#include <gtest/gtest.h>

#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"

namespace olt_host_test {
namespace {

class TypeCommands : public testing::Test {
 protected:
  // A type of the operator's, over the shipped one with its key.
  void AddOwn(unsigned int key, const std::string& name) {
    const std::string number = std::to_string(key);
    session_.Type("add onu_ability_profile key " + number +
                  " profile_type 1 reporttype 0 realtype " + number +
                  " vendorid null onu_type_name \"" + name + "\"");
    session_.Type("set onu_ability_profile key " + number + " 47 8");
    session_.Type("apply onu_ability_profile key " + number);
    ASSERT_TRUE(session_.last().ok());
  }

  CommandSession session_{{olt_host::InstallTypeCommands}};
};

TEST_F(TypeCommands, ListTypesNewestFirst) {
  const std::string text = session_.Type("show type");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            " Key  Real  Type name      From\r\n"
            "1003  1003  SFU-4FE        shipped\r\n"
            "1002  1002  HGU-4GE-1POTS  shipped\r\n"
            "1001  1001  SFU-1GE        shipped\r\n"
            "\r\n"
            "3 of 3 types\r\n");
}

TEST_F(TypeCommands, TellWhichTypesCanDoItAndWhatTheyHave) {
  const std::string text = session_.Type("show type where lan>=4 and (pots>=1 or capa = sfu)");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            " Key  Real  Type name      From     ALL_LAN  POTS_PORTS  ONU_CAPA\r\n"
            "1003  1003  SFU-4FE        shipped        4           0       sfu\r\n"
            "1002  1002  HGU-4GE-1POTS  shipped        4           1       hgu\r\n"
            "\r\n"
            "2 of 3 types\r\n");
  EXPECT_EQ(session_.Type("show type where lan>9"), "0 of 3 types\r\n");
}

TEST_F(TypeCommands, MarkWhatANewerTypeHides) {
  AddOwn(1001, "OWN 8");
  EXPECT_EQ(session_.Type("show type where lamps!=0 or ge=8 "),
            " Key  Real  Type name  From      LAMPS  GE_PORTS\r\n"
            "1001  1001  OWN 8      operator      0         8\r\n"
            "1001  1001  SFU-1GE    shipped*    261         1\r\n"
            "\r\n"
            "2 of 4 types\r\n"
            "* hidden: a newer type has the same key, and queries read that one\r\n");
}

TEST_F(TypeCommands, AnswerInJson) {
  const auto answer = session_.TypeJson("show type where name~4g json");
  EXPECT_EQ(answer.dump(),
            R"({"where":"name~4g","count":1,"of":3,"types":[{"key":1002,"real_type":1002,)"
            R"("type_name":"HGU-4GE-1POTS","source":"shipped","id":17,"hidden":false,)"
            R"("abilities":{"TYPE_NAME":"HGU-4GE-1POTS"}}]})");
  EXPECT_EQ(session_.TypeJson("show type json")["where"], nullptr);
  EXPECT_EQ(session_.TypeJson("show type json")["types"].size(), 3U);
  EXPECT_EQ(
      session_.TypeJson("show type where vendor='' json")["types"][0]["abilities"]["VENDOR_ID"],
      nullptr);
}

TEST_F(TypeCommands, TakeExpressionsInWordsOrInQuotes) {
  AddOwn(5, "Big One");
  for (const char* line :
       {"show type where ge>=8 and name ~ \"big one\"", "show type where \"ge>=8 and name~big\"",
        "show type where ge >= 8 and name = 'Big One'", "sh type wh ge>=8",
        "show type where \"name = 'Big One' and ge>0\""}) {
    EXPECT_NE(session_.Type(line).find("\r\n1 of 4 types\r\n"), std::string::npos) << line;
  }
  EXPECT_EQ(session_.Type("show type where ge>=8 | include Big"),
            "  5     5  Big One    operator         8\r\n");
}

TEST_F(TypeCommands, PointAtWhatIsWrongInAnExpression) {
  EXPECT_EQ(session_.Type("show type where ge>=8 adn pots=1"),
            "  ge>=8 adn pots=1\r\n"
            "        ^\r\n"
            "  show type where ge>=8 adn pots=1\r\n"
            "% \"adn\" stands behind a comparison; expected \"and\"\r\n");
  EXPECT_EQ(session_.Refusal("show type where \"\""),
            "the expression is empty; expected a comparison such as lan>=4");
  EXPECT_EQ(session_.TypeJson("show type where ge>=8 adn json").dump(),
            R"({"error":{"message":"character 7: \"adn\" stands behind a comparison; )"
            R"(expected \"and\""}})");
  session_.Type("show type where");
  EXPECT_FALSE(session_.last().ok());
}

TEST_F(TypeCommands, LongExpressionsShowAsManyColumnsAsFit) {
  const std::string text = session_.Type(
      "show type where lan<9 and uni<9 and pots<9 and fe<9 and ge<9 and capa<9 and lamps<999");
  ExpectFitsScreen(text);
  EXPECT_NE(text.find("HGU-4GE-1POTS  shipped"), std::string::npos) << text;
  EXPECT_EQ(session_
                .TypeJson("show type where lan<9 and uni<9 and pots<9 and fe<9 and ge<9 and "
                          "capa<9 and lamps<999 json")["types"][0]["abilities"]
                .size(),
            7U);
}

TEST_F(TypeCommands, CompareTwoTypes) {
  const std::string text = session_.Type("compare type 1002 sfu-4fe");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            "  A  key 1002, real type 1002, \"HGU-4GE-1POTS\", shipped\r\n"
            "  B  key 1003, real type 1003, \"SFU-4FE\", shipped\r\n"
            "\r\n"
            "Code  Ability     A                B\r\n"
            "  24  FE_PORTS    0                4\r\n"
            "  32  POTS_PORTS  1                0\r\n"
            "  47  GE_PORTS    4                0\r\n"
            "1002  ONU_CAPA    hgu              sfu\r\n"
            "1081  REAL_TYPE   1002             1003\r\n"
            "1083  TYPE_NAME   \"HGU-4GE-1POTS\"  \"SFU-4FE\"\r\n"
            "1085  KEY         1002             1003\r\n"
            "\r\n"
            "Alike in 3: ALL_LAN 4, TRANS_TYPE 1, DATA_UNI 4\r\n");
}

TEST_F(TypeCommands, ATypeDiffersFromItselfInNothing) {
  const std::string text = session_.Type("compare type 1003 1003");
  ExpectFitsScreen(text);
  EXPECT_NE(text.find("They differ in nothing\r\n\r\nAlike in 7: FE_PORTS 4"), std::string::npos)
      << text;
}

TEST_F(TypeCommands, CompareInJson) {
  const auto answer = session_.TypeJson("compare type 1002 1003 json");
  EXPECT_EQ(answer["a"]["key"], 1002);
  EXPECT_EQ(answer["b"]["type_name"], "SFU-4FE");
  EXPECT_EQ(answer["abilities"].size(), 10U);
  EXPECT_EQ(answer["abilities"][0].dump(),
            R"({"code":24,"name":"FE_PORTS","a":0,"b":4,"same":false})");
  EXPECT_EQ(session_.TypeJson("compare type 7 8 json").dump(),
            R"({"error":{"message":"No type is called \"7\"; expected a key, a real type or a )"
            R"(type name that \"show type\" lists"}})");
}

TEST_F(TypeCommands, CompareTellsAmbiguousAndUnknownTypes) {
  EXPECT_EQ(session_.Refusal("compare type sfu 1002").substr(0, 36),
            "\"sfu\" may be key=1003 (\"SFU-4FE\"), k");
  EXPECT_EQ(session_.Refusal("compare type SFU-4EF 1002"),
            "No type is called \"SFU-4EF\"; expected \"SFU-4FE\"");
}

TEST_F(TypeCommands, AreForReadOnlyOperatorsToo) {
  session_.terminal().settings().access = olt_host::Access::kReadOnly;
  for (const char* line : {"show type", "show type where ge=1", "compare type 1001 1002"}) {
    session_.Type(line);
    EXPECT_TRUE(session_.last().ok()) << line;
  }
}

}  // namespace
}  // namespace olt_host_test
