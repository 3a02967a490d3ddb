// Output that the screen does not hold.
#include "session/session_fixture.h"

namespace olt_host {
namespace {

class PagedOutput : public Sessions {
 protected:
  void SetUp() override {
    ASSERT_TRUE(client.Start(server()));
    ASSERT_TRUE(client.Sees("olt> "));
  }
  // What was sent between `from` and the next "--More-- ".
  testing::AssertionResult Stops(const std::string& last_row) {
    return client.Sees(last_row + "\r\n--More-- ");
  }
  Client client{std::make_shared<Channel>(), Channel::Window{40, 10}};
};

TEST_F(PagedOutput, StopsWhenTheScreenIsFullAndGoesOnByPagesAndLines) {
  client.Type("show rows 30\r");
  EXPECT_TRUE(Stops("row 9"));
  client.Type(" ");
  EXPECT_TRUE(Stops("row 18"));
  client.Type("\r");
  EXPECT_TRUE(Stops("row 19"));
  client.Type("\r\n");
  EXPECT_TRUE(Stops("row 20"));
  client.Type("x");
  EXPECT_TRUE(Stops("row 29"));
  client.Type(" ");
  EXPECT_TRUE(client.Sees("row 30\r\nolt> "));
  EXPECT_EQ(std::string::npos, client.screen().Text().find("--More--")) << "the prompt is erased";
}

TEST_F(PagedOutput, AnEscapeSequenceIsOneKey) {
  client.Type("show rows 60\r");
  EXPECT_TRUE(Stops("row 9"));
  client.Type("\x1b[B");
  EXPECT_TRUE(Stops("row 10"));
  client.Type("\x1bOB");
  EXPECT_TRUE(Stops("row 11"));
  client.Type("\x1bOM");
  EXPECT_TRUE(Stops("row 12"));
  client.Type("\x1b[6~");
  EXPECT_TRUE(Stops("row 21"));
  client.Type("\x1b[A");
  EXPECT_TRUE(Stops("row 30"));
  client.Type("\x1bq");
  EXPECT_TRUE(Stops("row 39")) << "Alt-q is not q";
  client.Type("\x1b");
  EXPECT_TRUE(Stops("row 48")) << "ESC alone";
  client.Type("\x1b\x03");
  EXPECT_TRUE(client.Sees("\r         \rolt> "));
  EXPECT_EQ(std::string::npos, client.bytes().find("row 49"));
}

TEST_F(PagedOutput, EndsAtQAndAtCtrlC) {
  for (const char* key : {"q", "Q", "\x03"}) {
    client.Type("show rows 30\r");
    EXPECT_TRUE(Stops("row 9"));
    client.Type(key);
    EXPECT_TRUE(client.Sees("\r         \rolt> "));
  }
  EXPECT_EQ(std::string::npos, client.bytes().find("row 10"));
}

TEST_F(PagedOutput, IsNotPagedWhereTheScreenHoldsItWithThePrompt) {
  client.Type("show rows 9\r");
  EXPECT_TRUE(client.Sees("row 9\r\nolt> "));
  client.Type("show rows 10\r");
  EXPECT_TRUE(Stops("row 9"));
}

TEST_F(PagedOutput, CountsRowsNotLines) {
  client.Type("show wide 320\r");  // 8 rows of 40, and one
  EXPECT_TRUE(client.Sees("w\r\nnext\r\nolt> "));
  client.Type("show wide 321\r");
  EXPECT_TRUE(Stops("w"));
  client.Type("q");
  EXPECT_TRUE(client.Sees("olt> "));
}

TEST_F(PagedOutput, StopsInsideALineThatTheScreenDoesNotHold) {
  client.Type("show wide 800\r");
  EXPECT_TRUE(client.Sees(std::string(360, 'w') + "--More-- "));
  client.Type(" ");
  EXPECT_TRUE(client.Sees(std::string(360, 'w') + "--More-- "));
  client.Type(" ");
  EXPECT_TRUE(client.Sees("\r         \r" + std::string(80, 'w') + "\r\nnext\r\nolt> "));
}

TEST_F(PagedOutput, TerminalLengthSetsThePage) {
  client.Type("terminal length 4\rshow rows 30\r");
  EXPECT_TRUE(Stops("row 3"));
  client.Type("q");
  client.channel()->SetWindow({40, 20});
  EXPECT_TRUE(client.Sees("olt> "));
  client.Type("show rows 30\r");
  EXPECT_TRUE(Stops("row 3")) << "what the operator set outlasts a new window";
}

TEST_F(PagedOutput, TerminalLengthZeroNeverStops) {
  client.Type("terminal length 0\rshow rows 300\r");
  EXPECT_TRUE(client.Sees("row 300\r\nolt> "));
}

TEST_F(PagedOutput, FollowsTheWindow) {
  client.channel()->SetWindow({40, 5});
  client.Type("show rows 30\r");
  EXPECT_TRUE(Stops("row 4"));
}

TEST_F(PagedOutput, IsNotPagedWithoutAScreen) {
  Client pipe(std::make_shared<Channel>(), Channel::Window{0, 0});
  ASSERT_TRUE(pipe.Start(server()));
  pipe.Type("terminal length 5\rshow rows 300\r");
  EXPECT_TRUE(pipe.Sees("row 300\r\n"));
}

TEST_F(PagedOutput, CtrlCEndsOutputThatIsNotPaged) {
  client.Type("terminal length 0\r");
  EXPECT_TRUE(client.Sees("olt> "));
  // Much more than the queue holds.
  client.Type("show rows 1000000\r");
  const std::size_t before = client.bytes().size();
  EXPECT_TRUE(client.Await([this, before] { return client.bytes().size() > before + 4000; }));
  client.Type("\x03");
  EXPECT_TRUE(client.Sees("\r\n^C\r\nolt> "));
  EXPECT_EQ(std::string::npos, client.bytes().find("row 1000000\r\n"));
}

TEST_F(PagedOutput, AnOpenLastLineIsEnded) {
  client.Type("show part\r");
  EXPECT_TRUE(client.Sees("part\r\nolt> "));
}

TEST_F(PagedOutput, HelpIsPagedToo) {
  client.channel()->SetWindow({40, 4});
  client.Type("\r?");
  EXPECT_TRUE(client.Sees("--More-- "));
  client.Type("q");
  EXPECT_TRUE(client.Sees("\r         \rolt> "));
}

TEST_F(PagedOutput, AClientThatLeavesAtThePromptEndsItsSession) {
  client.Type("show rows 30\r");
  EXPECT_TRUE(Stops("row 9"));
  client.channel()->Close();
  EXPECT_TRUE(client.AwaitEnd());
}

TEST(CapturedOutput, IsCutAtItsBound) {
  InstallTestCommands();
  ServedCommands commands;
  SessionLimits limits;
  limits.output_bytes = 1U << 20U;
  SessionServer server(kTestNode, *commands, nullptr, limits);
  Client client;
  ASSERT_TRUE(client.Start(server));
  client.Type("terminal length 0\rshow wide 2000000\rsay on\r");
  EXPECT_TRUE(client.Sees("w\r\n% Output cut: more than 1048576 bytes\r\nolt> "));
  EXPECT_TRUE(client.Sees("\r\non\r\n"));
  EXPECT_GT(client.bytes().size(), 1U << 20U);
  EXPECT_LT(client.bytes().size(), (1U << 20U) + 1000);
}

}  // namespace
}  // namespace olt_host
