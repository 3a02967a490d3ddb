#include "commands/text_table.h"

#include <gtest/gtest.h>

#include <string>

#include "commands/command_session.h"

namespace olt_host_test {
namespace {

using olt_host::Align;
using olt_host::TextTable;

// What `write` puts on a terminal.
template <typename Write>
std::string Written(const Write& write) {
  std::string text;
  struct vty terminal(olt_host::kCommandNode, [&text](const char* bytes, std::size_t length) {
    text.append(bytes, length);
    return true;
  });
  write(terminal);
  ExpectFitsScreen(text);
  return text;
}

std::string Written(const TextTable& table) {
  return Written([&table](struct vty& terminal) { table.Write(terminal); });
}

TEST(TextTableTest, ColumnsAreAsWideAsTheirLongestCell) {
  TextTable table({{"No", Align::kRight}, {"Name", Align::kLeft}, {"", Align::kLeft}});
  table.Add({"1", "a", "x"});
  table.Add({"100", "longer", ""});
  EXPECT_EQ(Written(table), " No  Name\r\n  1  a       x\r\n100  longer\r\n");
}

TEST(TextTableTest, WidestColumnsGiveWayOnANarrowScreen) {
  TextTable table({{"Key", Align::kLeft}, {"One", Align::kLeft}, {"Two", Align::kLeft}});
  table.Add({"k", std::string(100, 'a'), std::string(50, 'b')});
  const std::string text = Written(table);
  EXPECT_NE(text.find("\r\nk    " + std::string(33, 'a') + "...  " + std::string(33, 'b') + "..."),
            std::string::npos)
      << text;
}

TEST(TextTableTest, PathsAreCutAtTheirFront) {
  TextTable table({{"File", Align::kPath}, {"No", Align::kRight}});
  table.Add({"/srv/" + std::string(100, 'x') + "\xC3\xA4.yaml", "1"});
  table.Add({"short.yaml", "2"});
  const std::string text = Written(table);
  EXPECT_NE(text.find("\r\n..." + std::string(66, 'x') + "\xC3\xA4.yaml   1\r\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("\r\nshort.yaml  "), std::string::npos) << text;
}

TEST(TextTableTest, CharactersCountNotBytes) {
  TextTable table({{"Name", Align::kLeft}, {"X", Align::kLeft}});
  table.Add({"\xC3\xA4\xC3\xB6\xC3\xBC", "1"});
  EXPECT_EQ(Written(table), "Name  X\r\n\xC3\xA4\xC3\xB6\xC3\xBC   1\r\n");
  TextTable cut({{"Name", Align::kLeft}});
  std::string name;
  for (int i = 0; i < 100; ++i) name += "\xC3\xA4";
  cut.Add({name});
  EXPECT_EQ(Written([&cut](struct vty& terminal) {
              cut.Write(terminal);
            }).substr(std::string("Name\r\n").size()),
            name.substr(0, std::size_t{2} * 76) + "...\r\n");
}

TEST(TextTableTest, ControlCharactersDoNotReachTheTerminal) {
  TextTable table({{"Name", Align::kLeft}});
  table.Add({"a\x1b[2J\tb\n"});
  EXPECT_EQ(Written(table), "Name\r\na?[2J b?\r\n");
}

TEST(TextTableTest, PairsGoOnUnderTheirBeginning) {
  EXPECT_EQ(Written([](struct vty& terminal) {
              olt_host::WritePairs(terminal, {{"File", std::string(100, 'f')}, {"Empty", ""}});
            }),
            "  File   " + std::string(70, 'f') + "\r\n         " + std::string(30, 'f') +
                "\r\n  Empty\r\n");
}

TEST(TextTableTest, LinesAreWrittenAsTheTerminalWantsThem) {
  EXPECT_EQ(Written([](struct vty& terminal) { olt_host::WriteLines(terminal, "a\n\nb\x07\n"); }),
            "a\r\n\r\nb?\r\n");
}

}  // namespace
}  // namespace olt_host_test
