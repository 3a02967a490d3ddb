// Files of lines in blocks: every byte once, whole lines, and where each block begins and
// ends; what cannot be read is told with its reason and place.
#include "network/line_blocks.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::kBlockBytes;
using olt_host::LineBlock;
using olt_host::LineBlocks;

std::vector<LineBlock> Rest(LineBlocks& blocks) {
  std::vector<LineBlock> all;
  while (auto block = blocks.Next()) {
    all.push_back(std::move(*block));
  }
  return all;
}

std::vector<LineBlock> Read(const std::string& path) {
  LineBlocks blocks(path);
  return Rest(blocks);
}

std::string TextOf(const std::vector<LineBlock>& blocks) {
  std::string text;
  for (const LineBlock& block : blocks) {
    text += block.text;
  }
  return text;
}

std::uint64_t LinesIn(const std::string& text) {
  return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

// Lines of 0 to `longest` bytes, line breaks of both kinds, and now and then a zero byte.
std::string RandomLines(std::mt19937& random, std::size_t bytes, std::size_t longest) {
  std::string text;
  while (text.size() < bytes) {
    text.append(random() % (longest + 1), static_cast<char>('a' + random() % 26));
    if (random() % 16 == 0) text += '\0';
    text += random() % 8 == 0 ? "\r\n" : "\n";
  }
  if (random() % 2 == 0) text += "the last, without a break";
  return text;
}

// `begin` bytes and the lines in them are behind us.
void ExpectBlocksOf(const std::vector<LineBlock>& blocks, const std::string& text,
                    std::size_t begin) {
  std::uint64_t line = 1 + LinesIn(text.substr(0, begin));
  std::uint64_t end = begin;
  for (const LineBlock& block : blocks) {
    end += block.text.size();
    EXPECT_EQ(block.first_line, line);
    EXPECT_EQ(block.end, end);
    EXPECT_LE(block.text.size(), kBlockBytes);
    EXPECT_FALSE(block.text.empty());
    EXPECT_TRUE(block.text.back() == '\n' || end == text.size());
    line += LinesIn(block.text);
  }
  EXPECT_TRUE(TextOf(blocks) == text.substr(begin));
}

class StandardInput {
 public:
  explicit StandardInput(int descriptor) : _before(dup(STDIN_FILENO)) {
    dup2(descriptor, STDIN_FILENO);
  }
  ~StandardInput() {
    dup2(_before, STDIN_FILENO);
    close(_before);
  }
  StandardInput(const StandardInput&) = delete;
  StandardInput& operator=(const StandardInput&) = delete;

 private:
  int _before;
};

TEST(LineBlocks, GiveEveryByteOnceInWholeLines) {
  const TemporaryDirectory directory;
  for (std::uint32_t seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
    const std::size_t longest = std::array<std::size_t, 3>{3, 900, kBlockBytes - 4}[seed % 3];
    const std::string text = RandomLines(random, random() % (4 * kBlockBytes), longest);
    const std::string path = directory.Write("lines", text);
    const std::vector<LineBlock> blocks = Read(path);
    ExpectBlocksOf(blocks, text, 0);
    for (const LineBlock& block : blocks) {
      LineBlocks rest(path);
      rest.Skip(block.end, block.first_line + LinesIn(block.text));
      ExpectBlocksOf(Rest(rest), text, static_cast<std::size_t>(block.end));
    }
  }
}

TEST(LineBlocks, AreAsBigAsMemoryIsSetAsideFor) {
  const TemporaryDirectory directory;
  std::string text;
  for (int i = 0; i < 300'000; ++i) {
    text += "0123456789\n";
  }
  const std::vector<LineBlock> blocks = Read(directory.Write("lines", text));
  EXPECT_EQ(blocks.size(), text.size() / kBlockBytes + 1);
}

TEST(LineBlocks, AFileWithoutLinesHasNone) {
  const TemporaryDirectory directory;
  LineBlocks blocks(directory.Write("empty", ""));
  EXPECT_FALSE(blocks.Next());
  EXPECT_FALSE(blocks.Next());
  EXPECT_EQ(TextOf(Read(directory.Write("break", "\n"))), "\n");
  EXPECT_EQ(TextOf(Read(directory.Write("one", "a"))), "a");
}

TEST(LineBlocks, ALineMayFillABlock) {
  const TemporaryDirectory directory;
  const std::string full = std::string(kBlockBytes - 1, 'x') + "\n";
  EXPECT_EQ(Read(directory.Write("lines", full)).size(), 1U);
  const std::vector<LineBlock> two = Read(directory.Write("lines", full + full));
  ASSERT_EQ(two.size(), 2U);
  EXPECT_EQ(two[1].first_line, 2U);
  const std::string without_break(kBlockBytes, 'x');
  EXPECT_TRUE(TextOf(Read(directory.Write("lines", without_break))) == without_break);
  EXPECT_EQ(Read(directory.Write("lines", "a\n" + without_break)).size(), 2U);
}

TEST(LineBlocks, ALongerLineIsToldByItsNumber) {
  const TemporaryDirectory directory;
  const std::string longer(kBlockBytes, 'x');
  for (const char* end : {"\n", "x", "xxx\n"}) {
    const std::string path = directory.Write("lines", "a\nb\n" + longer + end);
    LineBlocks blocks(path);
    const auto before = blocks.Next();
    ASSERT_TRUE(before);
    EXPECT_EQ(before->text, "a\nb\n");
    EXPECT_EQ(ErrorOf([&] { blocks.Next(); }, directory),
              "lines:3: the line has more than 1048576 bytes; expected a line break before");
  }
}

TEST(LineBlocks, WhatCannotBeOpenedIsTold) {
  const TemporaryDirectory directory;
  EXPECT_EQ(ErrorOf([&] { LineBlocks(directory.Path("none")); }, directory),
            "none: No such file or directory");
  std::filesystem::create_directory(directory.Path("folder"));
  EXPECT_EQ(ErrorOf([&] { LineBlocks(directory.Path("folder")); }, directory),
            "folder: Is a directory");
}

TEST(LineBlocks, AFileThatBecomesShorterIsNotTakenForItsEnd) {
  const TemporaryDirectory directory;
  const std::string path = directory.Write("lines", std::string(3'000'000, '\n'));
  LineBlocks blocks(path);
  ASSERT_TRUE(blocks.Next());
  std::filesystem::resize_file(path, 1'500'000);
  EXPECT_EQ(ErrorOf([&] { Rest(blocks); }, directory),
            "lines: was cut while it was read, at byte 1500000 of 3000000");
}

TEST(LineBlocks, GoOnOnlyWhereALineBegins) {
  const TemporaryDirectory directory;
  const std::string path = directory.Write("lines", "one\ntwo\nthree");
  const auto skip = [&](std::uint64_t offset, std::uint64_t line) {
    LineBlocks blocks(path);
    blocks.Skip(offset, line);
    return TextOf(Rest(blocks));
  };
  EXPECT_EQ(skip(0, 1), "one\ntwo\nthree");
  EXPECT_EQ(skip(4, 2), "two\nthree");
  EXPECT_EQ(skip(13, 4), "");
  for (const std::uint64_t offset : {5U, 12U, 14U, 1000U}) {
    EXPECT_EQ(
        ErrorOf([&] { skip(offset, 3); }, directory),
        "lines: no line begins at byte " + std::to_string(offset) + "; expected line 3 there");
  }
}

// A hole but for its end, behind what 32 bits can count.
TEST(LineBlocks, GoOnBehindFourGigabytes) {
  const TemporaryDirectory directory;
  const std::string path = directory.Path("lines");
  constexpr std::uint64_t kBegin = (std::uint64_t{5} << 30U) + 1;
  {
    const olt_host::FileDescriptor file(open(path.c_str(), O_WRONLY | O_CREAT, 0600));
    ASSERT_TRUE(file.is_open());
    ASSERT_EQ(pwrite(file.get(), "\nlast\n", 6, static_cast<off_t>(kBegin - 1)), 6);
  }
  LineBlocks blocks(path);
  EXPECT_EQ(blocks.size(), kBegin + 5);
  blocks.Skip(kBegin, 2);
  const auto block = blocks.Next();
  ASSERT_TRUE(block.has_value());
  EXPECT_EQ(block->text, "last\n");
  EXPECT_EQ(block->end, kBegin + 5);
}

TEST(LineBlocks, TellTheSizeOfAFile) {
  const TemporaryDirectory directory;
  EXPECT_EQ(LineBlocks(directory.Write("lines", "one\ntwo")).size(), 7U);
  // Has lines, though its size is 0.
  LineBlocks made_up("/proc/self/status");
  EXPECT_EQ(made_up.size(), std::nullopt);
  EXPECT_NE(TextOf(Rest(made_up)).find("\nPid:"), std::string::npos);
}

TEST(LineBlocks, ReadAPipeOnStandardInput) {
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  std::mt19937 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
  const std::string text = RandomLines(random, 2 * kBlockBytes, 2000);
  std::thread writer([&] {
    // In pieces that begin and end anywhere.
    for (std::size_t at = 0; at < text.size();) {
      const ssize_t count =
          write(ends[1], text.data() + at, std::min<std::size_t>(30'011, text.size() - at));
      if (count <= 0) break;
      at += static_cast<std::size_t>(count);
    }
    close(ends[1]);
  });
  const StandardInput input(ends[0]);
  LineBlocks blocks("-");
  EXPECT_EQ(blocks.size(), std::nullopt);
  ExpectBlocksOf(Rest(blocks), text, 0);
  writer.join();
  close(ends[0]);
}

TEST(LineBlocks, GoOnWhereStandardInputStands) {
  const TemporaryDirectory directory;
  const int file = open(directory.Write("lines", "one\ntwo\nthree\n").c_str(), O_RDONLY);
  ASSERT_EQ(lseek(file, 4, SEEK_SET), 4);
  {
    const StandardInput input(file);
    LineBlocks blocks("-");
    EXPECT_EQ(blocks.size(), 10U);
    const auto block = blocks.Next();
    ASSERT_TRUE(block);
    EXPECT_EQ(block->text, "two\nthree\n");
    EXPECT_EQ(block->end, 10U);
  }
  close(file);
}

TEST(LineBlocks, TellStandardInputByItsName) {
  const int folder = open("/", O_RDONLY | O_DIRECTORY);
  const StandardInput input(folder);
  const TemporaryDirectory directory;
  EXPECT_EQ(ErrorOf([] { LineBlocks("-"); }, directory), "standard input: Is a directory");
  close(folder);
}

}  // namespace
}  // namespace olt_host_test
