#include "platform/log_ring.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace olt_host {
namespace {

LogLine Line(const std::string& text, unsigned int level = 0, unsigned int module_id = 19) {
  return {std::chrono::system_clock::now(), level, module_id, text};
}

std::vector<std::string> Texts(const std::vector<LogLine>& lines) {
  std::vector<std::string> texts;
  texts.reserve(lines.size());
  for (const LogLine& line : lines) texts.push_back(line.text);
  return texts;
}

TEST(LogRing, GivesTheNewestLinesOldestFirst) {
  LogRing ring;
  EXPECT_TRUE(ring.Newest(10).empty());
  for (const char* text : {"a", "b", "c"}) ring.Add(Line(text));
  EXPECT_EQ(Texts(ring.Newest(2)), (std::vector<std::string>{"b", "c"}));
  EXPECT_EQ(Texts(ring.Newest(10)), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_TRUE(ring.Newest(0).empty());
}

TEST(LogRing, ForgetsTheOldestBeyondAThousand) {
  LogRing ring;
  for (int i = 0; i < 1003; ++i) ring.Add(Line(std::to_string(i)));
  const std::vector<LogLine> lines = ring.Newest(2000);
  ASSERT_EQ(lines.size(), 1000U);
  EXPECT_EQ(lines.front().text, "3");
  EXPECT_EQ(lines.back().text, "1002");
}

TEST(LogRing, CountsARepeatedLineOnce) {
  LogRing ring;
  ring.Add(Line("before"));
  const LogLine last = [&ring] {
    for (int i = 0; i < 499; ++i) ring.Add(Line("again"));
    LogLine line = Line("again");
    ring.Add(line);
    return line;
  }();
  const std::vector<LogLine> lines = ring.Newest(10);
  ASSERT_EQ(Texts(lines), (std::vector<std::string>{"before", "again"}));
  EXPECT_EQ(lines[0].times, 1U);
  EXPECT_EQ(lines[1].times, 500U);
  EXPECT_EQ(lines[1].when, last.when);
}

TEST(LogRing, TellsLinesOfOtherLevelsAndModulesApart) {
  LogRing ring;
  ring.Add(Line("x", 0, 19));
  ring.Add(Line("x", 1, 19));
  ring.Add(Line("x", 1, 0));
  EXPECT_EQ(ring.Newest(10).size(), 3U);
}

TEST(LogRing, CutsLongTextsBetweenCharacters) {
  LogRing ring;
  ring.Add(Line(std::string(500, 'a')));
  ring.Add(Line(std::string(501, 'b')));
  // The two bytes of a character at 496 and 497 do not fit whole.
  ring.Add(Line(std::string(496, 'c') + "\xC3\xA4" + std::string(100, 'c')));
  const std::vector<std::string> texts = Texts(ring.Newest(10));
  EXPECT_EQ(texts[0], std::string(500, 'a'));
  EXPECT_EQ(texts[1], std::string(497, 'b') + "...");
  EXPECT_EQ(texts[2], std::string(496, 'c') + "...");
}

TEST(LogRing, TakesLinesFromSeveralThreads) {
  LogRing ring;
  std::vector<std::thread> threads;
  for (unsigned int module_id = 0; module_id < 4; ++module_id) {
    threads.emplace_back([&ring, module_id] {
      for (int i = 0; i < 200; ++i) ring.Add(Line(std::to_string(i), 0, module_id));
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(ring.Newest(1000).size(), 800U);
}

}  // namespace
}  // namespace olt_host
