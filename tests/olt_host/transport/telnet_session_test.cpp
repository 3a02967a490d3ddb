// Sessions over TCP and over the Unix socket, from the wire's side.
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <future>
#include <stdexcept>
#include <string>
#include <vector>

#include "host_files.h"
#include "platform/log_sink.h"
#include "test_client.h"
#include "test_host.h"

namespace olt_host_test {
namespace {

using namespace std::string_literals;

constexpr const char* kOffers = "\xff\xfd\x1f\xff\xfb\x01\xff\xfb\x03\xff\xfd\x03";
constexpr const char* kNoType = "\xff\xfc\x18";

class TelnetSession : public ::testing::Test {
 protected:
  TestHost host;
  unsigned short port = host.StartOnTcp();
  TestClient client = TestClient::Tcp(port);
};

TEST_F(TelnetSession, NegotiatesBeforeAnythingElse) { EXPECT_EQ(kOffers, client.Until(kOffers)); }

TEST_F(TelnetSession, RunsCommandsForAClientThatNegotiatesNothing) {
  client.ExpectAnswer("hello");
  client.ExpectAnswer("again");
}

TEST_F(TelnetSession, EchoesWhatIsTyped) {
  client.Until("olt> ");
  client.Send("say hello");
  client.Until("say hello");
}

TEST_F(TelnetSession, EndsTheConnectionWithTheSession) {
  client.Send("say bye\r\nexit\r\n");
  EXPECT_NE(std::string::npos, client.UntilEnd().find("<bye>"));
}

TEST_F(TelnetSession, PagesByTheSizeOfTheWindow) {
  client.TellWindow(80, 10);
  client.Send("lines 30\r\n");
  const std::string page = client.Until("--More--");
  EXPECT_NE(std::string::npos, page.find("line 9 of 30"));
  EXPECT_EQ(std::string::npos, page.find("line 10 of 30"));
  client.Send("q");
  client.ExpectAnswer("after");
}

TEST_F(TelnetSession, FollowsTheSizeOfTheWindow) {
  client.TellWindow(80, 10);
  client.ExpectAnswer("small");
  client.TellWindow(80, 50);
  client.Send("lines 30\r\n");
  EXPECT_EQ(std::string::npos, client.Until("line 30 of 30").find("--More--"));
}

TEST_F(TelnetSession, DoesNotPageWithoutAScreen) {
  client.TellWindow(0, 0);
  client.Send("lines 3000\r\n");
  EXPECT_EQ(std::string::npos, client.Until("line 3000 of 3000").find("--More--"));
}

TEST_F(TelnetSession, EscapesOutputThatLooksLikeNegotiation) {
  client.Send("escape\r\n");
  client.Until("[\xff\xff]");
}

TEST_F(TelnetSession, AnInterruptDropsTheLine) {
  client.Until("olt> ");
  client.Send("say never");
  client.Until("say never");
  client.Send("\xff\xf4");
  client.Until("olt> ");
  client.Send("say after\r\n");
  EXPECT_EQ(std::string::npos, client.Until("<after>").find("<never>"));
}

TEST_F(TelnetSession, IsKnownByTheAddressOfItsClient) {
  client.ExpectAnswer("hello");
  const std::vector<olt_host::SessionInfo> sessions = host.sessions.Sessions();
  ASSERT_EQ(1U, sessions.size());
  EXPECT_EQ("127.0.0.1:" + std::to_string(client.port()), sessions.front().origin);
  EXPECT_EQ("", sessions.front().user);
}

TEST_F(TelnetSession, AnswersEverythingThatWasTypedBeforeTheClientsEnd) {
  client.Send(kNoType + "say one\r\nsay two\r\nlines 5000\r\nsay last\r\n"s);
  client.TellWindow(0, 0);
  client.HalfClose();
  const std::string text = client.UntilEnd();
  EXPECT_NE(std::string::npos, text.find("<one>"));
  EXPECT_NE(std::string::npos, text.find("<two>"));
  EXPECT_NE(std::string::npos, text.find("line 5000 of 5000"));
  EXPECT_NE(std::string::npos, text.find("<last>"));
}

TEST_F(TelnetSession, ServesSeveralAtOnce) {
  TestClient other = TestClient::Tcp(port);
  client.Send("say fi");
  other.ExpectAnswer("second");
  client.Send("rst\r\n");
  client.Until("<first>");
}

TEST_F(TelnetSession, GetsTheLastWordsOfAStoppingHost) {
  client.ExpectAnswer("hello");
  host.sessions.CloseAll("% The host stops");
  host.transports.reset();
  EXPECT_NE(std::string::npos, client.UntilEnd().find("% The host stops\r\n"));
}

TEST_F(TelnetSession, EndsWithTheTransports) {
  client.ExpectAnswer("hello");
  host.transports.reset();
  client.UntilEnd();
  EXPECT_TRUE(Becomes([this] { return host.sessions.Sessions().empty(); }));
}

TEST(UnixSession, KnowsTheOwnerOfItsClient) {
  const TemporaryDirectory directory;
  TestHost host;
  host.StartOnUnix(directory.Path("olt.sock"));
  TestClient client = TestClient::Unix(directory.Path("olt.sock"));
  client.ExpectAnswer("hello");
  const std::vector<olt_host::SessionInfo> sessions = host.sessions.Sessions();
  ASSERT_EQ(1U, sessions.size());
  EXPECT_EQ("unix", sessions.front().origin);
  const passwd* const owner = getpwuid(getuid());
  EXPECT_EQ(owner != nullptr ? owner->pw_name : "uid " + std::to_string(getuid()),
            sessions.front().user);
}

TEST(UnixSession, TheSocketGoesWithTheTransports) {
  const TemporaryDirectory directory;
  TestHost host;
  host.StartOnUnix(directory.Path("olt.sock"));
  host.transports.reset();
  EXPECT_NE(0, access(directory.Path("olt.sock").c_str(), F_OK));
}

TEST(Listening, OutsideLoopbackNeedsAPasswordFile) {
  TestHost host;
  try {
    host.transports->ListenTcp(olt_host::ParseTcpAddress("0.0.0.0:0"), false);
    FAIL() << "listens";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(
        "cannot listen on 0.0.0.0:0: an address that other machines reach needs a password file",
        error.what());
  }
}

TEST(Listening, WithAPasswordFileAsksWhoItIs) {
  const TemporaryDirectory directory;
  directory.Write("passwords",
                  olt_host::PasswordLine("anna", "secret", olt_host::Access::kFull) + "\n");
  ASSERT_EQ(0, chmod(directory.Path("passwords").c_str(), 0600));
  const olt_host::Users users = olt_host::Users::Read(directory.Path("passwords"));
  TestHost host(&users);
  const unsigned short port =
      host.transports->ListenTcp(olt_host::ParseTcpAddress("0.0.0.0:0"), true);
  host.transports->Start();
  TestClient client = TestClient::Tcp(port);
  client.Send("anna\r\n");
  client.Until("assword");
  client.Send("secret\r\n");
  client.ExpectAnswer("hello");
  EXPECT_EQ("anna", host.sessions.Sessions().at(0).user);
}

TEST(Listening, APortInUseIsRefused) {
  TestHost host;
  const olt_host::TcpAddress address{"127.0.0.1", host.StartOnTcp(), true};
  const std::string place = "127.0.0.1:" + std::to_string(address.port);
  try {
    host.transports->ListenTcp(address, false);
    FAIL() << "listens twice";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ("cannot listen on " + place + ": Address already in use", error.what());
  }
}

TEST(Listening, TakesClientsAgainOnceThereAreDescriptors) {
  const TemporaryDirectory directory;
  olt_host::LogSettings log;
  log.file = directory.Path("log");
  log.mask = 1U << 1U;
  olt_host::OpenLog(log);
  TestHost host;
  const unsigned short port =
      host.transports->ListenTcp(olt_host::TcpAddress{"127.0.0.1", 0, true}, false);
  TestClient client = TestClient::Tcp(port);  // waits in the kernel's queue
  rlimit before{};
  ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &before));
  rlimit none = before;
  none.rlim_cur = 3;
  ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &none));
  host.transports->Start();
  EXPECT_TRUE(Becomes([&log] { return std::filesystem::file_size(log.file) > 0; }));
  ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &before));
  client.ExpectAnswer("hello");
  const std::string lines = ReadFile(log.file);
  EXPECT_NE(std::string::npos,
            lines.find("127.0.0.1:0: no connection can be taken: Too many open files"))
      << lines;
  EXPECT_EQ(lines.find('\n') + 1, lines.size()) << "more than one line";
}

TEST(StopSignal, StopsOnce) {
  TestHost host;
  std::promise<void> stopped;
  host.transports->OnStopSignal([&stopped] { stopped.set_value(); });
  host.transports->Start();
  kill(getpid(), SIGTERM);
  EXPECT_EQ(std::future_status::ready, stopped.get_future().wait_for(kLimit));
  kill(getpid(), SIGHUP);  // would end this process, or set the promise again
  kill(getpid(), SIGINT);
  host.transports.reset();
}

}  // namespace
}  // namespace olt_host_test
