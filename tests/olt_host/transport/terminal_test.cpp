// The session on the process's own terminal, through a pseudo-terminal.
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <future>
#include <mutex>
#include <string>

#include "child_process.h"
#include "test_host.h"

namespace olt_host_test {
namespace {

// A host on its terminal until the session or a signal ends it, whichever is first:
// the host that a signal stops ends its session too.
int RunOnTerminal() {
  std::promise<const char*> end;  // there as long as the host, whose end calls it
  std::once_flag first;
  const auto ends_by = [&end, &first](const char* reason) {
    return [&end, &first, reason] { std::call_once(first, [&] { end.set_value(reason); }); };
  };
  TestHost host;
  host.transports->OpenTerminal("anna", ends_by("session"));
  host.transports->OnStopSignal(ends_by("signal"));
  host.transports->Start();
  const std::string reason = end.get_future().get();
  if (reason == "signal") return 3;
  std::printf("after the session\n");
  return (fcntl(STDIN_FILENO, F_GETFL) & O_NONBLOCK) == 0 ? 0 : 4;
}

class OwnTerminal : public ::testing::Test {
 protected:
  OwnTerminal() { child.Go(); }

  ChildProcess child{ChildProcess::On::kTerminal, RunOnTerminal};
};

TEST_F(OwnTerminal, RunsCommandsAndIsAsBeforeAfterwards) {
  child.Until("olt> ");
  EXPECT_TRUE(child.IsRaw());
  child.Type("say hello\r");
  child.Until("<hello>\r\n");
  child.Type("exit\r");
  child.Until("after the session\r\n");
  EXPECT_TRUE(child.IsAsBefore());
  EXPECT_EQ(0, child.Status());
}

TEST_F(OwnTerminal, LinesEndInOneReturn) {
  child.Until("olt> ");
  child.Type("lines 5\r");
  const std::string text = child.Until("line 5 of 5\r\n");
  EXPECT_NE(std::string::npos, text.find("line 1 of 5\r\nline 2 of 5\r\nline 3 of 5\r\n")) << text;
}

TEST_F(OwnTerminal, FollowsTheSizeOfTheWindow) {
  child.Until("olt> ");
  child.Type("lines 30\r");
  EXPECT_NE(std::string::npos, child.Until("--More--").find("line 23 of 30"));
  child.Type("q");
  child.Until("olt> ");
  child.Resize(10, 80);
  child.Type("say one\r");  // the size counts from the next command on
  child.Until("<one>");
  child.Type("lines 30\r");
  EXPECT_EQ(std::string::npos, child.Until("--More--").find("line 10 of 30"));
}

TEST_F(OwnTerminal, CtrlCIsAKeyOfTheSession) {
  child.Until("olt> ");
  child.Type("say never\x03");
  child.Until("olt> ");
  child.Type("say after\r");
  child.Until("<after>");
}

TEST_F(OwnTerminal, CtrlDEndsTheSession) {
  child.Until("olt> ");
  child.Type("\x04");
  child.Until("after the session\r\n");
  EXPECT_EQ(0, child.Status());
}

TEST_F(OwnTerminal, IsAsBeforeAfterAStopSignal) {
  child.Until("olt> ");
  child.Signal(SIGTERM);
  EXPECT_TRUE(Becomes([this] { return child.IsAsBefore(); }));
  EXPECT_EQ(3, child.Status());
}

TEST_F(OwnTerminal, IsRawAgainAfterThePauseOfTheProcess) {
  child.Until("olt> ");
  child.Signal(SIGSTOP);
  child.MakeCooked();
  child.Signal(SIGCONT);
  EXPECT_TRUE(Becomes([this] { return child.IsRaw(); }));
}

TEST_F(OwnTerminal, ThatHangsUpEndsTheSession) {
  child.Until("olt> ");
  child.HangUp();
  const int status = child.Status();  // the signal of it or the end of input may be first
  EXPECT_TRUE(status == 3 || status == 0) << status;
}

TEST(OwnTerminalOfAProcess, IsAsBeforeAfterExit) {
  ChildProcess child(ChildProcess::On::kTerminal, [] {
    auto* const host = new TestHost;
    host->transports->OpenTerminal("anna", {});
    std::exit(5);
    return 0;
  });
  child.Go();
  EXPECT_EQ(5, child.Status());
  EXPECT_TRUE(child.IsAsBefore());
}

TEST(OwnTerminalOfAProcess, MustBeOne) {
  ChildProcess child(ChildProcess::On::kPipes, RunOnTerminal);
  child.Go();
  EXPECT_EQ("standard input and output are no terminal\n", child.UntilEnd());
  EXPECT_EQ(70, child.Status());
}

}  // namespace
}  // namespace olt_host_test
