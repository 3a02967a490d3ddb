// The traces of a table's questions that no other test reads, and what a comparison of profiles
// says.
#include <functional>

#include "support/traces.h"
#include "table_fixture.h"

namespace table_test {
namespace {

class TableBaseTracesTest : public TableTest {
 protected:
  TableBaseTracesTest() {
    table.Put(With(With(MakeRealProfile(7, 70), kFePorts, 4), kTypeName, "NAME"));
    ForgetSetUp();
  }

  OpenTable<OnuAbilityTableBase> table;
};

TEST_F(TableBaseTracesTest, AStringByTypeIsAskedUnderTrace) {
  constexpr unsigned short kType = 70;
  std::string text;
  table.Get(kType, kTypeName, text);
  const std::vector<LogLine> lines = host.TakeLog();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(Log(10, "function start!"), lines.front());
  EXPECT_EQ(Log(10, "function end!"), lines.back());
  EXPECT_EQ(lines.back().function, lines.front().function);
}

TEST_F(TableBaseTracesTest, TheExistenceOfACodeIsAskedUnderTrace) {
  table.IsExist(kFePorts);
  const std::vector<LogLine> lines = host.TakeLog();
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(Log(10, "function start!"), lines.front());
  EXPECT_EQ(Log(10, "function end!"), lines.back());
  EXPECT_EQ(lines.back().function, lines.front().function);
  // An entry's own question has the same name and says both, too.
  EXPECT_EQ("", UnevenTraces(lines));
}

// What profiles say in between is not even: one that has what is asked does not say its end,
// as meant.
TEST_F(TableBaseTracesTest, QuestionsSayFirstThatTheyStartAndLastThatTheyEnd) {
  constexpr unsigned short kType = 70;
  unsigned short id = 0;
  unsigned int number = 0;
  OnuAbilityProfile profile;
  const std::vector<std::function<void()>> questions = {
      [&] { table.Get(kDefault, id); },
      [&] { table.Get(kDefault, 7U, profile); },
      [&] { table.Get(kDefault, kType, profile); },
      [&] { table.Get(kType, kFePorts, number); },
  };
  for (std::size_t i = 0; i < questions.size(); ++i) {
    host.ForgetLog();
    questions[i]();
    const std::vector<LogLine> lines = host.TakeLog();
    ASSERT_GE(lines.size(), 2U) << "question " << i;
    EXPECT_NE(std::string::npos, lines.front().text.find("function start!")) << "question " << i;
    EXPECT_EQ("Get", lines.front().function) << "question " << i;
    EXPECT_EQ("function end!", lines.back().text) << "question " << i;
    EXPECT_EQ("Get", lines.back().function) << "question " << i;
  }
}

TEST_F(TableBaseTracesTest, APatternSaysTheTypeOfEachValueThatItCompares) {
  OnuAbilityProfile report = With(MakeProfile(kMatch), kFePorts, 4);
  report._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  OnuAbilityProfile stored = With(MakeProfile(kMatch), kFePorts, 4);
  host.ForgetLog();
  EXPECT_NE(0, stored == report);
  EXPECT_EQ("operator==", SaidBy("value_type:2", host.TakeLog()));
}

TEST_F(TableBaseTracesTest, APatternSaysWhatItDoesNotName) {
  OnuAbilityProfile report = With(MakeProfile(kMatch), kFePorts, 4);
  report._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  OnuAbilityProfile stored = MakeProfile(kMatch);
  host.ForgetLog();
  static_cast<void>(stored == report);
  EXPECT_EQ("operator==", SaidBy("don't need match!", host.TakeLog()));
}

TEST_F(TableBaseTracesTest, AnOperatorsProfileOfTheInputsIdIsSaidToExist) {
  OnuAbilityProfile stored = WithId(MakeRealProfile(7, 70, kExternal), 9);
  OnuAbilityProfile input = WithId(MakeRealProfile(9, 90, kExternal), 70);
  input._flag_match_type = ONU_ABILITY_MATCH_TYPE_EXACT;
  host.ForgetLog();
  EXPECT_NE(0, stored == input);
  EXPECT_EQ("operator==", SaidBy("id already exist!", host.TakeLog()));
}

TEST_F(TableBaseTracesTest, ARealProfileWithAnIdIsAddedUnderThatId) {
  OnuRealAbilityTable real;
  OnuAbilityProfile added = WithId(MakeRealProfile(8, 80, kExternal), 30005);
  host.ForgetLog();
  real.Add(added);
  EXPECT_EQ("Add", SaidBy("id:30005", host.TakeLog()));
}

TEST_F(TableBaseTracesTest, AddingAValueReleasesNoProfile) {
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kFePorts, 8U));
  EXPECT_EQ(kOk, table.Add(kDefault, 7U, kTypeName, std::string("OTHER")));
  EXPECT_EQ("", SaidBy("release OnuAbilityProfile!", host.TakeLog()));
}

}  // namespace
}  // namespace table_test
