// The host's end of telnet, byte by byte and without a socket.
#include "transport/telnet_server_stream.h"

#include <gtest/gtest.h>

#include <string>

namespace olt_host {
namespace {

using namespace std::string_literals;

class TelnetServer : public ::testing::Test {
 protected:
  // Gives the bytes of the wire to the stream in pieces of one byte, so that
  // nothing depends on how they were cut.
  void Receive(const std::string& bytes) {
    for (const char byte : bytes) stream.Receive(&byte, 1);
  }
  std::string Typed(const std::string& bytes) {
    Receive(bytes);
    return std::exchange(stream.typed(), std::string());
  }
  Channel::Window WindowAfter(const std::string& size) {
    Receive("\xff\xfa\x1f" + size + "\xff\xf0");
    return channel.window();
  }

  Channel channel;
  TelnetServerStream stream{channel};
};

TEST_F(TelnetServer, AsksForTheSizeAndTakesOverEcho) {
  stream.Negotiate();
  EXPECT_EQ("\xff\xfd\x1f\xff\xfb\x01\xff\xfb\x03\xff\xfd\x03", stream.TakeOutgoing());
}

TEST_F(TelnetServer, PassesKeysAndUtf8) {
  EXPECT_EQ("show \xc3\xa4\t\x03", Typed("show \xc3\xa4\t\x03"));
}

TEST_F(TelnetServer, TheEnterKeyIsOneReturnHoweverItTravels) {
  EXPECT_EQ("a\rb\rc\rd\n\n\r\r", Typed("a\r\nb\r\0c\rd\n\n\r\n\r\0"s));
}

TEST_F(TelnetServer, ADoubledEscapeByteIsData) { EXPECT_EQ("a\xff\x62", Typed("a\xff\xff\x62")); }

TEST_F(TelnetServer, DoublesTheEscapeByteInOutput) {
  stream.Send("a\xff\x62", 3);
  EXPECT_EQ("a\xff\xff\x62", stream.TakeOutgoing());
}

TEST_F(TelnetServer, CommandsOfTheKeyboardAreKeys) {
  EXPECT_EQ("\x03\x03\x03\x04\x08\x15", Typed("\xff\xf4\xff\xf3\xff\xee\xff\xec\xff\xf7\xff\xf8"));
}

TEST_F(TelnetServer, OtherCommandsAreIgnored) {
  EXPECT_EQ("ab", Typed("a\xff\xf1\xff\xf2\xff\xf9\xff\xf5\x62"));
  EXPECT_EQ("", stream.TakeOutgoing());
}

TEST_F(TelnetServer, SaysThatItIsThere) {
  EXPECT_EQ("", Typed("\xff\xf6"));
  EXPECT_EQ("\r\n[olt_host: yes]\r\n", stream.TakeOutgoing());
}

TEST_F(TelnetServer, WantsNoTypeOfTheTerminal) {
  Receive("\xff\xfb\x18");
  EXPECT_EQ("\xff\xfe\x18", stream.TakeOutgoing());
}

TEST_F(TelnetServer, TakesTheSizeOfTheWindow) {
  const Channel::Window window = WindowAfter("\x00\x84\x00\x32"s);
  EXPECT_EQ(132U, window.columns);
  EXPECT_EQ(50U, window.rows);
}

TEST_F(TelnetServer, ASizeWithTheEscapeByteIsRead) {
  EXPECT_EQ(255U, WindowAfter("\x00\xff\xff\x00\x32"s).columns);
}

TEST_F(TelnetServer, NoRowsOrNoColumnsAreNoScreen) {
  EXPECT_EQ(0U, WindowAfter("\x00\x00\x00\x00"s).rows);
  EXPECT_EQ(0U, WindowAfter("\x00\x50\x00\x00"s).rows);
  EXPECT_EQ(80U, channel.window().columns);
  EXPECT_EQ(0U, WindowAfter("\x00\x00\x00\x18"s).rows);
  EXPECT_EQ(80U, channel.window().columns);
}

TEST_F(TelnetServer, ABoundlessWindowIsBounded) {
  const Channel::Window window = WindowAfter("\xff\xff\xff\xff\xff\xff\xff\xff");
  EXPECT_EQ(1024U, window.columns);
  EXPECT_EQ(512U, window.rows);
}

TEST_F(TelnetServer, ASizeOfAnotherLengthIsIgnored) {
  EXPECT_EQ(24U, WindowAfter("\x01").rows);
  EXPECT_EQ(24U, WindowAfter("").rows);
  EXPECT_EQ(24U, WindowAfter("\x00\x84\x00\x32\x00"s).rows);
  EXPECT_FALSE(stream.broken());
}

TEST_F(TelnetServer, RefusesOptionsThatItDoesNotKnow) {
  Receive("\xff\xfb\x22\xff\xfd\x27");
  EXPECT_EQ("\xff\xfe\x22\xff\xfc\x27", stream.TakeOutgoing());
}

TEST_F(TelnetServer, AgreedOptionsAreNotAnsweredAgain) {
  stream.Negotiate();
  stream.TakeOutgoing();
  for (int i = 0; i < 100; ++i) Receive("\xff\xfd\x01\xff\xfd\x03\xff\xfb\x1f");
  EXPECT_EQ("", stream.TakeOutgoing());
}

TEST_F(TelnetServer, RequestsWithoutEndBreakIt) {
  for (unsigned int i = 0; i <= TelnetStream::kMostMalformedRequests; ++i) {
    EXPECT_FALSE(stream.broken());
    Receive("\xff\xfa\x18");
    Receive(std::string(20000, 'x'));
  }
  EXPECT_TRUE(stream.broken());
  stream.typed().clear();
  EXPECT_EQ("", Typed("after"));
}

TEST_F(TelnetServer, AnswersThatPileUpBreakIt) {
  for (int i = 0; i < 100000 && !stream.broken(); ++i) Receive("\xff\xfb\x22");
  EXPECT_TRUE(stream.broken());
  EXPECT_LE(stream.TakeOutgoing().size(), TelnetStream::kMostUnsentAnswers + 3);
}

TEST_F(TelnetServer, AnswersThatAreTakenDoNotBreakIt) {
  for (int i = 0; i < 100000; ++i) {
    Receive("\xff\xfb\x22");
    ASSERT_EQ("\xff\xfe\x22", stream.TakeOutgoing());
  }
  EXPECT_FALSE(stream.broken());
}

TEST_F(TelnetServer, CompressionThatNobodyAgreedToBreaksIt) {
  Receive("\xff\xfa\x56\xff\xf0");
  EXPECT_TRUE(stream.broken());
}

TEST_F(TelnetServer, MalformedRequestsAreIgnored) {
  EXPECT_EQ("ok", Typed("\xff\xfa\x18\xff\xf0\xff\xfa\x18\x07\xff\xf0\xff\xfa\x27\xff\xf0ok"));
  EXPECT_FALSE(stream.broken());
}

}  // namespace
}  // namespace olt_host
