// What TAB adds to a line.
#include <gtest/gtest.h>

#include "vty.h"
#include "vty/completion.h"
#include "vty/value_hints.h"

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
    {"bind <value> {[json]}*1", Nothing, "bind\ncode\n"},
    {"type <string>", Nothing, "type\ntype name\n"},
    {"port <10-20>", Nothing, "port\nport\n"},
};

class VtyCompletion : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element& command : commands) install_element(kNode, &command);
  }

  // Knows these values for the tokens of this text and help line.
  static void Know(const std::string& token, const std::string& help, const Texts& values) {
    ValueHints::Instance().Offer(token, help, [values] {
      std::vector<ValueHint> hints;
      for (const std::string& value : values) hints.push_back({value, ""});
      return hints;
    });
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
  Expect("t", "ype ", {"type"});
  Expect("show o", "nucapa_table", {"onucapa_table", "onucapa_table_by_manual_cmd"});
}

TEST_F(VtyCompletion, OffersEverythingBehindABlank) {
  Expect("", "", {"show", "set", "bind", "type", "port"});
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

TEST_F(VtyCompletion, CompletesValuesThatTheHostKnows) {
  Know("<value>", "code", {"1010", "1011", "2000"});
  Expect("bind ", "", {"1010", "1011", "2000"});
  Expect("bind 1", "01", {"1010", "1011"});
  Expect("bind 2", "000 ", {"2000"});
  Expect("bind 2000", " ", {"2000"});
  Expect("bind 3", "", {});
}

TEST_F(VtyCompletion, AsksForKnownValuesEachTime) {
  Know("<value>", "code", {"1010"});
  Expect("bind ", "1010 ", {"1010"});
  Know("<value>", "code", {});
  Expect("bind ", "", {"<value>"});
}

TEST_F(VtyCompletion, TheCloserKnowledgeCounts) {
  Know("<value>", "", {"7"});
  Expect("bind ", "7 ", {"7"});
  Expect("set key ", "7 ", {"7"});
  Know("<value>", "code", {"8"});
  Expect("bind ", "8 ", {"8"});
  Expect("set key ", "7 ", {"7"});
}

TEST_F(VtyCompletion, NeverOffersAValueThatWouldBeRefused) {
  Know("<10-20>", "port", {"9", "10", "20", "21", "x", ""});
  Expect("port ", "", {"10", "20"});
}

TEST_F(VtyCompletion, QuotesValuesThatAreNoWord) {
  Know("<string>", "type name", {"GE 4", "a\"b\\", "plain", "|"});
  Expect("type ", "", {"\"GE 4\"", "\"a\\\"b\\\\\"", "plain", "\"|\""});
  Expect("type G", "", {});
  Expect("type p", "lain ", {"plain"});
  Expect("type \"G", "", {});
}

TEST_F(VtyCompletion, NeverCutsACharacterInTwo) {
  Know("<string>", "type name", {"m\xc3\xbc", "m\xc3\xa4"});
  Expect("type ", "m", {"m\xc3\xbc", "m\xc3\xa4"});
}

TEST_F(VtyCompletion, CompletesFilters) {
  Expect("show onucapa_table_by_manual_cmd flag |", " ", {"|"});
  Expect("show onucapa_table_by_manual_cmd flag | i", "nclude ", {"include"});
  Expect("show onucapa_table_by_manual_cmd flag | s", "", {"section", "save"});
  Expect("show onucapa_table_by_manual_cmd flag | ", "",
         {"include", "exclude", "begin", "section", "count", "save"});
  Expect("show onucapa_table_by_manual_cmd flag | i x | e", "xclude ", {"exclude"});
  Expect("show onucapa_table_by_manual_cmd flag | include ", "", {"TEXT"});
  Expect("show onucapa_table_by_manual_cmd flag | save ", "", {"FILE"});
}

TEST_F(VtyCompletion, OffersNoFilterUnasked) {
  Expect("show onucapa_table_by_manual_cmd flag ", "", {});
  Expect("bind 1 ", "json ", {"json"});
}

TEST_F(VtyCompletion, HasNoFilterBehindWhatIsNoCommand) {
  Expect("show | i", "", {});
  Expect("frob | i", "", {});
  Expect("| i", "", {});
  Expect("show |", "", {});
}

TEST_F(VtyCompletion, HasNothingForRemarks) {
  Expect("!", "", {});
  Expect("! sh", "", {});
}

}  // namespace
}  // namespace olt_host
