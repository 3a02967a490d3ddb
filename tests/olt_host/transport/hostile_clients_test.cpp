// Clients that mean no good or are gone: the host stays up, answers the others and
// keeps nothing of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "test_client.h"
#include "test_host.h"

namespace olt_host_test {
namespace {

using namespace std::string_literals;

class HostileClients : public ::testing::Test {
 protected:
  void ExpectAnswered() {
    TestClient other = TestClient::Tcp(port);
    other.ExpectAnswer("hello");
  }
  // After a crowd, whose last members take places for a moment.
  void ExpectAnsweredSoon() {
    EXPECT_TRUE(Becomes([this] {
      TestClient client = TestClient::Tcp(port);
      client.Send(
          "\xff\xfc\x18"
          "say hello\r\nexit\r\n");
      return client.UntilEnd().find("<hello>") != std::string::npos;
    }));
  }
  void ExpectNothingKept() {
    EXPECT_TRUE(Becomes([this] { return host.sessions.Sessions().empty(); }));
    EXPECT_TRUE(Becomes([this] { return OpenDescriptors() <= descriptors; }))
        << OpenDescriptors() << " descriptors, before " << descriptors;
  }

  TestHost host;
  unsigned short port = host.StartOnTcp();
  const std::size_t descriptors = OpenDescriptors();
};

TEST_F(HostileClients, AMegabyteWithoutALineBreakIsOneLineTooLong) {
  TestClient client = TestClient::Tcp(port);
  ASSERT_TRUE(client.Send(std::string(1U << 20U, 'x') + "\r\n"));
  client.Until("% Line too long");
  client.ExpectAnswer("after");
}

TEST_F(HostileClients, SeveralMegabytesDoNotDisturbOthers) {
  constexpr size_t kClients = 4;
  std::vector<TestClient> clients;
  clients.reserve(kClients);
  for (size_t i = 0; i < kClients; ++i) {
    clients.push_back(TestClient::Tcp(port));
  }
  for (TestClient& client : clients) {
    ASSERT_TRUE(client.Send(std::string(1U << 20U, 'x')));
    ExpectAnswered();
  }
}

TEST_F(HostileClients, BinaryNoiseIsBorne) {
  const unsigned int seed = std::random_device()();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int i = 0; i < 40; ++i) {
    TestClient client = TestClient::Tcp(port);
    std::string noise(1 + random() % 20000, '\0');
    // Half of it full of what telnet takes for commands.
    std::generate(noise.begin(), noise.end(), [&] {
      return static_cast<char>(i % 2 == 0 || random() % 4 != 0 ? random() : 240 + random() % 16);
    });
    client.Send(noise);
    client.Close();
  }
  ExpectAnsweredSoon();
  ExpectNothingKept();
}

TEST_F(HostileClients, ANegotiationFloodIsCutOffWhenItsAnswersAreNotRead) {
  TestClient client = TestClient::Tcp(port);
  std::string flood;
  for (int i = 0; i < 20000; ++i) flood += "\xff\xfb\x22";
  EXPECT_TRUE(Becomes([&] { return !client.Push(flood); }));
  ExpectAnswered();
  client.Close();
  ExpectNothingKept();
}

TEST_F(HostileClients, ANegotiationFloodThatIsReadDoesNotDisturbOthers) {
  TestClient client = TestClient::Tcp(port);
  for (int i = 0; i < 50; ++i) {
    std::string flood;
    for (int request = 0; request < 1000; ++request) flood += "\xff\xfb\x22";
    ASSERT_TRUE(client.Send(flood + "\xff\xf6"));  // are you there?
    client.Until("[olt_host: yes]");
  }
  ExpectAnswered();
  client.ExpectAnswer("hello");
}

TEST_F(HostileClients, OneThatNeverReadsDoesNotDisturbOthers) {
  std::vector<TestClient> deaf;
  for (int i = 0; i < 8; ++i) {
    deaf.push_back(TestClient::Tcp(port));
    ASSERT_TRUE(
        deaf.back().Push("\xff\xfc\x18"
                         "terminal length 0\r\nlines 200000\r\n"s));
  }
  for (int i = 0; i < 10; ++i) ExpectAnswered();
  for (TestClient& client : deaf) client.Close();
  ExpectNothingKept();
}

TEST_F(HostileClients, OneThatTypesAheadWithoutEndDoesNotDisturbOthers) {
  TestClient client = TestClient::Tcp(port);
  client.Push(
      "\xff\xfc\x18"
      "terminal length 0\r\nlines 200000\r\n"s);
  const std::string more = std::string(1000, 'x') + "\r\n";
  for (int i = 0; i < 10000; ++i) ASSERT_TRUE(client.Push(more));
  ExpectAnswered();
  client.Reset();
  ExpectNothingKept();
}

TEST_F(HostileClients, ThoseThatDropAtAnyPointLeaveNothingBehind) {
  const unsigned int seed = std::random_device()();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const std::string script =
      "\xff\xfb\x18\xff\xfa\x18\x00xterm\xff\xf0\xff\xfb\x1f\xff\xfa\x1f\x00\x50\x00\x0a\xff\xf0"
      "say hello\r\nlines 300\r\n  q?sa\t one\r\n\x03\xff\xf4say two\r\nexit\r\n"s;
  for (int i = 0; i < 400; ++i) {
    TestClient client = TestClient::Tcp(port);
    const std::string part = script.substr(0, random() % (script.size() + 1));
    random() % 2 == 0 ? client.Push(part) : client.Send(part);
    switch (random() % 3) {
      case 0:
        client.Reset();
        break;
      case 1:
        client.HalfClose();
        break;
      default:
        break;
    }
  }
  ExpectAnsweredSoon();
  ExpectNothingKept();
}

TEST_F(HostileClients, BeyondTheLimitOfSessionsAreToldSo) {
  std::vector<TestClient> clients;
  clients.reserve(16);
  for (int i = 0; i < 16; ++i) {
    clients.push_back(TestClient::Tcp(port));
    clients.back().ExpectAnswer("hello");
  }
  TestClient refused = TestClient::Tcp(port);
  EXPECT_NE(std::string::npos, refused.UntilEnd().find("% Too many sessions (limit 16)\r\n"));
  clients.front().Close();
  EXPECT_TRUE(Becomes([this] { return host.sessions.Sessions().size() == 15; }));
  ExpectAnswered();
}

TEST_F(HostileClients, RefusedOnesThatStayAreFewAndForAShortTime) {
  std::vector<TestClient> clients;
  clients.reserve(16);
  for (int i = 0; i < 16; ++i) {
    clients.push_back(TestClient::Tcp(port));
    clients.back().ExpectAnswer("hello");
  }
  const std::size_t served = OpenDescriptors();
  std::vector<TestClient> refused;
  refused.reserve(300);
  for (int i = 0; i < 300; ++i) refused.push_back(TestClient::Tcp(port));
  // The oldest had to go for the newest; each end of a connection is a descriptor here.
  refused.front().UntilEnd();
  EXPECT_TRUE(Becomes([&] { return OpenDescriptors() <= served + refused.size(); }));
  clients.front().ExpectAnswer("still");
}

}  // namespace
}  // namespace olt_host_test
