// What TAB adds to a line.
#include <gtest/gtest.h>

#include "vty.h"
#include "vty/completion.h"

namespace olt_host {
namespace {

using Texts = std::vector<std::string>;
constexpr unsigned int kNode = 9;

int Nothing(cmd_element*, struct vty*, int, char**) { return 0; }

cmd_element commands[] = {
    {"show onucapa_table [match|real] <0-2>", Nothing, ""},
    {"show onucapa_table_by_manual_cmd flag", Nothing, ""},
    {"set [key] <value> {<value> [<0-65535>|null]}*8", Nothing, ""},
    {"set name [<string>|null]", Nothing, ""},
};

class VtyCompletion : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element& command : commands) install_element(kNode, &command);
  }

  void Expect(const std::string& text, const std::string& insert, const Texts& candidates) {
    const Completion completion = Complete(kNode, text);
    EXPECT_EQ(insert, completion.insert) << text;
    EXPECT_EQ(candidates, completion.candidates) << text;
  }
};

TEST_F(VtyCompletion, CompletesTheOnlyKeywordWithABlank) {
  Expect("sh", "ow ", {"show"});
  Expect("show", " ", {"show"});
  Expect("sh onucapa_table m", "atch ", {"match"});
}

TEST_F(VtyCompletion, CompletesWhatSeveralShare) {
  Expect("s", "", {"show", "set"});
  Expect("show o", "nucapa_table", {"onucapa_table", "onucapa_table_by_manual_cmd"});
}

TEST_F(VtyCompletion, OffersEverythingBehindABlank) {
  Expect("", "s", {"show", "set"});
  Expect("show onucapa_table ", "", {"match", "real"});
  Expect("set ", "", {"key", "name"});
}

TEST_F(VtyCompletion, NamesTheValuesThatMayStand) {
  Expect("set key ", "", {"<value>"});
  Expect("set key 1 2 ", "", {"null", "<0-65535>"});
  Expect("set key 1 2 n", "ull ", {"null"});
  Expect("set name ", "", {"null", "<string>"});
}

TEST_F(VtyCompletion, HasNothingForWhatFitsNoCommand) {
  Expect("frob", "", {});
  Expect("frob x", "", {});
  Expect("set key x ", "", {});
  Expect("show onucapa_table match 5 ", "", {});
}

TEST_F(VtyCompletion, LeavesQuotedWordsAlone) {
  Expect("set name \"n", "", {});
  Expect("\"sh\"", "", {});
}

}  // namespace
}  // namespace olt_host
