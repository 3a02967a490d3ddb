// What operators are told about unknown ONUs.
#include <gtest/gtest.h>

#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "onu_ability_common_table.h"
#include "state/library_state.h"
#include "vty/command_table.h"

namespace olt_host_test {
namespace {

const std::vector<CommandSession::Install> kCommands = {olt_host::InstallUnknownCommands};

// Reports with so many ONUs that nothing recognises, each another.
std::string ManyUnknown(unsigned int onus) {
  std::string text = "onus:\n";
  for (unsigned int i = 1; i <= onus; ++i) {
    text += "  - {place: 1, onu: " + std::to_string(i) +
            ", reported_type: unknown, abilities: {GE_PORTS: " + std::to_string(100 + i) + "}}\n";
  }
  return text;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

TEST(UnknownCommands, TellWhatIsUnknownAndWhatToPaste) {
  CommandSession session{kCommands};
  const std::string text = session.Type("show onu unknown");
  ExpectFitsScreen(text);
  EXPECT_EQ(text.substr(0, text.find("   Entry ")),
            "1 ONU that nothing recognises, then 1 that only the order of match profiles\r\n"
            "decides; 2 groups that reported the same, of either kind the largest first.\r\n"
            "\r\n"
            "1. 1 ONU that nothing recognises: 1/4\r\n"
            "   Report   GE_PORTS (47) 9\r\n"
            "   Nearest  1003 SFU-4FE: 1 against, 0 agree\r\n"
            "              GE_PORTS (47): the ONUs have 9, the profile 0\r\n"
            "            1002 HGU-4GE-1POTS: 1 against, 0 agree\r\n"
            "              GE_PORTS (47): the ONUs have 9, the profile 4\r\n"
            "            1001 SFU-1GE: 1 against, 0 agree\r\n"
            "              GE_PORTS (47): the ONUs have 9, the profile 1\r\n"
            "   Beside   the entry takes 1 ONU of other groups here, which told nothing\r\n"
            "            against it: 0 that nothing recognises, 1 recognised by order\r\n");
  const std::size_t entry = text.find("real_profiles:");
  EXPECT_EQ(text.substr(entry, text.find("\r\n\r\n", entry) - entry),
            "real_profiles:\r\n"
            "  - key: 6666\r\n"
            "    source: \"reported by ONU 1/4\"\r\n"
            "    abilities:\r\n"
            "      GE_PORTS: 9\r\n"
            "      REAL_TYPE: 6666\r\n"
            "      TYPE_NAME: \"Mystery, \\\"9 ports\\\"\"\r\n"
            "match_profiles:\r\n"
            "  - key: 6666\r\n"
            "    source: \"reported by ONU 1/4\"\r\n"
            "    abilities:\r\n"
            "      GE_PORTS: 9\r\n"
            "      REPORT_TYPE: 6666\r\n"
            "      REAL_TYPE: 6666");
  EXPECT_NE(text.find("\r\n2. 1 ONU, 1003 only by the order of 2 match profiles that fit: 1/3\r\n"),
            std::string::npos)
      << text;
}

TEST(UnknownCommands, AllShowsEveryGroup) {
  const TemporaryDirectory directory;
  CommandSession session{kCommands, Fixture("small_catalogue.yaml"),
                         directory.Write("reports.yaml", ManyUnknown(7))};
  const std::string some = session.Type("show onu unknown");
  ExpectFitsScreen(some);
  EXPECT_EQ(CountOf(some, "\r\n   Report   "), 3U);
  EXPECT_NE(some.find("\r\n4 more groups; \"show onu unknown all\" shows them\r\n"),
            std::string::npos);
  const std::string all = session.Type("show onu unknown all");
  EXPECT_EQ(CountOf(all, "\r\n   Report   "), 7U);
  EXPECT_EQ(all.find("more group"), std::string::npos);
}

TEST(UnknownCommands, AsJsonHasEveryGroup) {
  CommandSession session{kCommands};
  const auto json = session.TypeJson("show onu unknown json");
  EXPECT_EQ(json["unrecognised"], 1);
  EXPECT_EQ(json["by_luck"], 1);
  EXPECT_EQ(json["file"], Fixture("small_catalogue.yaml"));
  ASSERT_EQ(json["groups"].size(), 2U);
  const auto& first = json["groups"][0];
  EXPECT_EQ(first["recognised"], false);
  EXPECT_EQ(first["winner"], nullptr);
  EXPECT_EQ(first["fitting"], 0);
  EXPECT_EQ(first["onus"].dump(), R"([{"place":1,"onu":4}])");
  EXPECT_EQ(first["reported"]["47"], 9);
  ASSERT_EQ(first["nearest"].size(), 3U);
  EXPECT_EQ(first["nearest"][0].dump(),
            R"({"key":1003,"source":0,"id":9,"type_name":"SFU-4FE","agree":0,"wildcard":0,)"
            R"("absent":0,"against":[{"code":47,"name":"GE_PORTS","reported":9,"profile":0}]})");
  EXPECT_EQ(first["entry"]["key"], 6666);
  EXPECT_EQ(first["entry"]["takes_safe"], 0);
  EXPECT_EQ(first["entry"]["safe_onus"].dump(), "[]");
  EXPECT_EQ(first["entry"]["takes_by_luck"], 1);
  EXPECT_EQ(first["entry"]["takes_unrecognised"], 0);
  EXPECT_EQ(first["no_entry"], nullptr);
  EXPECT_EQ(json["groups"][1]["winner"], 1003);
  EXPECT_EQ(json["groups"][1]["fitting"], 2);
}

TEST(UnknownCommands, TellWhomAnEntryTakesAndWhyThereIsNone) {
  const TemporaryDirectory directory;
  CommandSession session{
      kCommands, Fixture("small_catalogue.yaml"),
      directory.Write(
          "reports.yaml",
          "onus:\n"
          "  - {place: 1, onu: 1, reported_type: unknown, abilities: {GE_PORTS: 9}}\n"
          "  - {place: 1, onu: 2, reported_type: 77, vendor_id: ACME, abilities: {FE_PORTS: 0}}\n"
          "  - {place: 1, onu: 3, reported_type: unknown}\n")};
  const std::string text = session.Type("show onu unknown");
  ExpectFitsScreen(text);
  EXPECT_NE(
      text.find(
          "   Careful  the entry changes the type of 1 ONU that only one profile fits now:\r\n"
          "            1/2\r\n"),
      std::string::npos)
      << text;
  EXPECT_NE(text.find("   Report   nothing that is compared with match profiles\r\n"),
            std::string::npos);
  EXPECT_NE(
      text.find("   Entry    none: they told nothing to know them by, a match profile for them"
                "\r\n            would take every ONU\r\n"),
      std::string::npos)
      << text;
  const auto silent = session.TypeJson("show onu unknown json")["groups"][1];
  EXPECT_EQ(silent["entry"], nullptr);
  EXPECT_EQ(silent["no_entry"],
            "none: they told nothing to know them by, a match profile for them would take every "
            "ONU");
}

TEST(UnknownCommands, ReadOnlyOperatorMayLook) {
  CommandSession session{kCommands};
  session.terminal().settings().access = olt_host::Access::kReadOnly;
  EXPECT_EQ(session.Type("show onu unknown").rfind("1 ONU that nothing recognises", 0), 0U);
  EXPECT_TRUE(session.last().ok());
}

TEST(UnknownCommands, SayThatThereIsNothing) {
  const TemporaryDirectory directory;
  const std::string known =
      directory.Write("reports.yaml", "onus: [{place: 1, onu: 1, reported_type: 1001}]\n");
  CommandSession session{kCommands, Fixture("small_catalogue.yaml"), known};
  EXPECT_EQ(session.Type("show onu unknown"), "No ONUs that are unknown or recognised by luck\r\n");
  EXPECT_EQ(session.TypeJson("show onu unknown json")["groups"].dump(), "[]");
}

TEST(UnknownCommands, SayThatThereAreNoReports) {
  CommandSession session{kCommands, Fixture("small_catalogue.yaml"), ""};
  EXPECT_EQ(session.Type("show onu unknown"), "No ONUs: the host was started without reports\r\n");
  EXPECT_TRUE(session.last().ok());
  const auto json = session.TypeJson("show onu unknown json");
  EXPECT_EQ(json["unrecognised"], 0);
  EXPECT_EQ(json["groups"].dump(), "[]");
}

TEST(UnknownCommands, ChangeNothing) {
  CommandSession session{kCommands};
  const olt_host::LibraryState before = olt_host::CaptureLibrary();
  session.Type("show onu unknown all");
  session.Type("show onu unknown json");
  EXPECT_TRUE(SameState(olt_host::CaptureLibrary(), before));
  EXPECT_TRUE(olt_host::Host().confirmed.empty());
}

}  // namespace
}  // namespace olt_host_test
