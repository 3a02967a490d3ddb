// The listing of attribute ids, on a terminal or in the log.
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

using Lines = std::vector<LogLine>;

class AttrInfoListingTest : public LibraryTest {
 protected:
  void RegisterThree() {
    registry_->Add(ONU_ABILITY_ATTR_VALUE_TYPE, "VALUE_TYPE");
    registry_->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(-1), "minus");
    registry_->Add(ONU_ABILITY_ATTR_LAMP, "LAMP");
    host.ForgetLog();
  }

  OnuAbilityAttrInfo* registry_ = OnuAbilityAttrInfo::GetInstance();
  vty terminal_;
};

TEST_F(AttrInfoListingTest, TerminalGetsEveryIdInAscendingOrder) {
  RegisterThree();
  registry_->Show(&terminal_);
  EXPECT_EQ(
      "ability_attr_id:-1, ability_attr_name:minus\r\n"
      "ability_attr_id:3, ability_attr_name:LAMP\r\n"
      "ability_attr_id:5, ability_attr_name:VALUE_TYPE\r\n",
      terminal_.text);
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

TEST_F(AttrInfoListingTest, NullTerminalLogsOneLineAnIdAtLevel6WithoutTail) {
  RegisterThree();
  registry_->Show(nullptr);
  const Lines lines = host.TakeLogWithoutTraces();
  EXPECT_EQ(Lines({Log(6, "ability_attr_id:-1, ability_attr_name:minus\r\n"),
                   Log(6, "ability_attr_id:3, ability_attr_name:LAMP\r\n"),
                   Log(6, "ability_attr_id:5, ability_attr_name:VALUE_TYPE\r\n")}),
            lines);
  for (const LogLine& line : lines) {
    EXPECT_EQ("", line.function);
  }
}

TEST_F(AttrInfoListingTest, EmptyRegistryWritesNothing) {
  registry_->Show(&terminal_);
  registry_->Show(nullptr);
  EXPECT_EQ("", terminal_.text);
  EXPECT_EQ(Lines(), host.TakeLogWithoutTraces());
}

}  // namespace
