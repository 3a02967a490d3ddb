// The bytes between a session and its transport.
#include "session/channel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

namespace olt_host {
namespace {

using Clock = Channel::Clock;
using Result = Channel::ReadResult;

std::string ReadAll(Channel& channel) {
  std::string text;
  unsigned char byte = 0;
  while (channel.Read(byte, Clock::now()) == Result::kByte) text += static_cast<char>(byte);
  return text;
}

std::string DrainAll(Channel& channel) {
  std::string text;
  char part[1000];
  for (std::size_t length; (length = channel.Drain(part, sizeof part)) > 0;) {
    text.append(part, length);
  }
  return text;
}

std::size_t Feed(Channel& channel, const std::string& text) {
  return channel.Feed(text.data(), text.size());
}

bool Write(Channel& channel, const std::string& text) {
  return channel.Write(text.data(), text.size());
}

TEST(AChannel, CarriesBytesBothWaysInOrder) {
  Channel channel;
  EXPECT_EQ(3U, Feed(channel, "abc"));
  EXPECT_EQ(2U, Feed(channel, "de"));
  EXPECT_EQ("abcde", ReadAll(channel));
  EXPECT_TRUE(Write(channel, "one"));
  EXPECT_TRUE(Write(channel, "two"));
  EXPECT_EQ("onetwo", DrainAll(channel));
}

TEST(AChannel, TakesNoMoreInputThanItHasRoomForAndSaysWhenThereIsRoomAgain) {
  Channel channel;
  int calls = 0;
  channel.SetWakeups({{}, [&calls] { ++calls; }});
  const std::string much(Channel::kInputRoom + 10, 'x');
  EXPECT_EQ(Channel::kInputRoom, Feed(channel, much));
  EXPECT_EQ(0U, Feed(channel, "y"));
  EXPECT_EQ(0, calls);
  EXPECT_EQ(Channel::kInputRoom, ReadAll(channel).size());
  EXPECT_EQ(1, calls) << "the transport hears of it once";
  EXPECT_EQ(1U, Feed(channel, "y"));
  EXPECT_EQ("y", ReadAll(channel));
  EXPECT_EQ(1, calls) << "nothing was refused meanwhile";
}

TEST(AChannel, DeliversWhatArrivedBeforeTheInputEnded) {
  Channel channel;
  Feed(channel, "last");
  channel.FeedEnd();
  EXPECT_EQ("last", ReadAll(channel));
  unsigned char byte = 0;
  EXPECT_EQ(Result::kClosed, channel.Read(byte, Clock::now() + std::chrono::hours(1)));
  EXPECT_TRUE(Write(channel, "answer")) << "the client may still read";
  EXPECT_EQ("answer", DrainAll(channel));
}

TEST(AChannel, ReadingEndsAtTheDeadline) {
  Channel channel;
  unsigned char byte = 0;
  EXPECT_EQ(Result::kTimedOut, channel.Read(byte, Clock::now() + std::chrono::milliseconds(5)));
}

TEST(AChannel, ClosingWakesAReaderAndDropsWhatIsQueued) {
  Channel channel;
  Write(channel, "never sent");
  std::thread closer([&channel] { channel.Close(); });
  unsigned char byte = 0;
  EXPECT_EQ(Result::kClosed, channel.Read(byte, Clock::now() + std::chrono::hours(1)));
  closer.join();
  EXPECT_TRUE(channel.closed());
  EXPECT_EQ("", DrainAll(channel));
  EXPECT_FALSE(Write(channel, "more"));
  EXPECT_EQ(4U, Feed(channel, "more")) << "a transport must not be held up by a closed channel";
}

TEST(AChannel, WritingWaitsForTheClientToTakeSomething) {
  Channel channel;
  const std::string much(Channel::kOutputRoom, 'x');
  ASSERT_TRUE(Write(channel, much));
  std::future<bool> writing =
      std::async(std::launch::async, [&channel] { return Write(channel, "behind"); });
  EXPECT_EQ(std::future_status::timeout, writing.wait_for(std::chrono::milliseconds(20)));
  EXPECT_EQ(0U, DrainAll(channel).find(much));
  EXPECT_TRUE(writing.get());
  EXPECT_TRUE(DrainAll(channel) == "behind" || channel.drained_to_end() == false);
}

TEST(AChannel, ClosingWakesAWriter) {
  Channel channel;
  const std::string much(Channel::kOutputRoom + 1, 'x');
  std::future<bool> writing =
      std::async(std::launch::async, [&channel, &much] { return Write(channel, much); });
  channel.Close();
  EXPECT_FALSE(writing.get());
}

TEST(AChannel, GivesUpAClientThatTakesNothing) {
  Channel channel(std::chrono::milliseconds(30));
  std::atomic<int> calls{0};
  channel.SetWakeups({[&calls] { ++calls; }, {}});
  const auto before = Clock::now();
  EXPECT_FALSE(Write(channel, std::string(Channel::kOutputRoom + 1, 'x')));
  EXPECT_GE(Clock::now() - before, std::chrono::milliseconds(30));
  EXPECT_TRUE(channel.closed());
  EXPECT_GE(calls, 2) << "the transport has to learn of bytes and of the end";
}

TEST(AChannel, ASlowClientIsNotGivenUp) {
  Channel channel(std::chrono::seconds(20));
  const std::string much(3 * Channel::kOutputRoom, 'x');
  std::future<bool> writing =
      std::async(std::launch::async, [&channel, &much] { return Write(channel, much); });
  std::size_t taken = 0;
  while (taken < much.size()) {
    char part[777];
    taken += channel.Drain(part, sizeof part);
  }
  EXPECT_TRUE(writing.get());
}

TEST(AChannel, WhatIsQueuedAtTheEndIsStillSentAndTheFarewellBehindIt) {
  Channel channel;
  Write(channel, std::string(Channel::kOutputRoom, 'x'));
  channel.Finish("bye");
  EXPECT_FALSE(Write(channel, "late"));
  unsigned char byte = 0;
  EXPECT_EQ(Result::kClosed, channel.Read(byte, Clock::now() + std::chrono::hours(1)));
  EXPECT_FALSE(channel.drained_to_end());
  const std::string sent = DrainAll(channel);
  EXPECT_EQ("bye", sent.substr(sent.size() - 3));
  EXPECT_EQ(Channel::kOutputRoom + 3, sent.size());
  EXPECT_TRUE(channel.drained_to_end());
  EXPECT_TRUE(channel.AwaitDrained());
}

TEST(AChannel, WaitingForTheLastBytesIsLimitedByTheClientsPatience) {
  Channel channel(std::chrono::milliseconds(20));
  Write(channel, "unread");
  channel.Finish();
  EXPECT_FALSE(channel.AwaitDrained());
  EXPECT_TRUE(channel.drained_to_end()) << "closed: nothing more will come";
}

TEST(AChannel, AnInterruptIsTakenWithWhatWasTypedBeforeIt) {
  Channel channel;
  EXPECT_FALSE(channel.TakeInterrupt());
  Feed(channel,
       "ab\x03"
       "cd\x03"
       "ef");
  EXPECT_TRUE(channel.TakeInterrupt());
  EXPECT_FALSE(channel.TakeInterrupt());
  EXPECT_EQ("ef", ReadAll(channel));
  Feed(channel,
       "\x03"
       "gh");
  unsigned char byte = 0;
  EXPECT_EQ(Result::kByte, channel.Read(byte, Clock::now()));
  EXPECT_FALSE(channel.TakeInterrupt()) << "it has been read as a key";
}

TEST(AChannel, AnInterruptMakesRoomForInputThatWasRefused) {
  Channel channel;
  int calls = 0;
  channel.SetWakeups({{}, [&calls] { ++calls; }});
  Feed(channel, std::string(Channel::kInputRoom - 1, 'x') +
                    "\x03"
                    "rest");
  EXPECT_TRUE(channel.TakeInterrupt());
  EXPECT_EQ(1, calls);
}

TEST(AChannel, KnowsWhenNoMoreInputCanCome) {
  Channel channel;
  Feed(channel, "x");
  channel.FeedEnd();
  EXPECT_FALSE(channel.AwaitEnd(Clock::now())) << "there is still something to read";
  EXPECT_EQ("x", ReadAll(channel));
  EXPECT_TRUE(channel.AwaitEnd(Clock::now() + std::chrono::hours(1)));
}

}  // namespace
}  // namespace olt_host
