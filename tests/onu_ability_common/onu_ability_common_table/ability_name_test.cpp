// The name of an ability as a line prints it: the same with and without listeners to
// the registry's own lines.
#include "onu_ability_common_table/ability_name.h"

#include "short_way_fixture.h"

namespace table_test {
namespace {

constexpr unsigned short kUnknownCode = 2000;

class AbilityNameTest : public TableTest {
 protected:
  static std::string NameOf(unsigned short code) { return AbilityName(code).c_str(); }

  const LogLine unknown = Log(1, "find ability_code null!ability_code:2000");
};

TEST_F(AbilityNameTest, IsTheSameWhoeverListens) {
  for (const unsigned int levels : {0U, kProductionLevels, LogLevels(9), LogLevels(10), ~0U}) {
    onu_ability_set_log_level_mask(levels);
    EXPECT_EQ("FE_PORTS", NameOf(kFePorts)) << levels;
    EXPECT_EQ("NULL", NameOf(kUnknownCode)) << levels;
  }
}

TEST_F(AbilityNameTest, IsTheSameOfRecordsThatWereHandedOut) {
  OnuAbilityCodeInfo::GetInstance()->Get()[2].ability_name = "RENAMED";
  for (const unsigned int levels : {0U, kProductionLevels, ~0U}) {
    onu_ability_set_log_level_mask(levels);
    EXPECT_EQ("RENAMED", NameOf(kFePorts)) << levels;
    EXPECT_EQ("NULL", NameOf(kUnknownCode)) << levels;
  }
}

TEST_F(AbilityNameTest, KnownCodeSaysWhatTheRegistrySays) {
  EXPECT_EQ("FE_PORTS", NameOf(kFePorts));
  EXPECT_EQ((std::vector<LogLine>{Log(10, "function start!"), PortsNameAsked(),
                                  Log(10, "function end!")}),
            host.TakeLog());
  onu_ability_set_log_level_mask(LogLevels(9));
  NameOf(kFePorts);
  EXPECT_EQ((std::vector<LogLine>{PortsNameAsked()}), host.TakeLog());
  onu_ability_set_log_level_mask(LogLevels(10));
  NameOf(kFePorts);
  EXPECT_EQ((std::vector<LogLine>{Log(10, "function start!"), Log(10, "function end!")}),
            host.TakeLog());
}

TEST_F(AbilityNameTest, KnownCodeSaysNothingInProduction) {
  ListenAsInProduction();
  NameOf(kFePorts);
  EXPECT_TRUE(host.TakeLog().empty());
}

TEST_F(AbilityNameTest, UnknownCodeSaysSoAtLevelOneWhoeverElseListens) {
  for (const unsigned int levels : {LogLevels(1), kProductionLevels, LogLevels(1, 9)}) {
    onu_ability_set_log_level_mask(levels);
    NameOf(kUnknownCode);
    EXPECT_EQ((std::vector<LogLine>{unknown}), host.TakeLog()) << levels;
  }
  onu_ability_set_log_level_mask(LogLevels(0, 13));
  NameOf(kUnknownCode);
  EXPECT_TRUE(host.TakeLog().empty());
}

// Names beyond the room that a line's copy has are kept whole, too.
TEST_F(AbilityNameTest, IsWholeHoweverLong) {
  for (const std::size_t length : {46U, 47U, 48U, 49U, 1000U}) {
    const std::string name(length, 'N');
    DefineCode(kFePorts, name);
    for (const unsigned int levels : {kProductionLevels, ~0U}) {
      onu_ability_set_log_level_mask(levels);
      EXPECT_EQ(name, NameOf(kFePorts)) << length << " " << levels;
    }
  }
}

// A code may be deleted and defined again under another name.
TEST_F(AbilityNameTest, IsTheCurrentOne) {
  ListenAsInProduction();
  EXPECT_EQ("FE_PORTS", NameOf(kFePorts));
  DefineCode(kFePorts, "PORTS");
  EXPECT_EQ("PORTS", NameOf(kFePorts));
  OnuAbilityCodeInfo::GetInstance()->Del(kFePorts);
  EXPECT_EQ("NULL", NameOf(kFePorts));
}

}  // namespace
}  // namespace table_test
