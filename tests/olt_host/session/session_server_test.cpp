// Several sessions at once, and clients that come, go, and do not read.
#include <dirent.h>
#include <unistd.h>

#include <algorithm>

#include "session/owner_name.h"
#include "session/session_fixture.h"

namespace olt_host {
namespace {

std::size_t OpenDescriptors() {
  std::size_t count = 0;
  DIR* const folder = opendir("/proc/self/fd");
  while (readdir(folder) != nullptr) ++count;
  closedir(folder);
  return count;
}

using SessionServers = Sessions;

TEST_F(SessionServers, TellWhoIsThere) {
  Client one;
  Client two;
  ASSERT_TRUE(one.Start(server(), {"anna", "console", false}));
  ASSERT_TRUE(two.Start(server(), {"bert", "unix", false}));
  const std::vector<SessionInfo> sessions = server().Sessions();
  ASSERT_EQ(2U, sessions.size());
  EXPECT_EQ("anna", sessions[0].user);
  EXPECT_EQ("console", sessions[0].origin);
  EXPECT_EQ("bert", sessions[1].user);
  EXPECT_NE(sessions[0].number, sessions[1].number);
  EXPECT_LT(sessions[0].idle, kSoon);
}

TEST_F(SessionServers, TakeTheOwnerOfAProcessForTheUser) {
  Client client;
  ASSERT_TRUE(client.Start(server(), {"", "unix", false, geteuid()}));
  ASSERT_TRUE(client.Sees("olt> "));
  EXPECT_EQ(OwnerName(geteuid()), server().Sessions().at(0).user);
  EXPECT_EQ("uid 4000000000", OwnerName(4000000000U));
}

TEST_F(SessionServers, TheBannerFitsTheScreen) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  ASSERT_TRUE(client.Sees("\r\nolt> "));
  EXPECT_EQ(2U, client.screen().Lines().size());
}

TEST_F(SessionServers, HaveSoManyPlacesAndNoMore) {
  limits_.sessions = 2;
  Client one;
  Client two;
  Client three;
  ASSERT_TRUE(one.Start(server()));
  ASSERT_TRUE(two.Start(server()));
  EXPECT_FALSE(three.Start(server()));
  EXPECT_TRUE(three.Sees("% Too many sessions (limit 2)\r\n"));
  EXPECT_TRUE(three.channel()->drained_to_end());
  one.Type("exit\r");
  ASSERT_TRUE(one.AwaitEnd());
  Client four;
  EXPECT_TRUE(four.Start(server())) << "the place of the one that left";
  EXPECT_TRUE(four.Sees("olt> "));
}

TEST_F(SessionServers, ListTheSessionsInTheOrderOfTheirNumbers) {
  Client one;
  Client two;
  Client three;
  for (Client* client : {&one, &two, &three}) ASSERT_TRUE(client->Start(server()));
  one.Type("exit\r");
  ASSERT_TRUE(one.AwaitEnd());
  // Each that comes takes those that left off the list, as soon as their threads are done.
  std::vector<std::unique_ptr<Client>> others;
  for (int i = 0; i < 5; ++i) {
    others.push_back(std::make_unique<Client>());
    ASSERT_TRUE(others.back()->Start(server()));
    const std::vector<SessionInfo> sessions = server().Sessions();
    EXPECT_TRUE(std::is_sorted(
        sessions.begin(), sessions.end(),
        [](const SessionInfo& a, const SessionInfo& b) { return a.number < b.number; }));
    ASSERT_TRUE(others.back()->Sees("olt> "));
  }
}

TEST_F(SessionServers, ExitEndsASessionWithItsOutputSent) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  client.Type("say last\rexit\r");
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("\r\nlast\r\n"));
  EXPECT_EQ(0U, client.screen().column());
  EXPECT_TRUE(server().Sessions().empty());
}

TEST_F(SessionServers, LinesThatArrivedBeforeTheClientClosedItsSideAreRun) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  client.Type("say one\nsay two\n");
  client.channel()->FeedEnd();
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("\r\none\r\n"));
  EXPECT_TRUE(client.Sees("\r\ntwo\r\n"));
}

TEST_F(SessionServers, AnIdleSessionTimesOut) {
  limits_.exec_timeout = std::chrono::seconds(1);
  Client client;
  ASSERT_TRUE(client.Start(server()));
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("olt> \r\n% Session timed out\r\n"));
}

TEST_F(SessionServers, AnIdleSessionTimesOutInThePagerAndWithItsOwnLimit) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  client.Type("idle 1\rshow rows 100\r");
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("--More-- "));
  EXPECT_TRUE(client.Sees("\r\n% Session timed out\r\n"));
}

TEST_F(SessionServers, ACommandThatThrowsEndsNothing) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  client.Type("throw\rsay on\r");
  EXPECT_TRUE(client.Sees("thrown\r\n"));
  EXPECT_TRUE(client.Sees("\r\non\r\n"));
}

TEST_F(SessionServers, AClientThatNeverReadsHoldsUpNobodyAndIsGivenUp) {
  Client stuck(std::make_shared<Channel>(std::chrono::milliseconds(500)));
  ASSERT_TRUE(stuck.Start(server()));
  const std::string line = "terminal length 0\rshow rows 200000\r";
  ASSERT_EQ(line.size(), stuck.channel()->Feed(line.data(), line.size()));
  Client other;
  ASSERT_TRUE(other.Start(server()));
  for (int i = 0; i < 20; ++i) {
    other.Type("say hello\r");
    EXPECT_TRUE(other.Sees("\r\nhello\r\n"));
  }
  while (!stuck.channel()->closed()) std::this_thread::yield();
  EXPECT_TRUE(stuck.AwaitEnd());
  EXPECT_EQ(1U, server().Sessions().size());
}

TEST_F(SessionServers, AClientWithoutPauseHoldsUpNobody) {
  Client greedy;
  ASSERT_TRUE(greedy.Start(server()));
  std::atomic<bool> stop{false};
  std::thread feeding([&] {
    std::string keys;
    for (int i = 0; i < 200; ++i) keys += "sh?\x15xyz\x08\x01\x05\t";
    while (!stop) greedy.Type(keys);
  });
  Client other;
  ASSERT_TRUE(other.Start(server()));
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 10; ++i) {
    other.Type("say hello\r");
    EXPECT_TRUE(other.Sees("\r\nhello\r\n"));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
  stop = true;
  feeding.join();
}

TEST_F(SessionServers, CloseAllSaysWhyAndTakesNoMore) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  ASSERT_TRUE(client.Sees("olt> "));
  server().CloseAll("% The host stops");
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("\r\n% The host stops\r\n"));
  Client late;
  EXPECT_FALSE(late.Start(server()));
  EXPECT_TRUE(late.Sees("% The host is stopping\r\n"));
}

TEST_F(SessionServers, CloseAllEndsASessionWhoseCommandRuns) {
  Client client;
  ASSERT_TRUE(client.Start(server()));
  client.Type("wait\r");
  ASSERT_TRUE(Door::Instance().AwaitWaiting());
  server().CloseAll("% The host stops");
  Door::Instance().Open();
  EXPECT_TRUE(client.AwaitEnd());
  EXPECT_TRUE(client.Sees("\r\n% The host stops\r\n"));
}

TEST_F(SessionServers, MayBeDestroyedWhateverTheirSessionsDo) {
  Client typing;
  Client paging;
  Client unread;
  ASSERT_TRUE(typing.Start(server()));
  ASSERT_TRUE(paging.Start(server()));
  ASSERT_TRUE(unread.Start(server()));
  typing.Type("say x");
  paging.Type("show rows 100\r");
  EXPECT_TRUE(paging.Sees("--More-- "));
  const std::string line = "terminal length 0\rshow rows 200000\r";
  unread.channel()->Feed(line.data(), line.size());
  server_.reset();
  EXPECT_TRUE(typing.AwaitEnd());
  EXPECT_TRUE(paging.AwaitEnd());
  EXPECT_TRUE(unread.AwaitEnd());
}

TEST_F(SessionServers, SurviveClientsThatLeaveAtAnyMoment) {
  const std::string keys =
      "show rows 5\rsh\tro\t ?\x15say \"a b\x1b[D\rshow rows 100\r q\x12say\x03exit\r";
  for (std::size_t i = 0; i <= keys.size(); ++i) {
    Client client;
    ASSERT_TRUE(client.Start(server()));
    client.channel()->Feed(keys.data(), i);
    if (i % 3 == 0) client.Await([&client] { return !client.bytes().empty(); });
    if (i % 2 == 0) {
      client.channel()->Close();
    } else {
      client.channel()->FeedEnd();
    }
    ASSERT_TRUE(client.AwaitEnd()) << i;
  }
  EXPECT_TRUE(server().Sessions().empty());
}

TEST_F(SessionServers, LeaveNoDescriptorBehind) {
  const auto visit = [this] {
    Client client;
    ASSERT_TRUE(client.Start(server()));
    client.Type("say x\rexit\r");
    ASSERT_TRUE(client.AwaitEnd());
  };
  visit();
  const std::size_t before = OpenDescriptors();
  for (int i = 0; i < 50; ++i) visit();
  // The last one's thread has let go of its terminal before it said that it ended.
  EXPECT_EQ(before, OpenDescriptors());
}

TEST_F(SessionServers, RunManySessionsAtOnce) {
  constexpr int kClients = 12;
  SessionServer* const running = &server();
  std::vector<std::thread> threads;
  threads.reserve(kClients);
  for (int number = 0; number < kClients; ++number) {
    threads.emplace_back([running, number] {
      const std::string word = "word" + std::to_string(number);
      Client client(std::make_shared<Channel>());
      ASSERT_TRUE(client.Start(*running));
      for (int i = 0; i < 10; ++i) {
        client.Type("sh\t?\x15say " + word + "x\x08\r");
        ASSERT_TRUE(client.Sees("\r\n" + word + "\r\nolt> "));
      }
      client.Type("\x04");
      ASSERT_TRUE(client.AwaitEnd());
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace olt_host
