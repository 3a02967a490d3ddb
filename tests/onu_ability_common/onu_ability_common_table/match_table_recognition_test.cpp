// Finding the match profile that a reported profile fits.
#include <chrono>
#include <future>

#include "table_fixture.h"

namespace table_test {
namespace {

class MatchTableRecognitionTest : public TableTest {
 protected:
  // A pattern with `ports` ports, told from others by its key value.
  void PutPattern(unsigned int key, unsigned int ports) {
    OnuAbilityProfile pattern = With(
        MakeMatchProfile(key, static_cast<unsigned short>(10 * key), kExternal), kFePorts, ports);
    pattern._id = static_cast<unsigned short>(key);
    pattern._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
    pattern._bind_count = 100 + key;
    pattern._age_count = 200 + key;
    table.Put(pattern);
    ForgetSetUp();
  }

  // What an ONU with `ports` ports reports; it carries no match type yet.
  OnuAbilityProfile Report(unsigned int ports) {
    OnuAbilityProfile report = With(MakeProfile(kMatch), kFePorts, ports);
    report._flag_match_type = static_cast<ONU_ABILITY_ENUM_MATCH_TYPE>(3);
    ForgetSetUp();
    return report;
  }

  OpenTable<OnuMatchAbilityTable> table;
};

TEST_F(MatchTableRecognitionTest, EmptyTableAnswersNoAndStillSetsTheMatchType) {
  OnuAbilityProfile report = Report(4);
  EXPECT_EQ(0U, table.operator==(report));
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_PATTERN, report._flag_match_type);
  ExpectLog({Log(10, "OnuMatchAbilityTable::operator== start!"),
             Log(6, "operator== start!flag_match_type:3"),
             Log(10, "OnuMatchAbilityTable::operator== end!")});
  ExpectLockedOnce(table);
}

TEST_F(MatchTableRecognitionTest, HitMakesTheReportACopyOfThePattern) {
  PutPattern(7, 4);
  OnuAbilityProfile report = Report(4);
  EXPECT_EQ(1U, table.operator==(report));
  EXPECT_EQ(7, report._id);
  EXPECT_EQ(107U, report._bind_count);
  EXPECT_EQ(207U, report._age_count);
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_EXACT, report._flag_match_type);
  EXPECT_EQ(kExternal, report._profile_source);
  EXPECT_EQ(3U, report._common_ability.size());
  EXPECT_EQ(7U, NumberOf(report, kKeyValue));
  EXPECT_EQ(70U, NumberOf(report, kRealType));
  ExpectLockedOnce(table);
}

// By assignment, which leaves the target its own key ability code.
TEST_F(MatchTableRecognitionTest, HitLeavesTheReportItsKeyCode) {
  PutPattern(7, 4);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(5);
  OnuAbilityProfile report = Report(4);
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(kKeyValue);
  EXPECT_EQ(1U, table.operator==(report));
  EXPECT_EQ(5, report._key_ability_code);
}

TEST_F(MatchTableRecognitionTest, MissKeepsTheReportsAbilities) {
  PutPattern(7, 4);
  OnuAbilityProfile report = Report(8);
  EXPECT_EQ(0U, table.operator==(report));
  EXPECT_EQ(ONU_ABILITY_MATCH_TYPE_PATTERN, report._flag_match_type);
  EXPECT_EQ(65535, report._id);
  EXPECT_EQ(1U, report._common_ability.size());
  EXPECT_EQ(8U, NumberOf(report, kFePorts));
  ExpectLockedOnce(table);
}

TEST_F(MatchTableRecognitionTest, NewestPatternIsTriedFirstAndWins) {
  PutPattern(1, 4);
  PutPattern(2, 4);
  OnuAbilityProfile report = Report(4);
  EXPECT_EQ(1U, table.operator==(report));
  EXPECT_EQ(2, report._id);
  EXPECT_EQ((std::vector<LogLine>{Log(5, "value_1:4, value_2:4")}), host.TakeLog({5}));
}

TEST_F(MatchTableRecognitionTest, OlderPatternsFollowUntilOneFits) {
  PutPattern(1, 4);
  PutPattern(2, 5);
  PutPattern(3, 6);
  OnuAbilityProfile report = Report(5);
  EXPECT_EQ(1U, table.operator==(report));
  EXPECT_EQ(2, report._id);
  EXPECT_EQ((std::vector<LogLine>{Log(5, "value_1:6, value_2:5"), Log(5, "value_1:5, value_2:5")}),
            host.TakeLog({5}));
}

// The stored profile compares, with the reported one as the input.
TEST_F(MatchTableRecognitionTest, ComparisonIsLoggedBetweenStartAndEnd) {
  PutPattern(7, 4);
  OnuAbilityProfile report = Report(4);
  report._id = 9;
  EXPECT_EQ(1U, table.operator==(report));
  const LogLine start = Log(10, "OnuMatchAbilityTable::operator== start!");
  const LogLine end = Log(10, "OnuMatchAbilityTable::operator== end!");
  std::vector<LogLine> logged;
  for (const LogLine& line : host.TakeLog()) {
    if (line == start || line == end || line.text.rfind("operator== start!", 0) == 0) {
      logged.push_back(line);
    }
  }
  EXPECT_EQ((std::vector<LogLine>{
                start, Log(6, "operator== start!flag_match_type:3"),
                Log(6, "operator== start!flag_match_type:1, id_input:9, id_compare:7"), end}),
            logged);
}

TEST_F(MatchTableRecognitionTest, WildcardsMatchOnBothSides) {
  PutPattern(1, 0xFFFFFFFFU);
  OnuAbilityProfile report = Report(4);
  EXPECT_EQ(1U, table.operator==(report));
  table.profiles().clear();
  PutPattern(2, 4);
  report = Report(0xFFFFFFFFU);
  EXPECT_EQ(1U, table.operator==(report));
  EXPECT_EQ(2, report._id);
}

// The source of a pattern plays no part in recognition.
TEST_F(MatchTableRecognitionTest, PatternsOfEverySourceAreTried) {
  PutPattern(1, 4);
  table.profiles()[0]._profile_source = kDefault;
  OnuAbilityProfile report = Report(4);
  report._profile_source = kExternal;
  EXPECT_EQ(1U, table.operator==(report));
  EXPECT_EQ(kDefault, report._profile_source);
}

// Meant: a comparison leaves the key ability code in a stored pattern that
// lacked it, whichever levels are logged.
TEST_F(MatchTableRecognitionTest, ComparisonInsertsTheKeyCodeIntoThePattern) {
  table.Put(With(MakeProfile(kMatch), kFePorts, 4));
  OnuAbilityProfile report = Report(8);
  onu_ability_set_log_level_mask(0);
  EXPECT_EQ(0U, table.operator==(report));
  onu_ability_set_log_level_mask(0xFFFFFFFFU);
  const auto& abilities = table.profiles()[0]._common_ability;
  ASSERT_EQ(1U, abilities.count(kKeyValue));
  EXPECT_EQ(ONU_ABILITY_VALUE_TYPE_NONE, abilities.at(kKeyValue).ability_value_type);
  EXPECT_EQ(0xFFFFFFFFU, abilities.at(kKeyValue).ability_ushort_value);
}

TEST_F(MatchTableRecognitionTest, WaitsForAnotherThreadBeforeItTouchesTheReport) {
  PutPattern(7, 4);
  OnuAbilityProfile report = Report(4);
  ASSERT_EQ(0U, table.mutex().Lock(-1, nullptr, 0));
  std::future<unsigned int> answer =
      std::async(std::launch::async, [&] { return table.operator==(report); });
  EXPECT_EQ(std::future_status::timeout, answer.wait_for(std::chrono::milliseconds(50)));
  EXPECT_TRUE(host.ClaimLog(6, "operator== start!flag_match_type:3"));
  ASSERT_EQ(0U, table.mutex().Unlock(nullptr, 0));
  EXPECT_EQ(1U, answer.get());
}

}  // namespace
}  // namespace table_test
