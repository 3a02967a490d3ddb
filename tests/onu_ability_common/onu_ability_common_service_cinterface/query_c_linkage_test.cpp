// The query functions called from a source that is compiled as C.
#include "query_functions_from_c.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

class QueryCLinkageTest : public LibraryTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    AddProfile();
    host.ForgetLog();
  }

 private:
  static void AddProfile() {
    OnuAbilityProfile profile = MakeRealProfile(7, 70);
    profile.UpdateInit(1010, 4);
    profile.UpdateInit(1030, 3);
    profile.UpdateInit(1083, "NAME");
    AddToTable(profile);
  }
};

TEST_F(QueryCLinkageTest, EveryFunctionAnswersToC) {
  const query_answers answers = ask_every_query_from_c(7, 70, 1010, 0x20);
  EXPECT_EQ(19U, answers.module_id);
  EXPECT_EQ(0x20U, answers.log_level_mask);
  EXPECT_EQ(1U, answers.key_exists);
  EXPECT_EQ(0U, answers.type_status);
  EXPECT_EQ(4U, answers.value);
  EXPECT_EQ(0U, answers.name_by_key_status);
  EXPECT_STREQ("NAME", answers.name_by_key);
  EXPECT_EQ(0U, answers.name_by_type_status);
  EXPECT_STREQ("NAME", answers.name_by_type);
  EXPECT_EQ(3U, answers.lamps_by_type);
  EXPECT_EQ(3U, answers.lamps_by_key);
  // Level 5 alone was let through.
  EXPECT_EQ((std::vector<LogLine>{Log(5, "onu_type_name:NAME"), Log(5, "onu_type_name:NAME")}),
            host.TakeLog());
}

TEST_F(QueryCLinkageTest, StatusCodesHaveTheirValuesInC) {
  EXPECT_EQ(0U, status_code_from_c(0));
  EXPECT_EQ(0x80000001U, status_code_from_c(1));
  EXPECT_EQ(0x80000002U, status_code_from_c(2));
  EXPECT_EQ(0x80000003U, status_code_from_c(3));
  EXPECT_EQ(0x80000004U, status_code_from_c(4));
}

}  // namespace
