// What read-only operators may run, and what is done around every command.
#include <gtest/gtest.h>

#include <stdexcept>

#include "vty/builtin_commands.h"
#include "vty/command_table.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 13;

std::vector<std::string> events;

int Say(cmd_element* element, struct vty* terminal, int, char**) {
  events.emplace_back(element->string);
  vty_out(terminal, "said\r\n");
  return 0;
}

int Refuse(cmd_element*, struct vty* terminal, int, char**) {
  events.emplace_back("refused");
  return terminal->Refuse("No such ONU: 3/9");
}

int RefuseAndReturnZero(cmd_element*, struct vty* terminal, int, char**) {
  terminal->Refuse("Not today");
  return 0;
}

int Throw(cmd_element*, struct vty*, int, char**) { throw std::runtime_error("out of order"); }

cmd_element show_cmd = {"show port", Say, ""};
cmd_element set_cmd = {"set port", Say, ""};
cmd_element look_cmd = {"look", Say, ""};
cmd_element refuse_cmd = {"confirm onu", Refuse, ""};
cmd_element forget_cmd = {"forget", RefuseAndReturnZero, ""};
cmd_element throw_cmd = {"throw", Throw, ""};

class VtyAccess : public ::testing::Test {
 protected:
  void SetUp() override {
    for (cmd_element* element :
         {&show_cmd, &set_cmd, &look_cmd, &refuse_cmd, &forget_cmd, &throw_cmd}) {
      install_element(kNode, element);
    }
    CommandTable::Instance().AllowReadOnly(&look_cmd);
    InstallBuiltinCommands(kNode);
    events.clear();
  }
  void TearDown() override { ObserveCommands({}); }

  void BecomeReadOnly() { screen.terminal().settings().access = Access::kReadOnly; }

  std::string TypeUnseen(const std::string& line) {
    result = ExecuteLine(screen.terminal(), kNode, line, {false, "line 7: "});
    return screen.Take();
  }

  Screen screen{kNode};
  CommandResult result;
};

using VtyObserver = VtyAccess;
using VtyRefusal = VtyAccess;
using VtyCheck = VtyAccess;

TEST_F(VtyAccess, ReadOnlyOperatorsMayLook) {
  BecomeReadOnly();
  EXPECT_EQ("said\r\n", screen.Type("show port"));
  EXPECT_EQ("said\r\n", screen.Type("look"));
}

TEST_F(VtyAccess, ReadOnlyOperatorsRunNothingElse) {
  BecomeReadOnly();
  EXPECT_EQ(
      "       ^\r\n"
      "% Read-only session: this command may change something\r\n",
      screen.Type("  set port"));
  EXPECT_EQ(CommandResult::kRefused, screen.last().kind);
  EXPECT_TRUE(events.empty());
}

TEST_F(VtyAccess, ReadOnlyOperatorsSaveNoOutput) {
  BecomeReadOnly();
  EXPECT_EQ(
      "                 ^\r\n"
      "% Read-only session: save writes a file\r\n",
      screen.Type("show port | save port.txt"));
  EXPECT_TRUE(events.empty());
  EXPECT_EQ("1\r\n", screen.Type("show port | count said"));
}

TEST_F(VtyAccess, ReadOnlyOperatorsMayUseTheCommandLinesOwnCommands) {
  BecomeReadOnly();
  for (const char* line : {"list", "find port", "help", "terminal length 3", "exec-timeout 1 2",
                           "show history", "exit"}) {
    screen.Type(line);
    EXPECT_EQ(CommandResult::kDone, screen.last().kind) << line;
  }
}

TEST_F(VtyAccess, TheTableTellsWhichCommandsMayChangeSomething) {
  const CommandTable& table = CommandTable::Instance();
  for (const Command& command : table.Commands(kNode)) {
    const bool expected = command.element == &set_cmd || command.element == &refuse_cmd ||
                          command.element == &forget_cmd || command.element == &throw_cmd;
    EXPECT_EQ(expected, table.MayChange(command)) << command.element->string;
  }
}

TEST_F(VtyRefusal, AHandlersMessageIsShown) {
  EXPECT_EQ("% No such ONU: 3/9\r\n", screen.Type("confirm onu"));
  EXPECT_EQ(CommandResult::kFailed, screen.last().kind);
  EXPECT_EQ(0xFFFFFFFFU, screen.last().status);
}

TEST_F(VtyRefusal, AHandlersMessageFollowsALineThatIsNotOnTheScreen) {
  EXPECT_EQ(
      "line 7: confirm onu\r\n"
      "% No such ONU: 3/9\r\n",
      TypeUnseen("confirm onu"));
}

TEST_F(VtyRefusal, ARefusalCountsWhateverTheHandlerReturns) {
  EXPECT_EQ("% Not today\r\n", screen.Type("forget"));
  EXPECT_EQ(CommandResult::kFailed, screen.last().kind);
}

TEST_F(VtyRefusal, ARefusalIsForgottenWithItsCommand) {
  screen.terminal().Refuse("of long ago");
  EXPECT_EQ("said\r\n", screen.Type("set port"));
  EXPECT_TRUE(screen.last().ok());
}

TEST_F(VtyRefusal, AnExceptionEndsTheCommandOnly) {
  EXPECT_EQ("% Command failed: out of order\r\n", screen.Type("throw"));
  EXPECT_EQ(CommandResult::kFailed, screen.last().kind);
  EXPECT_EQ("0\r\n% Command failed: out of order\r\n", screen.Type("throw | count x"));
  EXPECT_EQ("said\r\n", screen.Type("set port"));
}

TEST_F(VtyRefusal, ALongMessageIsBrokenOnAScreenOnly) {
  static std::string message(60, 'm');
  message += " behind";
  static cmd_element long_cmd = {"long",
                                 [](cmd_element*, struct vty* terminal, int, char**) {
                                   return terminal->Refuse(message + " " + message);
                                 },
                                 ""};
  install_element(kNode, &long_cmd);
  EXPECT_EQ("% " + message + "\r\n  " + message + "\r\n", screen.Type("long"));
  EXPECT_EQ("line 7: long\r\n% " + message + " " + message + "\r\n", TypeUnseen("long"));
}

void Observe() {
  ObserveCommands({[](struct vty& terminal) {
                     events.emplace_back("before");
                     vty_out(&terminal, "[");
                   },
                   [](struct vty& terminal, bool may_change) {
                     events.emplace_back(may_change ? "after a change" : "after a look");
                     vty_out(&terminal, "]\r\n");
                   }});
}

TEST_F(VtyObserver, StandsAroundEveryHandler) {
  Observe();
  EXPECT_EQ("[said\r\n]\r\n", screen.Type("set port"));
  EXPECT_EQ((std::vector<std::string>{"before", "set port", "after a change"}), events);
  events.clear();
  screen.Type("show port");
  screen.Type("look");
  EXPECT_EQ((std::vector<std::string>{"before", "show port", "after a look", "before", "look",
                                      "after a look"}),
            events);
}

TEST_F(VtyObserver, SeesFailedCommandsToTheEnd) {
  Observe();
  EXPECT_EQ("[]\r\n% No such ONU: 3/9\r\n", screen.Type("confirm onu"));
  EXPECT_EQ((std::vector<std::string>{"before", "refused", "after a change"}), events);
  EXPECT_EQ("[]\r\n% Command failed: out of order\r\n", screen.Type("throw"));
}

TEST_F(VtyObserver, SeesNothingOfWhatIsNotRun) {
  Observe();
  screen.Type("set prot");
  screen.Type("! set port");
  screen.Type("set port | frob");
  CheckLine(screen.terminal(), kNode, "set port");
  BecomeReadOnly();
  screen.Type("set port");
  EXPECT_TRUE(events.empty());
}

TEST_F(VtyObserver, WritesPastTheFilters) {
  Observe();
  EXPECT_EQ("[]\r\n", screen.Type("set port | exclude said"));
}

TEST_F(VtyObserver, RefusesBehindTheHandler) {
  ObserveCommands({{}, [](struct vty& terminal, bool) { terminal.Refuse("Disk full"); }});
  EXPECT_EQ("said\r\n% Disk full\r\n", screen.Type("set port"));
  EXPECT_EQ(CommandResult::kFailed, screen.last().kind);
  EXPECT_EQ("% No such ONU: 3/9; Disk full\r\n", screen.Type("confirm onu"));
}

TEST_F(VtyCheck, RunsNothingAndSaysNothingOfAGoodLine) {
  for (const char* line : {"set port", "set port | include x", "set port | save /nowhere/x"}) {
    EXPECT_EQ(CommandResult::kDone, CheckLine(screen.terminal(), kNode, line).kind) << line;
  }
  EXPECT_EQ(CommandResult::kBlank, CheckLine(screen.terminal(), kNode, "  ! remark").kind);
  EXPECT_EQ("", screen.Take());
  EXPECT_TRUE(events.empty());
}

TEST_F(VtyCheck, RefusesWhatRunningWould) {
  BecomeReadOnly();
  for (const char* line : {"sett", "show", "show port x", "show \"", "show port | frob", "set port",
                           "show port | save x", "show x json"}) {
    const CommandResult checked = CheckLine(screen.terminal(), kNode, line, {false, "line 7: "});
    EXPECT_EQ(CommandResult::kRefused, checked.kind) << line;
    const std::string text = screen.Take();
    EXPECT_EQ(TypeUnseen(line), text);
  }
  EXPECT_TRUE(events.empty());
}

TEST_F(VtyAccess, RemarksAreNoLines) {
  for (const char* line : {"!", "! set port", "\t !set port \"", "!\x01", ""}) {
    EXPECT_EQ("", screen.Type(line)) << line;
    EXPECT_EQ(CommandResult::kBlank, screen.last().kind) << line;
  }
  EXPECT_NE("", screen.Type("set ! port"));
}

}  // namespace
}  // namespace olt_host
