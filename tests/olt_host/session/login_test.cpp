// Operators who must say who they are.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "session/session_fixture.h"

namespace olt_host {
namespace {

class LoggingIn : public Sessions {
 protected:
  static Users UsersOf(const std::string& lines) {
    char name[] = "/tmp/login.XXXXXX";
    const std::string folder = mkdtemp(name);
    const std::string file = folder + "/users";
    std::ofstream(file) << lines;
    chmod(file.c_str(), 0600);
    Users users = Users::Read(file);
    std::filesystem::remove_all(folder);
    return users;
  }

  void SetUp() override {
    known = UsersOf(PasswordLine("anna", "secret", Access::kFull) + "\n" +
                    PasswordLine("bert", "pass w\xc3\xb6rd", Access::kReadOnly) + "\n");
    users_ = &known;
    limits_.login_delay = std::chrono::milliseconds(1);
  }
  // Before the users that its sessions look at.
  void TearDown() override { server_.reset(); }

  void Open() {
    ASSERT_TRUE(client.Start(server(), {"", "127.0.0.1:1", true}));
    ASSERT_TRUE(client.Sees("Username: "));
  }

  Users known;
  Client client;
};

TEST_F(LoggingIn, WithTheRightPasswordOpensASession) {
  Open();
  EXPECT_EQ("", server().Sessions().at(0).user);
  EXPECT_FALSE(server().Sessions().at(0).logged_in);
  client.Type("anna\r\nsecret\r\n");
  EXPECT_TRUE(client.Sees("anna\r\nPassword: \r\nONU ability console"));
  EXPECT_TRUE(client.Sees("olt> "));
  EXPECT_EQ("anna", server().Sessions().at(0).user);
  EXPECT_TRUE(server().Sessions().at(0).logged_in);
  EXPECT_EQ(Access::kFull, server().Sessions().at(0).access);
  client.Type("say hello\r");
  EXPECT_TRUE(client.Sees("\r\nhello\r\n"));
}

TEST_F(LoggingIn, APasswordIsNeverShown) {
  Open();
  client.Type("anna\rsecret\r");
  EXPECT_TRUE(client.Sees("olt> "));
  EXPECT_EQ(std::string::npos, client.bytes().find("s\r\nONU"));
  EXPECT_EQ(std::string::npos, client.bytes().find("secret"));
}

TEST_F(LoggingIn, AReadOnlyUserSeesItAndMayChangeNothing) {
  Open();
  client.Type("bert\rpass w\xc3\xb6rd\r");
  EXPECT_TRUE(client.Sees("olt(read-only)> "));
  EXPECT_EQ(Access::kReadOnly, server().Sessions().at(0).access);
  client.Type("say hello\r");
  EXPECT_TRUE(client.Sees("% "));
  EXPECT_TRUE(client.Sees("olt(read-only)> "));
  EXPECT_EQ(std::string::npos, client.bytes().find("\r\nhello"));
  client.Type("show rows 1\r");
  EXPECT_TRUE(client.Sees("row 1\r\n"));
}

TEST_F(LoggingIn, NamesAndPasswordsCanBeCorrected) {
  Open();
  client.Type(
      "berx\x15"
      "annx\x7f"
      "a\rwrong\x15secrex\bt\r");
  EXPECT_TRUE(client.Sees("olt> "));
}

TEST_F(LoggingIn, ThreeWrongPasswordsEndTheSession) {
  Open();
  for (const char* password : {"wrong", "", "secret "}) {
    client.Type(std::string("anna\r") + password + "\r");
    EXPECT_TRUE(client.Sees("% Login invalid\r\n"));
  }
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_EQ(std::string::npos, client.bytes().find("ONU ability"));
  EXPECT_EQ(0U, client.screen().column());
}

TEST_F(LoggingIn, AWrongPasswordAndAnUnknownNameAreAnsweredAlike) {
  Open();
  client.Type("anna\rwrong\r");
  EXPECT_TRUE(client.Sees("Password: \r\n% Login invalid\r\nUsername: "));
  client.Type("nobody\rwrong\r");
  EXPECT_TRUE(client.Sees("Password: \r\n% Login invalid\r\nUsername: "));
  client.Type("anna\rsecret\r");
  EXPECT_TRUE(client.Sees("olt> ")) << "the third try may be right";
}

TEST_F(LoggingIn, TheDelayAfterAWrongPasswordGrows) {
  limits_.login_delay = std::chrono::milliseconds(200);
  Open();
  const auto start = std::chrono::steady_clock::now();
  client.Type("x\rx\rx\rx\rx\rx\r");
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200 + 400 + 800));
}

TEST_F(LoggingIn, AClientThatLeavesDuringTheDelayEndsItsSessionAtOnce) {
  limits_.login_delay = std::chrono::hours(10);
  Open();
  client.Type("anna\rwrong\r");
  EXPECT_TRUE(client.Sees("Password: \r\n"));
  client.channel()->Close();
  EXPECT_TRUE(client.AwaitEnd());
}

TEST_F(LoggingIn, OthersGoOnDuringTheDelay) {
  limits_.login_delay = std::chrono::hours(10);
  Open();
  client.Type("anna\rwrong\r");
  EXPECT_TRUE(client.Sees("Password: \r\n"));
  Client other;
  ASSERT_TRUE(other.Start(server(), {"", "127.0.0.1:2", true}));
  other.Type("anna\rsecret\rsay hello\r");
  EXPECT_TRUE(other.Sees("\r\nhello\r\n"));
}

TEST_F(LoggingIn, TakesNoLongerThanItsTime) {
  limits_.login_time = std::chrono::milliseconds(300);
  Open();
  client.Type("an");
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("% Login timed out\r\n"));
}

TEST_F(LoggingIn, CtrlCAndCtrlDLeave) {
  for (const char* keys : {"an\x03", "\x04"}) {
    Client other;
    ASSERT_TRUE(other.Start(server(), {"", "127.0.0.1:2", true}));
    other.Type(keys);
    EXPECT_TRUE(other.AwaitEnd());
    EXPECT_EQ(0U, other.screen().column());
  }
}

TEST_F(LoggingIn, NamesWithoutEndAreBounded) {
  Open();
  client.Type(std::string(200000, 'n') + "\r" + std::string(200000, 'p') + "\r");
  EXPECT_TRUE(client.Sees("% Login invalid"));
  EXPECT_LT(client.bytes().size(), 1000U);
}

TEST_F(LoggingIn, TheLongestPasswordThatCanBeMadeIsTheRightOne) {
  const std::string longest(511, 'p');
  known = UsersOf(PasswordLine("anna", longest, Access::kFull) + "\n");
  Open();
  client.Type("anna\r" + longest + "q\r");
  EXPECT_TRUE(client.Sees("% Login invalid\r\nUsername: "));
  client.Type("anna\r" + longest + "\r");
  EXPECT_TRUE(client.Sees("olt> "));
}

TEST_F(LoggingIn, AWrongLoginIsLoggedWithWhereItCameFromAndWithoutWhatWasTyped) {
  Open();
  testing::internal::CaptureStderr();
  client.Type("secret\rsecret\r");
  EXPECT_TRUE(client.Sees("% Login invalid"));
  const std::string log = testing::internal::GetCapturedStderr();
  EXPECT_NE(std::string::npos, log.find("a wrong login from 127.0.0.1:1")) << log;
  EXPECT_EQ(std::string::npos, log.find("secret")) << log;
}

TEST_F(LoggingIn, TakesHalfOfThePlacesAtMost) {
  limits_.sessions = 5;
  const SessionOrigin remote{"", "127.0.0.1:1", true};
  Client at_login[2];
  for (Client& waiting : at_login) ASSERT_TRUE(waiting.Start(server(), remote));
  Client refused;
  EXPECT_FALSE(refused.Start(server(), remote));
  EXPECT_TRUE(refused.Sees("% Too many sessions at the login (limit 2)\r\n"));
  EXPECT_TRUE(refused.channel()->drained_to_end());
  Client local[3];
  for (Client& console : local) {
    ASSERT_TRUE(console.Start(server())) << "who needs no login finds a place";
    EXPECT_TRUE(console.Sees("olt> "));
  }
  Client beyond;
  EXPECT_FALSE(beyond.Start(server(), remote));
  EXPECT_TRUE(beyond.Sees("% Too many sessions (limit 5)\r\n"));
  at_login[0].Type("anna\rsecret\r");
  EXPECT_TRUE(at_login[0].Sees("olt> ")) << "all places are taken, and one of them is its own";
}

TEST_F(LoggingIn, AnOperatorWhoLoggedInMakesRoomAtTheLogin) {
  limits_.sessions = 3;
  const SessionOrigin remote{"", "127.0.0.1:1", true};
  ASSERT_TRUE(client.Start(server(), remote));
  Client refused;
  EXPECT_FALSE(refused.Start(server(), remote));
  EXPECT_TRUE(refused.Sees("% Too many sessions at the login (limit 1)\r\n"));
  client.Type("anna\rsecret\r");
  ASSERT_TRUE(client.Sees("olt> "));
  Client next;
  EXPECT_TRUE(next.Start(server(), remote));
  EXPECT_TRUE(next.Sees("Username: "));
}

TEST_F(LoggingIn, IsPossibleWhereThereIsOnePlace) {
  limits_.sessions = 1;
  Open();
  client.Type("anna\rsecret\r");
  EXPECT_TRUE(client.Sees("olt> "));
}

TEST_F(LoggingIn, WithoutUsersNobodyMay) {
  users_ = nullptr;
  ASSERT_TRUE(client.Start(server(), {"", "127.0.0.1:1", true}));
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_EQ("% Nobody may log in here\r\n", client.bytes());
}

}  // namespace
}  // namespace olt_host
