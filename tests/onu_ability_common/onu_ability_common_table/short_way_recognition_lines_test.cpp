// What recognising an ONU still says and leaves behind in production, whether the
// table walks or takes the short way.
#include "short_way_fixture.h"

namespace table_test {
namespace {

using Lines = std::vector<LogLine>;
using Positions = std::vector<unsigned int>;

const LogLine kUnknownTag = Log(0, "ability_code:1010, ability_name:FE_PORTS, value_type:2");
const LogLine kUnknownCode = Log(1, "find ability_code null!ability_code:2000");

OnuAbilityProfile Pattern(unsigned int key, unsigned int ports) {
  return With(Holding(kFePorts, ports), kKeyValue, key);
}

// Both tables hold the same patterns: the manager's takes short ways, the one of a
// derived class walks.
class ShortWayRecognitionLinesTest : public ShortWayTest {
 protected:
  void Store(const std::vector<OnuAbilityProfile>& profiles) {
    Match().Restore(profiles);
    walked.Restore(profiles);
  }

  // The report becomes the pattern with this key value, or none for 0.
  void ExpectPattern(unsigned int key, const OnuAbilityProfile& report, const Lines& lines) {
    for (OnuAbilityTableBase* table : {&Match(), static_cast<OnuAbilityTableBase*>(&walked)}) {
      OnuAbilityProfile reported = report;
      host.ForgetLog();
      EXPECT_EQ(key != 0 ? 1U : 0U, table->operator==(reported));
      EXPECT_EQ(lines, host.TakeLog());
      EXPECT_EQ(key != 0 ? key : 0xDEADU, NumberOf(reported, kKeyValue));
    }
  }

  // Where the patterns hold the code, in both tables.
  void ExpectHolders(unsigned short code, const Positions& expected) {
    std::vector<OnuAbilityProfile> stored[2];
    Match().GetAll(kAll, stored[0]);
    walked.GetAll(kAll, stored[1]);
    for (const std::vector<OnuAbilityProfile>& profiles : stored) {
      Positions holders;
      for (unsigned int position = 0; position < profiles.size(); ++position) {
        if (profiles[position]._common_ability.count(code) != 0) {
          holders.push_back(position);
        }
      }
      EXPECT_EQ(expected, holders);
    }
  }

  OpenTable<OnuMatchAbilityTable> walked;
};

TEST_F(ShortWayRecognitionLinesTest, NothingIsSaidOfKnownCodesAndTags) {
  Store({Pattern(1, 4), Pattern(2, 5), Pattern(3, 4), Pattern(4, 6)});
  ExpectPattern(3, Holding(kFePorts, 4), {});
  ExpectPattern(2, Holding(kFePorts, 5), {});
  ExpectPattern(0, Holding(kFePorts, 7), {});
  ExpectPattern(4, MakeProfile(kMatch), {});
}

TEST_F(ShortWayRecognitionLinesTest, PatternsWithUnknownTagsNewerThanTheHitSaySo) {
  Store({With(HoldingUnknownTag(kFePorts), kKeyValue, 1), Pattern(2, 4),
         With(HoldingUnknownTag(kFePorts), kKeyValue, 3), Pattern(4, 5),
         With(HoldingUnknownTag(kFePorts), kKeyValue, 5)});
  ExpectPattern(4, Holding(kFePorts, 5), {kUnknownTag});
  ExpectPattern(2, Holding(kFePorts, 4), {kUnknownTag, kUnknownTag});
  ExpectPattern(0, Holding(kFePorts, 6), {kUnknownTag, kUnknownTag, kUnknownTag});
  // Not where the code is not compared.
  ExpectPattern(5, Holding(kPotsPorts, 4), {});
}

TEST_F(ShortWayRecognitionLinesTest, UnknownReportedCodeIsSaidByEveryPatternAsFarAsTheHit) {
  Store({Pattern(1, 4), Pattern(2, 5), Pattern(3, 6)});
  // Read after 1010, so a pattern that differs in that one does not come to it.
  ExpectPattern(2, With(Holding(kFePorts, 5), 2000, 1), {kUnknownCode});
  ExpectPattern(3, Holding(2000, 1), {kUnknownCode});
  ExpectPattern(0, With(With(Holding(kPotsPorts, 1), kFePorts, 7), 900, 1),
                {Log(1, "find ability_code null!ability_code:900"),
                 Log(1, "find ability_code null!ability_code:900"),
                 Log(1, "find ability_code null!ability_code:900")});
}

TEST_F(ShortWayRecognitionLinesTest, EntriesForTheKeyCodeAreLeftFromTheHitOn) {
  Store({Holding(kFePorts, 4), Holding(kFePorts, 5), Pattern(3, 5), Holding(kFePorts, 6),
         Holding(kFePorts, 7)});
  ExpectHolders(kKeyValue, {2});
  ExpectPattern(0xFFFFFFFF, Holding(kFePorts, 7), {});
  ExpectHolders(kKeyValue, {2, 4});
  ExpectPattern(3, Holding(kFePorts, 5), {});
  ExpectHolders(kKeyValue, {2, 3, 4});
  ExpectPattern(0, Holding(kFePorts, 8), {});
  ExpectHolders(kKeyValue, {0, 1, 2, 3, 4});
}

TEST_F(ShortWayRecognitionLinesTest, EmptyReportFitsTheNewestAndLeavesNothing) {
  Store({Pattern(1, 4), Holding(kFePorts, 5)});
  OnuAbilityProfile report = MakeProfile(kMatch);
  EXPECT_EQ(1U, Match().operator==(report));
  report = MakeProfile(kMatch);
  EXPECT_EQ(1U, walked.operator==(report));
  ExpectHolders(kKeyValue, {0});
}

// The entry is there before the key code is compared, and has no known tag.
TEST_F(ShortWayRecognitionLinesTest, ComparedKeyCodeIsSaidByThosePatternsThatLackIt) {
  DefineCode(kKeyValue, "KEY_VALUE", {{ONU_ABILITY_ATTR_CONFIRM_TYPE, 1}});
  Store({Pattern(1, 4), Holding(kFePorts, 4), Pattern(3, 4)});
  const LogLine unset = Log(0, "ability_code:1085, ability_name:KEY_VALUE, value_type:2");
  ExpectPattern(3, Holding(kKeyValue, 3), {});
  ExpectHolders(kKeyValue, {0, 2});
  ExpectPattern(1, Holding(kKeyValue, 1), {unset});
  ExpectHolders(kKeyValue, {0, 1, 2});
  ExpectPattern(1, Holding(kKeyValue, 1), {unset});
}

// The registry's current key code decides, not the one of the table's making.
TEST_F(ShortWayRecognitionLinesTest, EntriesAreForTheCurrentKeyCode) {
  Store({Pattern(1, 4), With(Pattern(2, 4), kRealType, 20), Pattern(3, 5)});
  ExpectPattern(2, Holding(kFePorts, 4), {});
  codes.SetKeyAbilityCode(kRealType);
  ExpectPattern(2, Holding(kFePorts, 4), {});
  ExpectHolders(kRealType, {1, 2});
  ExpectPattern(0, Holding(kFePorts, 9), {});
  ExpectHolders(kRealType, {0, 1, 2});
}

TEST_F(ShortWayRecognitionLinesTest, UnregisteredConfirmTypeIsSaidForEveryReportedCode) {
  Store({Pattern(1, 4), Pattern(2, 5)});
  codes.Restore({});
  OnuAbilityAttrInfo::GetInstance()->Del(ONU_ABILITY_ATTR_CONFIRM_TYPE);
  // Every attribute then reads as 65535: the code is compared.
  const Lines once = {Log(1, "ability_attr_code is invalid!ability_attr_code:1"),
                      Log(0, "ability_attr_id do not exist,ability_attr_id:1")};
  ExpectPattern(2, Holding(kFePorts, 5), once);
  ExpectPattern(1, Holding(kFePorts, 4), {once[0], once[1], once[0], once[1]});
}

// A pattern becomes another one by a value that is added to it.
TEST_F(ShortWayRecognitionLinesTest, ValueAddedToAStoredPatternIsCompared) {
  Store({With(Holding(kFePorts, 4), kKeyValue, 1), With(Holding(kFePorts, 4), kKeyValue, 2)});
  ExpectPattern(2, With(Holding(kFePorts, 4), kPotsPorts, 1), {});
  for (OnuAbilityTableBase* table : {&Match(), static_cast<OnuAbilityTableBase*>(&walked)}) {
    EXPECT_EQ(kOk, table->Add(kDefault, 2U, kPotsPorts, 2U));
  }
  ExpectPattern(1, With(Holding(kFePorts, 4), kPotsPorts, 1), {});
  ExpectPattern(2, With(Holding(kFePorts, 4), kPotsPorts, 2), {});
}

}  // namespace
}  // namespace table_test
