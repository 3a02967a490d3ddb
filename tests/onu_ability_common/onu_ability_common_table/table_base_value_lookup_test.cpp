// Lookups of one value: number or string, by key ability value or by real type.
#include "table_fixture.h"

namespace table_test {
namespace {

class TableBaseValueLookupTest : public TableTest {
 protected:
  // Key values 1, 2 and 3 with types 10, 20 and 30, port counts 101, 102 and
  // 103 and names N1, N2 and N3.
  void PutThree() {
    for (const unsigned int key : {1U, 2U, 3U}) {
      OnuAbilityProfile profile = MakeRealProfile(key, static_cast<unsigned short>(10 * key));
      table.Put(With(With(profile, kFePorts, 100 + key), kTypeName, "N" + std::to_string(key)));
    }
    ForgetSetUp();
  }

  // One profile with key value 7 and type 70, with 4 ports and the name NAME.
  void PutOne() {
    table.Put(With(With(MakeRealProfile(7, 70), kFePorts, 4), kTypeName, "NAME"));
    ForgetSetUp();
  }

  OpenTable<OnuAbilityTableBase> table;
  unsigned int number = 55;
  std::string text = "before";
  const unsigned short type = 70;
};

const char kKeyRead[] =
    "get ok!ability_code:1085, ability_name:KEY_VALUE, value_type:2, ability_int_value:7, "
    "ability_string_value:";
const char kTypeRead[] =
    "get ok!ability_code:1081, ability_name:REAL_TYPE, value_type:2, ability_int_value:70, "
    "ability_string_value:";

TEST_F(TableBaseValueLookupTest, NumberByKeyValueIsFound) {
  PutOne();
  EXPECT_EQ(kOk, table.Get(7U, kFePorts, number));
  EXPECT_EQ(4U, number);
  ExpectLog({PortsNameAsked(),
             Log(10,
                 "(OnuAbilityTableBase)function start!key_ability_code:1085, "
                 "key_ability_value:7, ability_code:1010, ability_name:FE_PORTS"),
             KeyNameAsked(), Log(9, kKeyRead), Log(4, "ability_value_1:7, ability_value_2:7"),
             PortsNameAsked(),
             Log(9,
                 "get ok!ability_code:1010, ability_name:FE_PORTS, value_type:2, "
                 "ability_value:4"),
             PortsNameAsked(),
             Log(9,
                 "find ok!key_ability_code:1085, key_ability_value:7, abilitycode 1010, "
                 "ability_name:FE_PORTS, ability_value:4")});
}

TEST_F(TableBaseValueLookupTest, StringByKeyValueIsFound) {
  PutOne();
  EXPECT_EQ(kOk, table.Get(7U, kTypeName, text));
  EXPECT_EQ("NAME", text);
  ExpectLog({TypeNameAsked(),
             Log(10,
                 "(OnuAbilityTableBase)function start!key_ability_code:1085, "
                 "key_ability_value:7, ability_code:1083, ability_name:TYPE_NAME"),
             KeyNameAsked(), Log(9, kKeyRead), Log(4, "ability_value_1:7, ability_value_2:7"),
             TypeNameAsked(),
             Log(9,
                 "get ok!ability_code:1083, ability_name:TYPE_NAME, value_type:3, "
                 "ability_value:NAME"),
             TypeNameAsked(),
             Log(9,
                 "find ok!key_ability_code:1085, key_ability_value:7, ability_code:1083, "
                 "ability_name:TYPE_NAME, ability_value:NAME")});
}

TEST_F(TableBaseValueLookupTest, NumberByTypeIsFound) {
  PutOne();
  EXPECT_EQ(kOk, table.Get(type, kFePorts, number));
  EXPECT_EQ(4U, number);
  ExpectLog({PortsNameAsked(),
             Log(10,
                 "(OnuAbilityTableBase)function start!key_ability_code:1085, "
                 "onu_real_type:70, ability_code:1010, ability_name:FE_PORTS"),
             NameAsked(kRealType, "REAL_TYPE"), Log(9, kTypeRead),
             Log(4, "ability_value_1:70, ability_value_2:70"), PortsNameAsked(),
             Log(9,
                 "get ok!ability_code:1010, ability_name:FE_PORTS, value_type:2, "
                 "ability_value:4"),
             PortsNameAsked(),
             Log(9,
                 "find ok!key_ability_code:1085, onu_real_type:70, abilitycode 1010, "
                 "ability_name:FE_PORTS, ability_value:4")});
}

TEST_F(TableBaseValueLookupTest, StringByTypeIsFound) {
  PutOne();
  EXPECT_EQ(kOk, table.Get(type, kTypeName, text));
  EXPECT_EQ("NAME", text);
  ExpectLog({TypeNameAsked(),
             Log(9,
                 "get ok!ability_code:1083, ability_name:TYPE_NAME, value_type:3, "
                 "ability_value:NAME"),
             TypeNameAsked(),
             Log(9,
                 "find ok!onu_real_type:70, ability_code:1083, ability_name:TYPE_NAME, "
                 "ability_value:NAME")});
}

TEST_F(TableBaseValueLookupTest, NumberByKeyValueThatTheProfileLacksIsZero) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOperateFailed, table.Get(7U, kFePorts, number));
  EXPECT_EQ(0U, number);
  EXPECT_TRUE(host.ClaimLog(1,
                            "Get ability value failed!ret:0x80000004, key_ability_code:1085, "
                            "key_ability_value:7, ability_code:1010, ability_name:FE_PORTS"));
}

TEST_F(TableBaseValueLookupTest, NumberByTypeThatTheProfileLacksIsZero) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOperateFailed, table.Get(type, kFePorts, number));
  EXPECT_EQ(0U, number);
  EXPECT_TRUE(host.ClaimLog(1,
                            "Get ability value failed!ret:0x80000004, key_ability_code:1085, "
                            "onu_real_type:70, ability_code:1010, ability_name:FE_PORTS"));
}

// Level 4 for strings, level 1 for numbers.
TEST_F(TableBaseValueLookupTest, StringByKeyValueThatTheProfileLacksIsNullText) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOperateFailed, table.Get(7U, kTypeName, text));
  EXPECT_EQ("NULL", text);
  EXPECT_TRUE(host.ClaimLog(4,
                            "Get ability value failed!ret:0x80000004, key_ability_code:1085, "
                            "key_ability_value:7, ability_code:1083, ability_name:TYPE_NAME"));
}

TEST_F(TableBaseValueLookupTest, StringByTypeThatTheProfileLacksIsNullText) {
  table.Put(MakeRealProfile(7, 70));
  ForgetSetUp();
  EXPECT_EQ(kOperateFailed, table.Get(type, kTypeName, text));
  EXPECT_EQ("NULL", text);
  ExpectLog({TypeNameAsked(), Log(1, "get null!ability_code:1083, ability_name:TYPE_NAME"),
             TypeNameAsked(),
             Log(4,
                 "Get ability value failed!ret:0x80000004, onu_real_type:70, ability_code:1083, "
                 "ability_name:TYPE_NAME")});
}

// The default value of a match profile does not reach the caller.
TEST_F(TableBaseValueLookupTest, NumberThatAMatchProfileLacksIsZeroToo) {
  table.Put(MakeMatchProfile(7, 70));
  EXPECT_EQ(kOperateFailed, table.Get(7U, kFePorts, number));
  EXPECT_EQ(0U, number);
}

TEST_F(TableBaseValueLookupTest, ValueOfTheOtherKindFails) {
  PutOne();
  EXPECT_EQ(kOperateFailed, table.Get(7U, kTypeName, number));
  EXPECT_EQ(0U, number);
  number = 55;
  EXPECT_EQ(kOperateFailed, table.Get(type, kTypeName, number));
  EXPECT_EQ(0U, number);
  EXPECT_EQ(kOperateFailed, table.Get(7U, kFePorts, text));
  EXPECT_EQ("NULL", text);
  text = "before";
  EXPECT_EQ(kOperateFailed, table.Get(type, kFePorts, text));
  EXPECT_EQ("NULL", text);
  const LogLine not_number =
      Log(0, "value type is not ushort!ability_code:1083, ability_name:TYPE_NAME, value_type:3");
  const LogLine not_string =
      Log(0, "value type is not string!ability_code:1010, ability_name:FE_PORTS, value_type:2");
  EXPECT_EQ((std::vector<LogLine>{not_number, not_number, not_string, not_string}),
            host.TakeLog({0}));
}

TEST_F(TableBaseValueLookupTest, NumberByUnknownKeyValueIsZero) {
  PutOne();
  EXPECT_EQ(kNotFound, table.Get(9U, kFePorts, number));
  EXPECT_EQ(0U, number);
  EXPECT_TRUE(host.ClaimLog(1,
                            "find null!key_ability_code:1085, key_ability_value:9, abilitycode "
                            "1010, ability_name:FE_PORTS"));
}

TEST_F(TableBaseValueLookupTest, StringByUnknownKeyValueIsNullText) {
  PutOne();
  EXPECT_EQ(kNotFound, table.Get(9U, kTypeName, text));
  EXPECT_EQ("NULL", text);
  EXPECT_TRUE(host.ClaimLog(1,
                            "find null!key_ability_code:1085, key_ability_value:9, "
                            "ability_code:1083, ability_name:TYPE_NAME"));
}

TEST_F(TableBaseValueLookupTest, NumberByUnknownTypeIsZero) {
  PutOne();
  EXPECT_EQ(kNotFound, table.Get(static_cast<unsigned short>(90), kFePorts, number));
  EXPECT_EQ(0U, number);
  EXPECT_TRUE(host.ClaimLog(1,
                            "find null!key_ability_code:1085, onu_real_type:90, abilitycode 1010, "
                            "ability_name:FE_PORTS"));
}

TEST_F(TableBaseValueLookupTest, StringByUnknownTypeIsNullText) {
  PutOne();
  EXPECT_EQ(kNotFound, table.Get(static_cast<unsigned short>(90), kTypeName, text));
  EXPECT_EQ("NULL", text);
  ExpectLog({TypeNameAsked(),
             Log(1, "find null!onu_real_type:90, ability_code:1083, ability_name:TYPE_NAME")});
}

TEST_F(TableBaseValueLookupTest, NumberByKeyValueIsSearchedFromTheEnd) {
  PutThree();
  EXPECT_EQ(kOk, table.Get(2U, kFePorts, number));
  EXPECT_EQ(102U, number);
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:3, ability_value_2:2"),
                                  Log(4, "ability_value_1:2, ability_value_2:2")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseValueLookupTest, StringByKeyValueIsSearchedFromTheEnd) {
  PutThree();
  EXPECT_EQ(kOk, table.Get(2U, kTypeName, text));
  EXPECT_EQ("N2", text);
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:3, ability_value_2:2"),
                                  Log(4, "ability_value_1:2, ability_value_2:2")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseValueLookupTest, NumberByTypeIsSearchedFromTheEnd) {
  PutThree();
  EXPECT_EQ(kOk, table.Get(static_cast<unsigned short>(20), kFePorts, number));
  EXPECT_EQ(102U, number);
  EXPECT_EQ((std::vector<LogLine>{Log(4, "ability_value_1:30, ability_value_2:20"),
                                  Log(4, "ability_value_1:20, ability_value_2:20")}),
            host.TakeLog({4}));
}

TEST_F(TableBaseValueLookupTest, NewestProfileOfAnySourceAnswers) {
  table.Put(With(With(MakeRealProfile(7, 70, kDefault), kFePorts, 1), kTypeName, "OLD"));
  table.Put(With(With(MakeRealProfile(7, 70, kExternal), kFePorts, 2), kTypeName, "NEW"));
  EXPECT_EQ(kOk, table.Get(7U, kFePorts, number));
  EXPECT_EQ(2U, number);
  EXPECT_EQ(kOk, table.Get(7U, kTypeName, text));
  EXPECT_EQ("NEW", text);
  number = 0;
  EXPECT_EQ(kOk, table.Get(type, kFePorts, number));
  EXPECT_EQ(2U, number);
  text.clear();
  EXPECT_EQ(kOk, table.Get(type, kTypeName, text));
  EXPECT_EQ("NEW", text);
}

// The newest profile decides, even when an older one could give the value.
TEST_F(TableBaseValueLookupTest, NewestProfileIsNotPassedOverForLackingTheCode) {
  PutOne();
  table.Put(MakeRealProfile(7, 70));
  EXPECT_EQ(kOperateFailed, table.Get(7U, kFePorts, number));
  EXPECT_EQ(kOperateFailed, table.Get(7U, kTypeName, text));
  EXPECT_EQ(kOperateFailed, table.Get(type, kFePorts, number));
  EXPECT_EQ(kOperateFailed, table.Get(type, kTypeName, text));
}

// By number a profile without type counts as type 0, its default value; by
// string the type itself is wanted.
TEST_F(TableBaseValueLookupTest, TypeZeroFindsNumbersOfAProfileWithoutTypeButNoStrings) {
  const unsigned short none = 0;
  table.Put(With(With(MakeProfile(kReal), kFePorts, 4), kTypeName, "NAME"));
  EXPECT_EQ(kOk, table.Get(none, kFePorts, number));
  EXPECT_EQ(kNotFound, table.Get(none, kTypeName, text));
}

// The type of the value under code 1081 is not looked at by a string lookup.
TEST_F(TableBaseValueLookupTest, StringByTypeTakesTheNumberOfAnyValueKind) {
  ONU_ABILITY_COMMON_ABILITY_VALUE odd;
  odd.ability_value_type = ONU_ABILITY_VALUE_TYPE_STRING;
  odd.ability_ushort_value = 70;
  OnuAbilityProfile profile = With(MakeProfile(kReal), kTypeName, "NAME");
  profile._common_ability[kRealType] = odd;
  table.Put(profile);
  EXPECT_EQ(kOk, table.Get(type, kTypeName, text));
  EXPECT_EQ("NAME", text);
}

}  // namespace
}  // namespace table_test
