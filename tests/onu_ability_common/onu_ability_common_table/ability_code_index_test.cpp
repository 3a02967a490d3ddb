// The index of ability codes: what a record comes to, and where it is.
#include "onu_ability_common_table/ability_code_index.h"

#include <algorithm>

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

TEST_F(AbilityTraitsTest, BitsOfTheConfirmTypeCompareWithPatternsAndAskTheOnu) {
  const AbilityTraits holds = kKnownCode | kHoldsConfirmType;
  EXPECT_EQ(holds, TraitsWith(kConfirmType, 0));
  EXPECT_EQ(holds | kComparedWithPatterns, TraitsWith(kConfirmType, 1));
  EXPECT_EQ(holds | kConfirmedByOnu, TraitsWith(kConfirmType, 2));
  EXPECT_EQ(holds | kComparedWithPatterns | kConfirmedByOnu, TraitsWith(kConfirmType, 3));
  EXPECT_EQ(holds, TraitsWith(kConfirmType, 0xFFFC));
  EXPECT_EQ(holds | kComparedWithPatterns | kConfirmedByOnu, TraitsWith(kConfirmType, 0xFFFF));
}

TEST_F(AbilityTraitsTest, TheTwoDerivedCountsAreMarked) {
  EXPECT_EQ(kKnownCode | kDerivedCount, TraitsOf(Record(1001, {})));
  EXPECT_EQ(kKnownCode | kDerivedCount, TraitsOf(Record(65533, {})));
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
      TraitsOf(Record(kFePorts, {{kConfirmType, 1}, {kLamp, 0}, {kPortType, 7}, {kValueType, 2}})));
}

class AbilityCodeIndexTest : public LibraryTest {
 protected:
  AbilityCodeIndex index;
};

TEST_F(AbilityCodeIndexTest, KnowsNoCodeAtFirst) {
  for (unsigned int code = 0; code <= 0xFFFF; ++code) {
    ASSERT_EQ(0U, index.Traits(static_cast<unsigned short>(code)));
    ASSERT_EQ(0U, index.Find(static_cast<unsigned short>(code)).traits);
  }
}

// Of all codes only those that were given, each at its own place.
TEST_F(AbilityCodeIndexTest, KnowsTheGivenCodesAndNoNeighbour) {
  const std::vector<unsigned short> known = {0, 255, 256, 511, 512, 1085, 65279, 65280, 65535};
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  records.reserve(known.size());
  for (const unsigned short code : known) {
    records.push_back(Record(code, {{kLamp, code % 2 == 0 ? 1 : 0}}));
  }
  EXPECT_TRUE(index.Rebuild(records));
  for (unsigned int code = 0; code <= 0xFFFF; ++code) {
    const auto entry = index.Find(static_cast<unsigned short>(code));
    const auto found = std::find(known.begin(), known.end(), code);
    ASSERT_EQ(entry.traits, index.Traits(static_cast<unsigned short>(code)));
    if (found == known.end()) {
      ASSERT_EQ(0U, entry.traits) << code;
    } else {
      const auto position = static_cast<std::size_t>(found - known.begin());
      ASSERT_EQ(position, entry.position) << code;
      ASSERT_EQ(TraitsOf(records[position]), entry.traits) << code;
    }
  }
}

TEST_F(AbilityCodeIndexTest, CodeWithTwoRecordsIsRefused) {
  EXPECT_TRUE(index.Rebuild({Record(1, {}), Record(kFePorts, {})}));
  EXPECT_FALSE(index.Rebuild({Record(1, {}), Record(kFePorts, {}), Record(1, {})}));
  EXPECT_TRUE(index.Rebuild({Record(1, {})}));
}

TEST_F(AbilityCodeIndexTest, RebuiltItForgetsWhatItKnew) {
  index.Rebuild({Record(2000, {}), Record(kFePorts, {})});
  index.Rebuild({Record(kGePorts, {{kLamp, 1}}), Record(65535, {}), Record(kFePorts, {})});
  EXPECT_EQ(0U, index.Traits(2000));
  EXPECT_EQ(0U, index.Find(kGePorts).position);
  EXPECT_EQ(kKnownCode | kHoldsLamp | kCountsLamps, index.Traits(kGePorts));
  EXPECT_EQ(1U, index.Find(65535).position);
  EXPECT_EQ(2U, index.Find(kFePorts).position);
  index.Rebuild({});
  EXPECT_EQ(0U, index.Traits(kFePorts));
}

}  // namespace
}  // namespace table_test
