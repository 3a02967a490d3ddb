// show statistics, clear statistics: what is counted, and what is not.
#include <gtest/gtest.h>

#include <map>

#include "commands/command_session.h"
#include "commands/exposition_lines.h"
#include "commands/host_commands.h"
#include "commands/live_onus.h"
#include "commands/onu_listing.h"
#include "commands/operator_changes.h"
#include "commands/statistics_exposition.h"
#include "state/library_state.h"

namespace olt_host_test {
namespace {

using olt_host::Host;
using olt_host::ReportStatistics;
using olt_host::StatisticsReport;
using Json = CommandSession::Json;

const std::vector<CommandSession::Install> kCommands = {
    olt_host::InstallStatisticsCommands, olt_host::InstallOnuCommands,
    olt_host::InstallExplainCommands,    olt_host::InstallLintCommands,
    olt_host::InstallTypeCommands,       olt_host::InstallCatalogueCommands,
    olt_host::InstallTryCommands};

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// All profiles of the answer, by source and key.
std::map<std::pair<std::string, unsigned int>, Json> ProfilesOf(const Json& answer) {
  std::map<std::pair<std::string, unsigned int>, Json> profiles;
  for (const Json& profile : answer.at("profiles")) {
    profiles[{profile.at("source"), profile.at("key")}] = profile;
  }
  return profiles;
}

class Statistics : public testing::Test {
 protected:
  ~Statistics() override { olt_host::ObserveCommands({}); }

  std::uint64_t Wins(const std::string& source, unsigned int key) {
    const auto profiles = ProfilesOf(session.TypeJson("show statistics json"));
    const auto profile = profiles.find({source, key});
    return profile == profiles.end() ? 999 : profile->second.at("wins").get<std::uint64_t>();
  }

  CommandSession session{kCommands};
};

class ShippedStatistics : public testing::Test {
 protected:
  const std::string data = OLT_HOST_SHIPPED_DATA;
  CommandSession session{kCommands, data + "/catalogue.yaml", data + "/reports.yaml"};
};

TEST_F(ShippedStatistics, AgreeWithTheSummaryOfThePopulation) {
  session.Type("confirm all");
  const Json summary = session.TypeJson("show onu summary json");
  const Json answer = session.TypeJson("show statistics json");
  EXPECT_GT(answer.at("confirmations"), 0);
  EXPECT_EQ(answer.at("confirmations"), summary.at("onus"));
  for (const char* member : {"by_type", "by_abilities", "not_recognised", "translated"}) {
    EXPECT_EQ(answer.at(member), summary.at(member)) << member;
  }
}

TEST_F(ShippedStatistics, TheWinsOfAllProfilesAreAllMatches) {
  session.Type("confirm all");
  session.Type("confirm all");
  const Json answer = session.TypeJson("show statistics json");
  std::uint64_t wins = 0;
  std::uint64_t winners = 0;
  for (const Json& profile : answer.at("profiles")) {
    wins += profile.at("wins").get<std::uint64_t>();
    winners += profile.at("wins") > 0 ? 1 : 0;
    EXPECT_EQ(profile.at("wins") > 0, profile.at("last_won").is_string()) << profile;
  }
  EXPECT_EQ(wins, answer.at("by_type").get<std::uint64_t>() +
                      answer.at("by_abilities").get<std::uint64_t>());
  EXPECT_EQ(answer.at("profiles_won"), winners);
  EXPECT_EQ(answer.at("profiles").size(), Host().catalogue.catalogue.match_profiles.size());
  EXPECT_EQ(answer.at("profiles_never_won"), answer.at("profiles").size() - winners);
}

// Who won is what a second reading of the population says.
TEST_F(ShippedStatistics, EachProfileWonAsOftenAsThePopulationSays) {
  session.Type("confirm all");
  std::map<std::pair<std::string, unsigned int>, std::uint64_t> expected;
  for (const olt_host::OnuReport* report : olt_host::LiveOnus()) {
    const olt_host::ConfirmedOnu* onu = olt_host::ConfirmedOf(*report);
    // In the shipped catalogue a match profile and its real profile have one key.
    if (onu->result.real_type) ++expected[{"shipped", onu->key}];
  }
  std::map<std::pair<std::string, unsigned int>, std::uint64_t> counted;
  for (const auto& [name, profile] : ProfilesOf(session.TypeJson("show statistics json"))) {
    if (profile.at("wins") > 0) counted[name] = profile.at("wins");
  }
  EXPECT_EQ(counted, expected);
}

TEST_F(ShippedStatistics, TheScreenShowsTheTenThatWonMostAndAllOnDemand) {
  session.Type("confirm all");
  const std::string page = session.Type("show statistics");
  ExpectFitsScreen(page);
  const std::string all = session.Type("show statistics all");
  ExpectFitsScreen(all);
  const StatisticsReport report = ReportStatistics();
  ASSERT_GT(report.won, 10U);
  EXPECT_TRUE(Contains(page, "; \"show statistics all\" lists them")) << page;
  EXPECT_FALSE(Contains(all, "lists them")) << all;
  EXPECT_GT(all.size(), page.size());
  for (std::size_t i = 0; i < report.profiles.size(); ++i) {
    const std::string key = " " + KeyText(report.profiles[i].name) + "  ";
    EXPECT_EQ(Contains(page, key), i < 10) << key;
    EXPECT_TRUE(Contains(all, key)) << key;
  }
}

TEST_F(ShippedStatistics, TheMetricsAreReadLineByLine) {
  session.Type("confirm all");
  const StatisticsReport report = ReportStatistics();
  const Exposition read = ReadExposition(ExpositionText(report));
  EXPECT_EQ(read.Sum("olt_host_confirmations_total"),
            static_cast<double>(report.counts.summary().onus));
  EXPECT_EQ(
      read.Sum("olt_host_match_profile_wins_total"),
      static_cast<double>(report.counts.summary().by_type + report.counts.summary().by_abilities));
  EXPECT_EQ(read.Sum("olt_host_match_profiles"), static_cast<double>(report.profiles.size()));
}

TEST_F(Statistics, AConfirmationIsCountedOnce) {
  session.Type("confirm onu 1 1");
  session.Type("confirm onu 1 2");
  session.Type("confirm onu 1 4");
  EXPECT_EQ(Wins("shipped", 1001), 2U);
  EXPECT_EQ(Wins("shipped", 1003), 0U);
  const Json answer = session.TypeJson("show statistics json");
  EXPECT_EQ(answer.at("confirmations"), 3);
  EXPECT_EQ(answer.at("by_type"), 1);
  EXPECT_EQ(answer.at("by_abilities"), 1);
  EXPECT_EQ(answer.at("not_recognised"), 1);
  EXPECT_EQ(answer.at("hook_calls").at("vendor_id"), 3);
  EXPECT_EQ(answer.at("profiles_never_won"), 2);
  std::uint64_t timed = 0;
  for (const Json& one : answer.at("time_spent").at("classes")) {
    timed += one.at("confirmations").get<std::uint64_t>();
  }
  EXPECT_EQ(timed, 3U);
  EXPECT_GT(answer.at("time_spent").at("longest_seconds"), 0.0);
}

TEST_F(Statistics, QuestionsAreNotCounted) {
  session.Type("confirm all");
  const StatisticsReport before = ReportStatistics();
  for (const char* question :
       {"explain onu 1 2", "explain onu 1 4 json", "lint catalogue", "show type where lan>=1",
        "try del onu_ability_profile key 1001 profile_type 2 profile_source 0", "try drop",
        "show statistics", "show onu", "show onu summary"}) {
    session.Type(question);
    EXPECT_TRUE(session.last().ok()) << question;
    const StatisticsReport after = ReportStatistics();
    EXPECT_EQ(after.counts.summary().onus, before.counts.summary().onus) << question;
    EXPECT_EQ(after.counts.hook_calls(), before.counts.hook_calls()) << question;
    EXPECT_EQ(after.counts.durations().sum(), before.counts.durations().sum()) << question;
    EXPECT_EQ(after.won, before.won) << question;
  }
}

TEST_F(Statistics, AskingForThemChangesNothingOfTheLibrary) {
  session.Type("confirm all");
  const olt_host::LibraryState before = olt_host::CaptureLibrary();
  session.Type("show statistics all");
  session.Type("show statistics json");
  EXPECT_TRUE(olt_host::SameState(olt_host::CaptureLibrary(), before));
}

// Makes an operator's profile that takes an ONU of that type.
constexpr const char* kAddOne =
    "add onu_ability_profile key 1001 profile_type 2 reporttype 1001 realtype 1001 vendorid null "
    "onu_type_name null";
constexpr const char* kApplyOne = "apply onu_ability_profile key 1001";

TEST_F(Statistics, AnOperatorsProfileIsCountedBesideTheShippedOneOfItsKey) {
  for (const char* line : {kAddOne, kApplyOne, "confirm onu 1 1"}) {
    session.Type(line);
    EXPECT_TRUE(session.last().ok()) << line;
  }
  EXPECT_EQ(Wins("operator", 1001), 1U);
  EXPECT_EQ(Wins("shipped", 1001), 0U);
}

// The ids that loading gives shift, and the last profile goes.
TEST(StatisticsOfACatalogue, CountersStayWithTheirProfilesWhenItIsReadAgain) {
  const TemporaryDirectory directory;
  const std::string before = ReadFile(Fixture("small_catalogue.yaml"));
  const std::string catalogue = directory.Write("c.yaml", before);
  CommandSession session(kCommands, catalogue);
  session.Type("confirm all");
  const auto old = ProfilesOf(session.TypeJson("show statistics json"));
  const std::string newest = before.substr(before.rfind("  - key: 1003"));
  const std::string added = "match_profiles:\n  - {key: 900, abilities: {GE_PORTS: 77}}\n";
  directory.Write("c.yaml", With(With(before, "match_profiles:\n", added), newest, ""));
  session.Type("reload");
  ASSERT_TRUE(session.last().ok());
  const auto now = ProfilesOf(session.TypeJson("show statistics json"));
  ASSERT_EQ(now.size(), 4U);
  EXPECT_EQ(now.at({"shipped", 900}).at("wins"), 0);
  for (const auto& [name, profile] : old) {
    EXPECT_EQ(now.at(name).at("wins"), profile.at("wins")) << profile;
    EXPECT_EQ(now.at(name).at("gone"), name.second == 1003) << profile;
  }
  const std::string page = session.Type("show statistics");
  EXPECT_TRUE(Contains(page, "  1003  SFU-4FE        shipped, gone\r\n")) << page;
  EXPECT_TRUE(Contains(page, "3 match profiles won (1 of them gone since), 1 never did")) << page;
  directory.Write("c.yaml", before);
  session.Type("reload");
  session.Type("confirm onu 1 3");
  const auto back = ProfilesOf(session.TypeJson("show statistics json")).at({"shipped", 1003});
  EXPECT_EQ(back.at("gone"), false);
  EXPECT_EQ(back.at("wins"), old.at({"shipped", 1003}).at("wins").get<int>() + 1);
}

TEST(StatisticsOfACatalogue, AGoneProfileIsListedUntilCleared) {
  const TemporaryDirectory directory;
  const std::string before = ReadFile(Fixture("small_catalogue.yaml"));
  const std::string catalogue = directory.Write("c.yaml", before);
  CommandSession session(kCommands, catalogue);
  session.Type("confirm all");
  directory.Write("c.yaml", With(before, before.substr(before.rfind("  - key: 1003")), ""));
  session.Type("reload");
  EXPECT_EQ(session.TypeJson("show statistics json").at("profiles_gone"), 1);
  EXPECT_EQ(session.Type("clear statistics"), "Counting begins anew\r\n");
  const Json cleared = session.TypeJson("show statistics json");
  EXPECT_EQ(cleared.at("confirmations"), 0);
  EXPECT_EQ(cleared.at("profiles_gone"), 0);
  EXPECT_EQ(cleared.at("profiles").size(), 2U);
}

TEST(StatisticsOfOneKey, ProfilesAreNumberedFromTheOldest) {
  const TemporaryDirectory directory;
  const std::string catalogue = directory.Write(
      "c.yaml",
      ReadFile(Fixture("small_catalogue.yaml")) +
          "  - key: 1003\n    id: 3\n"
          "    abilities: {REPORT_TYPE: 1003, REAL_TYPE: 1003, FE_PORTS: 5, GE_PORTS: 9}\n");
  CommandSession session(kCommands, catalogue);
  session.Type("confirm onu 1 3");  // four fast Ethernet ports
  session.Type("confirm onu 1 4");  // nine ports
  session.Type("confirm onu 1 4");
  const Json answer = session.TypeJson("show statistics json");
  std::map<unsigned int, std::uint64_t> wins;
  for (const Json& profile : answer.at("profiles")) {
    if (profile.at("key") == 1003) wins[profile.at("number")] = profile.at("wins");
  }
  EXPECT_EQ(wins, (std::map<unsigned int, std::uint64_t>{{1, 1}, {2, 2}}));
  EXPECT_TRUE(Contains(session.Type("show statistics"), " 1003 (2)  SFU-4FE "));
}

TEST_F(Statistics, CommandsAreCountedByWhatTheyMayDo) {
  olt_host::KeepOperatorChanges();
  session.Type("show onu");
  session.Type("show onu summary");
  session.Type("set onu_common_type sfu 900");
  session.Type("frob");
  const Json commands = session.TypeJson("show statistics json").at("commands");
  EXPECT_EQ(commands.at("looking"), 2);
  EXPECT_EQ(commands.at("changing"), 1);
}

TEST_F(Statistics, NothingCountedYetIsSaidSo) {
  const std::string page = session.Type("show statistics");
  ExpectFitsScreen(page);
  EXPECT_TRUE(Contains(page, "  Time spent        none\r\n")) << page;
  EXPECT_TRUE(Contains(page, "0 match profiles won, 3 never did; \"show statistics all\"")) << page;
}

}  // namespace
}  // namespace olt_host_test
