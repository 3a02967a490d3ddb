// The index of ability codes: what a record comes to, and which record of a code
// counts.
#include "onu_ability_common_table/ability_code_index.h"

#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr auto kConfirmType = ONU_ABILITY_ATTR_CONFIRM_TYPE;
constexpr auto kLamp = ONU_ABILITY_ATTR_LAMP;
constexpr auto kPortType = ONU_ABILITY_ATTR_PORT_TYPE;
constexpr auto kValueType = ONU_ABILITY_ATTR_VALUE_TYPE;

ONU_ABILITY_CODE_ATTR_INFO Record(
    unsigned short code, const std::map<ONU_ABILITY_ENUM_ABILITY_ATTR_ID, unsigned short>& attrs) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = code;
  record.ability_name = "CODE_" + std::to_string(code);
  record.ability_attr = attrs;
  return record;
}

AbilityTraits TraitsWith(ONU_ABILITY_ENUM_ABILITY_ATTR_ID id, unsigned short value) {
  return TraitsOf(Record(kFePorts, {{id, value}}));
}

class AbilityTraitsTest : public LibraryTest {};

TEST_F(AbilityTraitsTest, RecordWithoutAttributesIsAKnownCodeAndNoMore) {
  EXPECT_EQ(kKnownCode, TraitsOf(Record(kFePorts, {})));
  EXPECT_EQ(kKnownCode, TraitsWith(ONU_ABILITY_ATTR_NONE, 3));
  EXPECT_EQ(kKnownCode, TraitsWith(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(2), 3));
  EXPECT_EQ(kKnownCode, TraitsWith(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(77), 3));
}

TEST_F(AbilityTraitsTest, FirstBitOfTheConfirmTypeComparesWithPatterns) {
  for (const unsigned int value : {0U, 2U, 4U, 0xFFFEU}) {
    EXPECT_EQ(kKnownCode | kHoldsConfirmType,
              TraitsWith(kConfirmType, static_cast<unsigned short>(value)));
  }
  for (const unsigned int value : {1U, 3U, 5U, 0xFFFFU}) {
    EXPECT_EQ(kKnownCode | kHoldsConfirmType | kComparedWithPatterns,
              TraitsWith(kConfirmType, static_cast<unsigned short>(value)));
  }
}

TEST_F(AbilityTraitsTest, AnyLampValueButZeroCountsLamps) {
  EXPECT_EQ(kKnownCode | kHoldsLamp, TraitsWith(kLamp, 0));
  EXPECT_EQ(kKnownCode | kHoldsLamp | kCountsLamps, TraitsWith(kLamp, 1));
  EXPECT_EQ(kKnownCode | kHoldsLamp | kCountsLamps, TraitsWith(kLamp, 65535));
}

TEST_F(AbilityTraitsTest, PortTypeThreeIsALanPortAndThreeAndSevenAreDataUnis) {
  EXPECT_EQ(kKnownCode | kHoldsPortType | kLanPort | kDataUni, TraitsWith(kPortType, 3));
  EXPECT_EQ(kKnownCode | kHoldsPortType | kDataUni, TraitsWith(kPortType, 7));
  for (const unsigned int value : {0U, 1U, 2U, 4U, 11U, 15U, 0x8003U, 0xFFFFU}) {
    EXPECT_EQ(kKnownCode | kHoldsPortType,
              TraitsWith(kPortType, static_cast<unsigned short>(value)))
        << value;
  }
}

TEST_F(AbilityTraitsTest, ValueTypeTwoIsANumber) {
  EXPECT_EQ(kKnownCode | kHoldsValueType | kNumber, TraitsWith(kValueType, 2));
  EXPECT_EQ(kKnownCode | kHoldsValueType, TraitsWith(kValueType, 3));
  EXPECT_EQ(kKnownCode | kHoldsValueType, TraitsWith(kValueType, 0));
}

TEST_F(AbilityTraitsTest, AttributesOfOneRecordAddUp) {
  EXPECT_EQ(
      kKnownCode | kHoldsConfirmType | kComparedWithPatterns | kHoldsLamp | kHoldsPortType |
          kDataUni | kHoldsValueType | kNumber,
      TraitsOf(Record(kFePorts, {{kConfirmType, 3}, {kLamp, 0}, {kPortType, 7}, {kValueType, 2}})));
}

class AbilityCodeIndexTest : public LibraryTest {
 protected:
  AbilityCodeIndex index;
};

TEST_F(AbilityCodeIndexTest, KnowsNoCodeAtFirst) {
  for (const unsigned int code : {0U, 255U, 256U, 1085U, 65535U}) {
    EXPECT_EQ(0U, index.Traits(static_cast<unsigned short>(code)));
    EXPECT_EQ(0U, index.Find(static_cast<unsigned short>(code)).traits);
  }
}

// Pages hold 256 codes: the neighbours on both sides of each border stay unknown.
TEST_F(AbilityCodeIndexTest, CodesOnTheBordersOfPagesStayApart) {
  const std::vector<unsigned short> known = {0, 255, 256, 511, 512, 1085, 65279, 65280, 65535};
  unsigned int position = 10;
  for (const unsigned short code : known) {
    index.Set(code, {position, kKnownCode | position << 8U});
    ++position;
  }
  position = 10;
  for (const unsigned short code : known) {
    EXPECT_EQ(position, index.Find(code).position) << code;
    EXPECT_EQ(kKnownCode | position << 8U, index.Find(code).traits) << code;
    EXPECT_EQ(kKnownCode | position << 8U, index.Traits(code)) << code;
    ++position;
  }
  for (const unsigned int code : {1U, 254U, 257U, 510U, 513U, 1084U, 65278U, 65281U, 65534U}) {
    EXPECT_EQ(0U, index.Traits(static_cast<unsigned short>(code))) << code;
  }
}

TEST_F(AbilityCodeIndexTest, RebuiltItKnowsTheGivenRecordsByTheirPlaces) {
  index.Set(2000, {5, kKnownCode});
  index.Rebuild({Record(kGePorts, {{kLamp, 1}}), Record(65535, {}), Record(kFePorts, {})});
  EXPECT_EQ(0U, index.Traits(2000));
  EXPECT_EQ(0U, index.Find(kGePorts).position);
  EXPECT_EQ(kKnownCode | kHoldsLamp | kCountsLamps, index.Traits(kGePorts));
  EXPECT_EQ(1U, index.Find(65535).position);
  EXPECT_EQ(2U, index.Find(kFePorts).position);
  EXPECT_EQ(kKnownCode, index.Traits(kFePorts));
}

TEST_F(AbilityCodeIndexTest, OfSeveralRecordsWithOneCodeTheFirstCounts) {
  index.Rebuild({Record(1, {}), Record(kFePorts, {{kLamp, 0}}), Record(kFePorts, {{kLamp, 1}}),
                 Record(kFePorts, {})});
  EXPECT_EQ(1U, index.Find(kFePorts).position);
  EXPECT_EQ(kKnownCode | kHoldsLamp, index.Traits(kFePorts));
}

TEST_F(AbilityCodeIndexTest, RebuiltFromNothingItKnowsNothing) {
  index.Set(2000, {5, kKnownCode});
  index.Rebuild({});
  EXPECT_EQ(0U, index.Traits(2000));
}

}  // namespace
}  // namespace table_test
