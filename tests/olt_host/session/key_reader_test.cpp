// Bytes of clients as keys.
#include "session/key_reader.h"

#include <gtest/gtest.h>

namespace olt_host {
namespace {

std::u32string KeysOf(const std::string& bytes) {
  Channel channel;
  KeyReader reader(channel);
  channel.Feed(bytes.data(), bytes.size());
  std::u32string keys;
  char32_t key = 0;
  while (reader.Read(key, Channel::Clock::now()) == KeyReader::Result::kKey) keys += key;
  return keys;
}

TEST(Keys, EveryWayToSendEnterIsOneEnter) {
  EXPECT_EQ(U"a\rb", KeysOf("a\rb"));
  EXPECT_EQ(U"a\rb", KeysOf("a\nb"));
  EXPECT_EQ(U"a\rb", KeysOf("a\r\nb"));
  EXPECT_EQ(U"a\rb", KeysOf(std::string("a\r\0b", 4)));
  EXPECT_EQ(U"\r\r\r\r", KeysOf("\r\r\n\n\n"));
}

TEST(Keys, CrAndLfThatArriveApartAreOneEnterToo) {
  Channel channel;
  KeyReader reader(channel);
  char32_t key = 0;
  channel.Feed("\r", 1);
  EXPECT_EQ(KeyReader::Result::kKey, reader.Read(key, Channel::Clock::now()));
  channel.Feed("\nx", 2);
  EXPECT_EQ(KeyReader::Result::kKey, reader.Read(key, Channel::Clock::now()));
  EXPECT_EQ(U'x', key);
}

TEST(Keys, Utf8IsOneKeyACharacter) {
  EXPECT_EQ(U"\u00e4\u20ac\U0001F600", KeysOf("\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80"));
}

TEST(Keys, BytesThatAreNoUtf8AreReplaced) {
  EXPECT_EQ(U"\uFFFDx", KeysOf("\xffx"));
  EXPECT_EQ(U"\uFFFDx", KeysOf("\xc3x")) << "the byte that broke it is a key of its own";
  EXPECT_EQ(U"\uFFFD\r", KeysOf("\xe2\x82\r"));
  EXPECT_EQ(U"\uFFFD", KeysOf("\xe0\x80\x80")) << "longer than need be";
  EXPECT_EQ(U"\uFFFD", KeysOf("\xed\xa0\x80")) << "half a pair";
  EXPECT_EQ(U"\uFFFD", KeysOf("\xf4\x90\x80\x80")) << "beyond the last character";
}

TEST(Keys, NulAndControlCharactersAbove127AreNone) {
  EXPECT_EQ(U"ab", KeysOf(std::string("a\0b", 3)));
  EXPECT_EQ(U"ab", KeysOf("a\xc2\x9b"
                          "b"));
}

TEST(Keys, TheIdleLimitEndsTheWait) {
  Channel channel;
  KeyReader reader(channel);
  reader.SetIdleLimit(std::chrono::seconds(1));
  char32_t key = 0;
  const auto before = Channel::Clock::now();
  EXPECT_EQ(KeyReader::Result::kTimedOut, reader.Read(key));
  EXPECT_GE(Channel::Clock::now() - before, std::chrono::seconds(1));
  EXPECT_GE(reader.idle(), std::chrono::seconds(1));
}

}  // namespace
}  // namespace olt_host
