// Installing commands and modules, and what is refused.
#include <gtest/gtest.h>

#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

int Nothing(cmd_element*, struct vty*, int, char**) { return 0; }

cmd_element good_cmd = {"show it", Nothing, "show\r\nit\r\n"};
cmd_element broken_cmd = {"show <5-2> it", Nothing, ""};
cmd_element no_handler_cmd = {"show that", nullptr, ""};
cmd_element no_syntax_cmd = {nullptr, Nothing, ""};
cmd_element no_help_cmd = {"show this", Nothing, nullptr};
cmd_element huge_cmd = {"x {a {b {c}*64}*64}*64", Nothing, ""};

constexpr unsigned int kNode = 3;
int installed = 0;

int InstallModule() {
  ++installed;
  return 5;
}

TEST(VtyInstallation, OffersACommandUnderItsNodeOnly) {
  EXPECT_EQ(0, install_element(kNode, &good_cmd));
  ASSERT_EQ(1U, CommandTable::Instance().Commands(kNode).size());
  EXPECT_EQ(&good_cmd, CommandTable::Instance().Commands(kNode)[0].element);
  EXPECT_TRUE(CommandTable::Instance().Commands(kNode + 1).empty());
}

TEST(VtyInstallation, OneCommandMayServeSeveralNodes) {
  EXPECT_EQ(0, install_element(kNode, &good_cmd));
  EXPECT_EQ(0, install_element(kNode + 1, &good_cmd));
}

TEST(VtyInstallation, RefusesTheSameCommandTwice) {
  CommandTable table;
  EXPECT_EQ("", table.Install(kNode, &good_cmd));
  EXPECT_EQ("a command is installed twice\n  \"show it\"", table.Install(kNode, &good_cmd));
  EXPECT_EQ(1U, table.Commands(kNode).size());
}

TEST(VtyInstallation, QuotesAnUnreadableSyntaxAndMarksThePlace) {
  CommandTable table;
  EXPECT_EQ(
      "cannot read the syntax of a command: <value>, <string>, <onutype_code> or a range "
      "<low-high> was expected\n"
      "  \"show <5-2> it\"\n"
      "        ^",
      table.Install(kNode, &broken_cmd));
  EXPECT_TRUE(table.Commands(kNode).empty());
}

TEST(VtyInstallation, QuotesASyntaxThatRepeatsTooMuch) {
  EXPECT_EQ("the groups of a command repeat too much\n  \"x {a {b {c}*64}*64}*64\"",
            CommandTable().Install(kNode, &huge_cmd));
}

TEST(VtyInstallation, RefusesIncompleteRecords) {
  CommandTable table;
  const std::string refusal = "a command without a syntax string or a handler";
  EXPECT_EQ(refusal, table.Install(kNode, nullptr));
  EXPECT_EQ(refusal, table.Install(kNode, &no_handler_cmd));
  EXPECT_EQ(refusal, table.Install(kNode, &no_syntax_cmd));
  EXPECT_EQ("", table.Install(kNode, &no_help_cmd));
}

TEST(VtyInstallation, RefusalsAreNotedAndReturned) {
  const std::size_t before = CommandTable::Instance().refusals().size();
  EXPECT_NE(0, install_element(kNode, &broken_cmd));
  ASSERT_EQ(before + 1, CommandTable::Instance().refusals().size());
  EXPECT_NE(std::string::npos,
            CommandTable::Instance().refusals().back().find("\"show <5-2> it\""));
}

TEST(VtyInstallation, ModulesInstallAtOnceAndAreKept) {
  installed = 0;
  EXPECT_EQ(5, cl_install_module("ports", InstallModule, nullptr));
  EXPECT_EQ(1, installed);
  ASSERT_FALSE(CommandTable::Instance().modules().empty());
  EXPECT_EQ("ports", CommandTable::Instance().modules().back().name);
}

TEST(VtyInstallation, RefusesIncompleteModules) {
  const std::size_t before = CommandTable::Instance().modules().size();
  EXPECT_NE(0, cl_install_module(nullptr, InstallModule, nullptr));
  EXPECT_NE(0, cl_install_module("ports", nullptr, nullptr));
  EXPECT_EQ(before, CommandTable::Instance().modules().size());
}

}  // namespace
}  // namespace olt_host
