// The client of the Unix socket, on a terminal and in a pipe.
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <csignal>
#include <string>

#include "child_process.h"
#include "host_files.h"
#include "test_client.h"
#include "test_host.h"

namespace olt_host_test {
namespace {

class Attach : public ::testing::Test {
 protected:
  int Client() const { return olt_host::AttachToSocket(path); }
  // The host starts its threads once the client's process is there.
  void Start(ChildProcess& child) {
    host = std::make_unique<TestHost>();
    host->StartOnUnix(path);
    child.Go();
  }

  TemporaryDirectory directory;
  std::string path = directory.Path("olt.sock");
  std::unique_ptr<TestHost> host;
};

class AttachOnTerminal : public Attach {
 protected:
  AttachOnTerminal() { Start(child); }

  ChildProcess child{ChildProcess::On::kTerminal, [this] { return Client(); }};
};

class AttachInPipe : public Attach {
 protected:
  AttachInPipe() { Start(child); }

  ChildProcess child{ChildProcess::On::kPipes, [this] { return Client(); }};
};

TEST_F(AttachOnTerminal, RunsCommandsUntilTheSessionEnds) {
  child.Until("olt> ");
  EXPECT_TRUE(child.IsRaw());
  child.Type("say hello\r");
  child.Until("<hello>\r\n");
  child.Type("exit\r");
  child.UntilEnd();
  EXPECT_EQ(0, child.Status());
}

TEST_F(AttachOnTerminal, TheTerminalIsAsBeforeAfterwards) {
  child.Until("olt> ");
  EXPECT_FALSE(child.IsAsBefore());
  child.Type("\x04");
  EXPECT_EQ(0, child.Status());
  EXPECT_TRUE(child.IsAsBefore());
}

TEST_F(AttachOnTerminal, PagesByTheTerminalAndFollowsIt) {
  child.Until("olt> ");
  child.Type("lines 30\r");
  EXPECT_NE(std::string::npos, child.Until("--More--").find("line 23 of 30"));
  child.Type("q");
  child.Until("olt> ");
  child.Resize(100, 80);
  EXPECT_TRUE(Becomes([this] {
    child.Type("lines 30\r");
    const std::string answer = child.Until("olt> ");
    return answer.find("line 30 of 30") != std::string::npos || (child.Type("q"), false);
  }));
}

TEST_F(AttachOnTerminal, EndsWhenTheHostDoes) {
  child.Until("olt> ");
  host.reset();
  child.UntilEnd();
  EXPECT_EQ(0, child.Status());
}

TEST_F(AttachOnTerminal, GivesTheTerminalBackAtASignal) {
  child.Until("olt> ");
  child.Signal(SIGTERM);
  EXPECT_EQ(128 + SIGTERM, child.Status());
  EXPECT_TRUE(child.IsAsBefore());
  EXPECT_TRUE(Becomes([this] { return host->sessions.Sessions().empty(); }));
}

TEST_F(AttachInPipe, AnswersAllLinesAndEndsWithTheInput) {
  child.Type("say one\nsay two\r\nlines 3000\nsay last\n");
  child.CloseInput();
  const std::string text = child.UntilEnd();
  EXPECT_NE(std::string::npos, text.find("<one>\r\n"));
  EXPECT_NE(std::string::npos, text.find("<two>\r\n"));
  EXPECT_NE(std::string::npos, text.find("line 3000 of 3000"));
  EXPECT_NE(std::string::npos, text.find("<last>\r\n"));
  EXPECT_EQ(std::string::npos, text.find("--More--"));
  EXPECT_EQ(0, child.Status());
}

TEST_F(Attach, InputThatEndsAtOnceIsNotPagedEither) {
  ChildProcess child(ChildProcess::On::kPipes, [this] { return Client(); });
  child.Type("lines 3000\n");
  child.CloseInput();
  Start(child);
  const std::string text = child.UntilEnd();
  EXPECT_NE(std::string::npos, text.find("line 3000 of 3000"));
  EXPECT_EQ(std::string::npos, text.find("--More--"));
  EXPECT_EQ(0, child.Status());
}

TEST_F(AttachInPipe, CarriesMoreInputThanAnyQueueHolds) {
  constexpr int kLines = 20000;
  std::string lines;
  for (int i = 0; i < kLines; ++i) lines += "say " + std::to_string(i) + "\n";
  std::thread typist([&] {
    child.Type(lines);
    child.CloseInput();
  });
  child.Until("<" + std::to_string(kLines - 1) + ">");
  typist.join();
  child.UntilEnd();
  EXPECT_EQ(0, child.Status());
}

TEST_F(AttachInPipe, EndsWhenTheSessionDoesThoughTheInputStays) {
  child.Type("exit\n");
  child.UntilEnd();
  EXPECT_EQ(0, child.Status());
}

TEST_F(Attach, SaysWhereNobodyServes) {
  ChildProcess child(ChildProcess::On::kPipes, [this] { return Client(); });
  child.Go();
  EXPECT_EQ("nobody serves the socket " + path + ": No such file or directory\n", child.UntilEnd());
  EXPECT_EQ(70, child.Status());
}

TEST_F(Attach, SaysWhereNobodyServesAnyMore) {
  ChildProcess child(ChildProcess::On::kPipes, [this] { return Client(); });
  directory.Write("olt.sock", "");
  child.Go();
  EXPECT_EQ("nobody serves the socket " + path + ": Connection refused\n", child.UntilEnd());
  EXPECT_EQ(70, child.Status());
}

}  // namespace
}  // namespace olt_host_test
