// What the library reads of the code registry on its short way, before and after the
// registry has handed its records out.
#include "onu_ability_common_table/ability_code_index.h"
#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr auto kConfirmType = ONU_ABILITY_ATTR_CONFIRM_TYPE;
constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr unsigned short kNewCode = 2000;
constexpr AbilityTraits kUsual =
    kKnownCode | kHoldsConfirmType | kHoldsLamp | kHoldsPortType | kHoldsValueType;

std::string NameOf(unsigned short code) {
  NameText name;
  return AbilityCodeReader().CopyName(code, name) ? name.c_str() : "(unknown)";
}

// Of the traits those that these tests set.
constexpr AbilityTraits kAsked =
    kUsual | kComparedWithPatterns | kCountsLamps | kLanPort | kDataUni | kNumber;

AbilityTraits TraitsOfCode(unsigned short code) {
  return kAsked & AbilityCodeReader().Traits(code);
}
unsigned int Generation() { return AbilityCodeReader().Generation(); }

class AbilityCodeReaderTest : public TableTest {
 protected:
  // A record that lacks every attribute.
  void DefineBareCode() {
    ONU_ABILITY_CODE_ATTR_INFO bare;
    bare.ability_code = kNewCode;
    bare.ability_name = "BARE";
    bare.ability_attr.clear();
    codes.Update(bare);
    ForgetSetUp();
  }

  std::vector<ONU_ABILITY_CODE_ATTR_INFO> Records() {
    std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
    onu_ability_get_all_ability_attr_info(records);
    return records;
  }

  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
};

TEST_F(AbilityCodeReaderTest, ReadsWithoutALogLine) {
  EXPECT_EQ(kUsual | kComparedWithPatterns | kLanPort | kDataUni | kNumber, TraitsOfCode(kFePorts));
  EXPECT_EQ(kUsual | kCountsLamps | kNumber, TraitsOfCode(kPowerLamp));
  EXPECT_EQ(kUsual, TraitsOfCode(kTypeName));
  EXPECT_EQ(0U, TraitsOfCode(kNewCode));
  EXPECT_EQ("FE_PORTS", NameOf(kFePorts));
  EXPECT_EQ("(unknown)", NameOf(kNewCode));
  EXPECT_TRUE(AbilityCodeReader::AreRegistered(kLamp));
  EXPECT_FALSE(AbilityCodeReader::AreRegistered(ONU_ABILITY_ATTR_NONE));
  EXPECT_TRUE(AbilityCodeReader::AreRegistered(kLamp, ONU_ABILITY_ATTR_PORT_TYPE));
  EXPECT_FALSE(AbilityCodeReader::AreRegistered(kLamp, ONU_ABILITY_ATTR_NONE));
  EXPECT_TRUE(host.TakeLog().empty());
}

TEST_F(AbilityCodeReaderTest, FollowsAnUpdate) {
  DefineCode(kFePorts, "PORTS", {{kLamp, 1}});
  EXPECT_EQ("PORTS", NameOf(kFePorts));
  EXPECT_EQ(kUsual | kCountsLamps | kNumber, TraitsOfCode(kFePorts));
}

TEST_F(AbilityCodeReaderTest, FollowsAnAddition) {
  DefineCode(kNewCode, "NEW", {{kConfirmType, 1}});
  EXPECT_EQ("NEW", NameOf(kNewCode));
  EXPECT_EQ(kUsual | kComparedWithPatterns | kNumber, TraitsOfCode(kNewCode));
}

// What stands behind a deleted record moves.
TEST_F(AbilityCodeReaderTest, FollowsADeletionByCode) {
  EXPECT_EQ(kOk, codes.Del(kFePorts));
  EXPECT_EQ("(unknown)", NameOf(kFePorts));
  EXPECT_EQ(0U, TraitsOfCode(kFePorts));
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : Records()) {
    EXPECT_EQ(record.ability_name, NameOf(record.ability_code));
    EXPECT_EQ(TraitsOf(record) & kAsked, TraitsOfCode(record.ability_code));
  }
}

TEST_F(AbilityCodeReaderTest, FollowsADeletionByName) {
  EXPECT_EQ(kOk, codes.Del(std::string("ALL_LAN")));
  EXPECT_EQ("(unknown)", NameOf(1001));
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : Records()) {
    EXPECT_EQ(record.ability_name, NameOf(record.ability_code));
  }
}

TEST_F(AbilityCodeReaderTest, FollowsAnAttributeThatReadingAdds) {
  DefineBareCode();
  EXPECT_EQ(kKnownCode, TraitsOfCode(kNewCode));
  EXPECT_EQ(0, codes.Get(kNewCode, kLamp));
  EXPECT_EQ(kKnownCode | kHoldsLamp, TraitsOfCode(kNewCode));
}

TEST_F(AbilityCodeReaderTest, EveryChangeOfACodeMakesAnotherGeneration) {
  DefineBareCode();
  std::vector<unsigned int> generations = {Generation()};
  const auto note = [&generations] { generations.push_back(Generation()); };
  DefineCode(2001, "NEW");
  note();
  DefineCode(2001, "NEW", {{kLamp, 1}});
  note();
  codes.Get(kNewCode, kLamp);
  note();
  codes.Del(2001);
  note();
  codes.Del(std::string("BARE"));
  note();
  codes.Restore({});
  note();
  EXPECT_EQ(0, std::count(generations.begin(), generations.end(), 0U));
  std::sort(generations.begin(), generations.end());
  EXPECT_EQ(generations.end(), std::adjacent_find(generations.begin(), generations.end()));
}

TEST_F(AbilityCodeReaderTest, ReadingMakesNoGeneration) {
  const unsigned int before = Generation();
  codes.Get(kFePorts, kLamp);
  codes.Get(kNewCode, kLamp);
  codes.Get(kFePorts);
  codes.IsExist(kFePorts);
  Records();
  EXPECT_EQ(before, Generation());
}

// A record that is not the first of its code acquires an attribute for itself alone.
TEST_F(AbilityCodeReaderTest, LaterRecordOfACodeDoesNotStandForIt) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> twice(2);
  for (ONU_ABILITY_CODE_ATTR_INFO& record : twice) {
    record.ability_code = kNewCode;
  }
  twice[0].ability_name = "FIRST";
  twice[1].ability_name = "SECOND";
  twice[1].ability_attr = {{ONU_ABILITY_ATTR_VALUE_TYPE, static_cast<unsigned short>(3)}};
  codes.Restore(twice);
  // Filling a match profile reads the confirm type of every record.
  MakeProfile(kMatch).Add(kMatch, 5U);
  EXPECT_EQ(1U, Records()[1].ability_attr.count(kConfirmType));
  EXPECT_EQ("FIRST", NameOf(kNewCode));
  EXPECT_EQ(TraitsOf(twice[0]) & kAsked, TraitsOfCode(kNewCode));
  codes.Del(kNewCode);
  EXPECT_EQ("SECOND", NameOf(kNewCode));
  EXPECT_EQ(kKnownCode | kHoldsConfirmType | kHoldsValueType, TraitsOfCode(kNewCode));
}

TEST_F(AbilityCodeReaderTest, CodeWithTwoRecordsEndsTheGenerations) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> twice = Records();
  twice.push_back(twice[0]);
  codes.Restore(twice);
  EXPECT_EQ(0U, Generation());
  EXPECT_EQ("FE_PORTS", NameOf(kFePorts));
}

class HandedOutRecordsTest : public AbilityCodeReaderTest {};

TEST_F(HandedOutRecordsTest, HaveNoGeneration) {
  EXPECT_NE(0U, Generation());
  codes.Get();
  EXPECT_EQ(0U, Generation());
  DefineCode(kNewCode, "NEW");
  codes.Restore(Records());
  EXPECT_EQ(0U, Generation());
}

// The holder keeps the reference and uses it much later.
TEST_F(HandedOutRecordsTest, AreSearchedAsTheyAreNow) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records = codes.Get();
  EXPECT_EQ("FE_PORTS", NameOf(kFePorts));
  DefineCode(2001, "OTHER");
  records[0].ability_name = "RENAMED";
  EXPECT_EQ("RENAMED", NameOf(records[0].ability_code));
  EXPECT_EQ("RENAMED", codes.Get(records[0].ability_code));
  records[0].ability_attr[kLamp] = 1;
  EXPECT_NE(0U, TraitsOfCode(records[0].ability_code) & kCountsLamps);
  EXPECT_EQ(1, codes.Get(records[0].ability_code, kLamp));
  records[0].ability_code = kNewCode;
  EXPECT_EQ("RENAMED", NameOf(kNewCode));
  EXPECT_EQ("(unknown)", NameOf(1001));
  EXPECT_EQ(1U, codes.IsExist(kNewCode));
  EXPECT_EQ(0U, codes.IsExist(static_cast<unsigned short>(1001)));
}

TEST_F(HandedOutRecordsTest, MayBeMovedAndRemovedByTheirHolder) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records = codes.Get();
  std::reverse(records.begin(), records.end());
  EXPECT_EQ("FE_PORTS", NameOf(kFePorts));
  EXPECT_EQ(kUsual | kCountsLamps | kNumber, TraitsOfCode(kPowerLamp));
  records.clear();
  EXPECT_EQ("(unknown)", NameOf(kFePorts));
  EXPECT_EQ(0U, TraitsOfCode(kPowerLamp));
  EXPECT_EQ(kOk, codes.Del(kFePorts));
  DefineCode(kNewCode, "NEW");
  EXPECT_EQ(1U, records.size());
  EXPECT_EQ("NEW", NameOf(kNewCode));
}

// A new value of an attribute decides at once how a profile is counted and compared.
TEST_F(HandedOutRecordsTest, DecideAtOnceWhatProfilesAre) {
  InitTables();
  AddToTable(With(MakeRealProfile(7, 70), kFePorts, 4));
  AddToTable(With(MakeMatchProfile(7, 70), kPowerLamp, 4));
  ListenAsInProduction();
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& records = codes.Get();
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  const auto set = [&records](unsigned short code, ONU_ABILITY_ENUM_ABILITY_ATTR_ID id,
                              unsigned short value) {
    for (ONU_ABILITY_CODE_ATTR_INFO& record : records) {
      if (record.ability_code == code) {
        record.ability_attr[id] = value;
      }
    }
  };
  EXPECT_EQ(0U, manager._map_table.at(kReal)->GetLampTotalNum(7U));
  set(kFePorts, kLamp, 1);
  EXPECT_EQ(4U, manager._map_table.at(kReal)->GetLampTotalNum(7U));

  OnuAbilityProfile report = Holding(kPowerLamp, 5);
  OnuAbilityProfile again = report;
  EXPECT_EQ(1U, manager._map_table.at(kMatch)->operator==(report));
  set(kPowerLamp, kConfirmType, 1);
  EXPECT_EQ(0U, manager._map_table.at(kMatch)->operator==(again));

  OnuAbilityProfile filled = Holding(kPowerLamp, 5);
  filled.Update();
  EXPECT_EQ(0U, filled._common_ability.count(1001));
  set(kPowerLamp, ONU_ABILITY_ATTR_PORT_TYPE, 3);
  filled.Update();
  EXPECT_EQ(5U, NumberOf(filled, 1001));
}

}  // namespace
}  // namespace table_test
