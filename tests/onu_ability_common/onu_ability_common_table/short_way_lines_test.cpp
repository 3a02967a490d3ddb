// What is still said in production: the lines of the profiles that a walk hears from,
// whether a table walks or takes the short way.
#include "short_way_fixture.h"

namespace table_test {
namespace {

using Lines = std::vector<LogLine>;

const LogLine kKeyLacking = Log(1, "get null!ability_code:1085, ability_name:KEY_VALUE");
const LogLine kTypeLacking = Log(1, "get null!ability_code:1081, ability_name:REAL_TYPE");
const LogLine kOtherTag = Log(0, "value_type invalid!value_type:3");
const LogLine kFindNull = Log(1, "find null in GetOnuAllAbilityValue of OnuAbilityTableBase!");

OnuAbilityProfile WithoutKey(unsigned short id = 0) {
  return WithId(With(MakeProfile(kReal, kExternal), kRealType, 60), id);
}

OnuAbilityProfile WithTextKey(unsigned short id = 0) {
  return WithId(With(With(MakeProfile(kReal, kExternal), kRealType, 61), kKeyValue, "7"), id);
}

OnuAbilityProfile WithKey(unsigned int key, int source = kExternal) {
  return With(MakeRealProfile(key, static_cast<unsigned short>(10 * key), source), kFePorts, 4);
}

// Every question is put to a table of the manager, which takes short ways, and to one
// of a derived class, which walks.
class ShortWayLinesTest : public ShortWayTest {
 protected:
  void Store(const std::vector<OnuAbilityProfile>& stored) {
    Real().Restore(stored);
    walked.Restore(stored);
  }

  template <typename Ask>
  void ExpectOfBoth(unsigned int answer, const Lines& lines, Ask ask) {
    host.ForgetLog();
    EXPECT_EQ(answer, ask(Real()));
    EXPECT_EQ(lines, host.TakeLog());
    EXPECT_EQ(answer, ask(static_cast<OnuAbilityTableBase&>(walked)));
    EXPECT_EQ(lines, host.TakeLog());
  }

  void ExpectKey(unsigned int answer, unsigned int key, const Lines& lines) {
    ExpectOfBoth(answer, lines, [key](auto& table) { return table.IsExist(kAll, key); });
  }

  OpenTable<OnuRealAbilityTable> walked;
  unsigned int number = 0;
  std::string text;
  OnuAbilityProfile profile;
  std::vector<OnuAbilityProfile> profiles;
};

TEST_F(ShortWayLinesTest, NothingIsSaidOfAHitWhereAllAreRegular) {
  Store({WithKey(6), With(WithKey(7), kTypeName, "NAME"), WithKey(8)});
  const auto type = static_cast<unsigned short>(70);
  ExpectKey(1, 7, {});
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(7U, kFePorts, number); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(7U, kTypeName, text); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(type, kFePorts, number); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(type, kTypeName, text); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(kAll, 7U, profile); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(kAll, type, profile); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(kAll, 7U, profiles); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(kAll, type, profiles); });
  ExpectOfBoth(1, {}, [&](auto& table) { return table.IsEqual(kAll, kKeyValue, 7); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.AddBindCount(7); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.GetLampTotalNum(7U); });
}

TEST_F(ShortWayLinesTest, EveryLookupByKeyValueSaysThatItFoundNull) {
  Store({WithKey(6), WithKey(7)});
  ExpectKey(0, 9, {kFindNull});
  ExpectOfBoth(kNotFound,
               {Log(1,
                    "find null!key_ability_code:1085, key_ability_value:9, abilitycode 1010, "
                    "ability_name:FE_PORTS")},
               [&](auto& table) { return table.Get(9U, kFePorts, number); });
  ExpectOfBoth(kNotFound,
               {Log(1,
                    "find null!key_ability_code:1085, key_ability_value:9, ability_code:1083, "
                    "ability_name:TYPE_NAME")},
               [&](auto& table) { return table.Get(9U, kTypeName, text); });
  ExpectOfBoth(kNotFound, {kFindNull}, [&](auto& table) { return table.Get(kAll, 9U, profile); });
  ExpectOfBoth(kNotFound, {kFindNull}, [&](auto& table) { return table.Get(kAll, 9U, profiles); });
  ExpectOfBoth(0,
               {Log(1,
                    "ability value is not equal!profile_source:2, ability_code:1085, "
                    "ability_name:KEY_VALUE, ability_value:9")},
               [&](auto& table) { return table.IsEqual(kAll, kKeyValue, 9); });
  ExpectOfBoth(kOperateFailed, {Log(1, "find null in OnuRealAbilityTable!key_ability_value:9")},
               [&](auto& table) { return table.AddBindCount(9); });
  ExpectOfBoth(kOperateFailed,
               {Log(1,
                    "Add-1 failed!profile_source:1, key_ability_value:9, ability_code:1010, "
                    "ability_name:FE_PORTS, ability_value:5")},
               [&](auto& table) { return table.Add(kExternal, 9U, kFePorts, 5U); });
}

TEST_F(ShortWayLinesTest, EveryLookupByRealTypeSaysThatItFoundNull) {
  Store({WithKey(6), WithKey(7)});
  const auto type = static_cast<unsigned short>(90);
  ExpectOfBoth(kNotFound,
               {Log(1,
                    "find null!key_ability_code:1085, onu_real_type:90, abilitycode 1010, "
                    "ability_name:FE_PORTS")},
               [&](auto& table) { return table.Get(type, kFePorts, number); });
  ExpectOfBoth(kNotFound,
               {Log(1, "find null!onu_real_type:90, ability_code:1083, ability_name:TYPE_NAME")},
               [&](auto& table) { return table.Get(type, kTypeName, text); });
  ExpectOfBoth(kNotFound, {kFindNull}, [&](auto& table) { return table.Get(kAll, type, profile); });
  ExpectOfBoth(kNotFound, {kFindNull},
               [&](auto& table) { return table.Get(kAll, type, profiles); });
}

TEST_F(ShortWayLinesTest, IrregularProfilesNewerThanTheHitSaySoFromTheNewestOn) {
  Store({WithoutKey(), WithTextKey(), WithKey(7), WithTextKey(), WithoutKey(), WithKey(8),
         WithoutKey()});
  ExpectKey(1, 7, {kKeyLacking, kKeyLacking, kOtherTag});
  ExpectKey(1, 8, {kKeyLacking});
  ExpectKey(0, 9, {kKeyLacking, kKeyLacking, kOtherTag, kOtherTag, kKeyLacking, kFindNull});
}

TEST_F(ShortWayLinesTest, IrregularProfilesOlderThanTheHitSayNothing) {
  Store({WithoutKey(), WithTextKey(), WithKey(7)});
  ExpectKey(1, 7, {});
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(7U, kFePorts, number); });
  EXPECT_EQ(4U, number);
}

// A profile of another source does not end a search, and what is irregular behind it
// is heard, too.
TEST_F(ShortWayLinesTest, IrregularProfilesAreHeardAsFarAsTheHitOfTheSource) {
  Store({WithoutKey(), WithKey(7, kExternal), WithTextKey(), WithKey(7, kDefault), WithoutKey()});
  const auto from = [](auto source) {
    return [source](auto& table) { return table.IsExist(source, 7U); };
  };
  ExpectOfBoth(1, {kKeyLacking}, from(kDefault));
  ExpectOfBoth(1, {kKeyLacking, kOtherTag}, from(kExternal));
  ExpectOfBoth(1, {kKeyLacking}, from(kAll));
  ExpectOfBoth(0, {kKeyLacking, kOtherTag, kKeyLacking, kFindNull},
               from(static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(3)));
}

// A real profile without the key reads as the key 0.
TEST_F(ShortWayLinesTest, ProfileWithoutKeyAnswersForItsDefaultValue) {
  Store({WithId(With(WithKey(7), kKeyValue, 0), 1), WithoutKey(2), WithTextKey(3), WithKey(8)});
  ExpectOfBoth(0, {kOtherTag, kKeyLacking},
               [&](auto& table) { return table.Get(kAll, 0U, profile); });
  EXPECT_EQ(2, profile._id);
  Store({WithoutKey(2), WithId(With(WithKey(7), kKeyValue, 0), 1)});
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(kAll, 0U, profile); });
  EXPECT_EQ(1, profile._id);
}

TEST_F(ShortWayLinesTest, AllByKeyValueHearsEveryIrregularProfile) {
  Store({WithoutKey(), WithKey(7), WithTextKey(), WithKey(7)});
  ExpectOfBoth(0, {kOtherTag, kKeyLacking},
               [&](auto& table) { return table.Get(kAll, 7U, profiles); });
  EXPECT_EQ(2U, profiles.size());
}

// From the oldest on, where that is the order of the walk.
TEST_F(ShortWayLinesTest, BindingAndEqualityHearTheIrregularProfilesOlderThanTheHit) {
  Store({WithoutKey(), WithKey(7), WithTextKey(), WithKey(8)});
  ExpectOfBoth(0, {kKeyLacking}, [](auto& table) { return table.AddBindCount(7); });
  ExpectOfBoth(0,
               {kKeyLacking, Log(0,
                                 "value type is not ushort!ability_code:1085, "
                                 "ability_name:KEY_VALUE, value_type:3")},
               [](auto& table) { return table.AddBindCount(8); });
  ExpectOfBoth(1, {kKeyLacking}, [](auto& table) { return table.IsEqual(kAll, kKeyValue, 7); });
  ExpectOfBoth(1, {kKeyLacking, kOtherTag},
               [](auto& table) { return table.IsEqual(kAll, kKeyValue, 8); });
}

TEST_F(ShortWayLinesTest, NumberByRealTypeHearsProfilesWithoutOneAndTheNameDoesNot) {
  OnuAbilityProfile no_type = With(MakeProfile(kReal), kKeyValue, 5);
  OnuAbilityProfile text_type = With(With(no_type, kRealType, "70"), kTypeName, "TEXT");
  Store({WithKey(7), no_type, text_type});
  const auto type = static_cast<unsigned short>(70);
  ExpectOfBoth(0, {kOtherTag, kTypeLacking},
               [&](auto& table) { return table.Get(type, kFePorts, number); });
  ExpectOfBoth(0, {}, [&](auto& table) { return table.Get(kAll, type, profile); });
  EXPECT_EQ(7U, NumberOf(profile, kKeyValue));
  // Compared by the number beside the text, which is the default value.
  ExpectOfBoth(0, {}, [&](auto& table) {
    return table.Get(static_cast<unsigned short>(0), kTypeName, text);
  });
  EXPECT_EQ("TEXT", text);
}

TEST_F(ShortWayLinesTest, NewRealProfileHearsEveryIrregularProfileOfItsSource) {
  Store({WithoutKey(), WithKey(7), WithTextKey()});
  const Lines lines = {kKeyLacking,
                       Log(0, "value_type is not equal!value_type_1:3, value_type_2:2"),
                       Log(1, "find null!flag_same_id:0,flag_same_realtype:0")};
  OnuAbilityProfile added = WithKey(8);
  ExpectOfBoth(kOk, lines, [&](auto& table) { return table.Add(added); });
}

}  // namespace
}  // namespace table_test
