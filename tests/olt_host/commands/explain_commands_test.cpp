// What operators are told about why an ONU is what it is.
#include <gtest/gtest.h>

#include <string>

#include "commands/command_session.h"
#include "commands/explanation_output.h"
#include "commands/host_commands.h"
#include "commands/operator_changes.h"
#include "onu_ability_common_table.h"
#include "state/library_state.h"

namespace olt_host_test {
namespace {

class ExplainCommands : public testing::Test {
 protected:
  static std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
      ++count;
    }
    return count;
  }
  void ExpectTold(const std::string& line, const std::string& part) {
    const std::string text = session_.Type(line);
    ExpectFitsScreen(text);
    EXPECT_NE(text.find(part), std::string::npos) << text;
  }

  // Patterns of operators that take nothing: GE_PORTS is 100 and more.
  static void AddPatterns(unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) {
      OnuAbilityProfile profile;
      profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                   ONU_ABILITY_MATCH_TYPE_EXACT);
      profile.Add(7000 + i);
      profile.Add(47, 100 + i);
      ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(profile), ONU_ABILITY_RET_OK);
    }
  }

  CommandSession session_{{olt_host::InstallExplainCommands}};
};

TEST_F(ExplainCommands, TellsInShortFirst) {
  const std::string text = session_.Type("explain onu 1 2");
  ExpectFitsScreen(text);
  EXPECT_EQ(text.substr(0, text.find("    from")),
            "ONU 1/2 is SFU-1GE, real type 1001: recognised by its abilities.\r\n"
            "  Reported type   5555, the key of no match profile\r\n"
            "  Winner          match profile 1001 SFU-1GE\r\n");
  const std::size_t rest = text.find("  Its abilities");
  EXPECT_EQ(text.substr(rest, text.find("What it reported") - rest),
            "  Its abilities   of 3 abilities 3 agree, 0 by wildcard, 0 not named by the\r\n"
            "                  profile\r\n"
            "  Tried in vain   2 profiles newer than the winner\r\n"
            "  Never asked     none, the winner is the oldest\r\n"
            "  Type to report  1001\r\n"
            "\r\n"
            "Match profiles are tried from the newest to the oldest, operators' before the\r\n"
            "catalogue's and those from the end of its files to the beginning, and the first\r\n"
            "that fits wins.\r\n"
            "\r\n");
}

TEST_F(ExplainCommands, TellsWhatWasReportedValueByValue) {
  const std::string text = session_.Type("explain onu 1 2");
  const std::size_t values = text.find("  Ability ");
  EXPECT_EQ(text.substr(values, text.find("\r\n\r\n", values) - values),
            "  Ability             Told      Compared with profiles\r\n"
            "  FE_PORTS (24)       0         yes\r\n"
            "  POTS_PORTS (32)     not told  nothing to compare\r\n"
            "  GE_PORTS (47)       1         yes\r\n"
            "  ONU_CAPA (1002)     not told  nothing to compare\r\n"
            "  REPORT_TYPE (1080)  5555      looked up as a key\r\n"
            "  VENDOR_ID (1082)    \"ACME\"    yes\r\n"
            "  TYPE_NAME (1083)    not told  no");
}

TEST_F(ExplainCommands, TellsWhatDecidedAgainstEveryLoser) {
  const std::string text = session_.Type("explain onu 1 2");
  const std::size_t lost = text.find("Tried and lost");
  EXPECT_EQ(text.substr(lost, text.find("The type to report") - lost),
            "Tried and lost, nearest first; below each what first decided against it\r\n"
            "  Turn  Profile                         Agree  Wildcard  Absent  Against\r\n"
            "     1  1003 SFU-4FE                        0         0       1        2\r\n"
            "        FE_PORTS (24): the ONU has 0, the profile 4\r\n"
            "     2  1002 HGU-4GE-1POTS                  0         1       0        2\r\n"
            "        GE_PORTS (47): the ONU has 1, the profile 4\r\n"
            "\r\n");
}

TEST_F(ExplainCommands, TellsThatOlderProfilesWereNeverAskedAndWhetherTheyFit) {
  ExpectTold("explain onu 1 3",
             "  Never asked     2 profiles older than the winner, of which 1 would have\r\n"
             "                  fitted, too\r\n");
  const std::string some = session_.Type("explain onu 1 3");
  EXPECT_NE(some.find("Never asked, because the winner is newer, but these fit; newest first\r\n"
                      "  Turn  Profile                         Agree  Wildcard  Absent  Against\r\n"
                      "     2  1002 HGU-4GE-1POTS                  0         1       1        0\r\n"
                      "        would have fitted\r\n\r\n"),
            std::string::npos)
      << some;
  ExpectTold("explain onu 1 3 all",
             "        would have fitted\r\n"
             "     3  1001 SFU-1GE                        0         0       1        1\r\n"
             "        FE_PORTS (24): the ONU has 4, the profile 0\r\n");
}

TEST_F(ExplainCommands, TellsTheTranslationStepByStep) {
  const std::string text = session_.Type("explain onu 1 3");
  ExpectFitsScreen(text);
  EXPECT_NE(text.find("  Type to report  800 instead of 1003, by SFU mode 1\r\n"),
            std::string::npos);
  const std::size_t steps = text.find("  3. Its TRANS_TYPE");
  ASSERT_NE(steps, std::string::npos) << text;
  EXPECT_EQ(text.substr(steps),
            "  3. Its TRANS_TYPE (1023) is 1, so the identify modes apply.\r\n"
            "  4. Its ONU_CAPA (1002) is 0, an SFU, so the SFU mode of place 1 decides,\r\n"
            "     which is 1.\r\n"
            "  5. SFU mode 1 asks for the common SFU type, 800.\r\n"
            "  6. The type to report is 800 instead of 1003, by SFU mode 1.\r\n");
  // A vendor that HGU mode 3 treats apart.
  ExpectTold("explain onu 3 1", "  5. HGU mode 3 is for HGUs of other vendors than ZKWM, and the");
}

TEST_F(ExplainCommands, TellsOfAReportedTypeThatAbilitiesWouldNotConfirm) {
  ExpectTold("explain onu 2 1",
             "  Its abilities   not compared, alone they would have led to profile 1003\r\n"
             "                  SFU-4FE\r\n"
             "  Others          no profile was compared\r\n");
}

TEST_F(ExplainCommands, ShowsTheNearestTenUnlessAllAreAskedFor) {
  AddPatterns(30);
  const std::string some = session_.Type("explain onu 1 4");
  ExpectFitsScreen(some);
  EXPECT_EQ(CountOf(some, "GE_PORTS (47): the ONU has 9,"), 10U);
  EXPECT_NE(some.find("  ... and 23 more: say \"all\"\r\n"), std::string::npos) << some;
  const std::string all = session_.Type("explain onu 1 4 all");
  EXPECT_EQ(CountOf(all, "GE_PORTS (47): the ONU has 9,"), 33U);
  EXPECT_EQ(all.find("more: say"), std::string::npos);
  EXPECT_EQ(session_.TypeJson("explain onu 1 4 json")["profiles"].size(), 33U);
}

TEST_F(ExplainCommands, AsJson) {
  const auto json = session_.TypeJson("explain onu 1 2 json");
  EXPECT_EQ(json["place"], 1);
  EXPECT_EQ(json["onu"], 2);
  EXPECT_EQ(json["report"]["line"], 12);
  EXPECT_EQ(json["report"]["values"][0].dump(),
            R"({"code":24,"name":"FE_PORTS","told":"value","value":0,)"
            R"("is_compared":true,"compared_value":0})");
  EXPECT_EQ(json["recognised_by"], "abilities");
  EXPECT_EQ(json["abilities_compared"], true);
  EXPECT_EQ(json["real_type"], 1001);
  EXPECT_EQ(json["type_name"], "SFU-1GE");
  EXPECT_EQ(json["report_type"], 1001);
  EXPECT_EQ(json["winner"]["turn"], 3);
  EXPECT_EQ(json["winner"]["origin"]["kind"], "catalogue");
  EXPECT_EQ(json["winner"]["origin"]["line"], 44);
  EXPECT_EQ(json["winner"]["abilities"].size(), 3U);
  EXPECT_EQ(json["profiles"][0]["fate"], "lost");
  EXPECT_EQ(json["profiles"][0]["decided_by"].dump(),
            R"({"code":24,"name":"FE_PORTS","verdict":"decides against",)"
            R"("reported":0,"profile":4})");
  EXPECT_EQ(json["profiles"][2]["fate"], "won");
  EXPECT_EQ(json["translation"]["before"], 1001);
  EXPECT_EQ(json["translation"]["after"], 1001);
  EXPECT_EQ(json["translation"]["translated"], false);
  const auto translated = session_.TypeJson("explain onu 2 1 json")["translation"];
  EXPECT_EQ(translated["setting"], "hgu_mode");
  EXPECT_EQ(translated["mode"], 2);
  EXPECT_EQ(translated["common"], "hgu");
  EXPECT_EQ(translated["common_type"], 700);
  EXPECT_EQ(translated["after"], 700);
}

TEST_F(ExplainCommands, UnrecognisedOnuAsJsonHasNoWinner) {
  const auto json = session_.TypeJson("explain onu 1 4 json");
  EXPECT_EQ(json["recognised_by"], "none");
  EXPECT_EQ(json["winner"], nullptr);
  EXPECT_EQ(json["real_type"], nullptr);
  EXPECT_EQ(json["turn_by_abilities_alone"], nullptr);
}

TEST_F(ExplainCommands, ChangesNothing) {
  const olt_host::LibraryState before = olt_host::CaptureLibrary();
  for (const olt_host::OnuReport& report : olt_host::Host().population->Onus()) {
    const std::string onu = std::to_string(report.place) + " " + std::to_string(report.onu);
    session_.Type("explain onu " + onu);
    session_.Type("explain onu " + onu + " json");
  }
  EXPECT_TRUE(SameState(olt_host::CaptureLibrary(), before));
  EXPECT_TRUE(olt_host::Host().confirmed.empty());
}

TEST_F(ExplainCommands, RefusesAnOnuThatIsNotThere) {
  EXPECT_EQ(session_.Refusal("explain onu 1 9"), "No ONU 1/9, there is only 1/1, 1/2, 1/3, 1/4");
  EXPECT_EQ(session_.TypeJson("explain onu 9 1 json")["error"]["message"],
            "No ONU at place 9, there is only place 1, place 2, place 3");
  olt_host::Host().population = nullptr;
  EXPECT_EQ(session_.Refusal("explain onu 1 1"), "No ONUs: the host was started without reports");
}

TEST_F(ExplainCommands, IsOpenToReadOnlyOperators) {
  session_.terminal().settings().access = olt_host::Access::kReadOnly;
  EXPECT_EQ(session_.Type("explain onu 1 2").substr(0, 8), "ONU 1/2 ");
}

// Who made a profile, and when.
class ExplainOperatorsProfiles : public ExplainCommands {
 protected:
  ExplainOperatorsProfiles() {
    olt_host::KeepOperatorChanges();
    session_.terminal().settings().user = "alice";
    session_.terminal().settings().number = 3;
  }
  ~ExplainOperatorsProfiles() override { olt_host::ObserveCommands({}); }

  void MakePattern(const std::string& ports) {
    session_.Type(
        "add onu_ability_profile key 6667 profile_type 2 reporttype 6667 realtype 6666 "
        "vendorid null onu_type_name null");
    session_.Type("set onu_ability_profile key 6667 47 " + ports);
    session_.Type("apply onu_ability_profile key 6667");
  }
  CommandSession::Json Origin() {
    return session_.TypeJson("explain onu 1 4 json")["winner"]["origin"];
  }
};

TEST_F(ExplainOperatorsProfiles, TellsWhoMadeTheWinnerAndWhen) {
  MakePattern("9");
  const auto origin = Origin();
  EXPECT_EQ(origin["kind"], "operator");
  EXPECT_EQ(origin["user"], "alice");
  EXPECT_EQ(origin["session"], 3);
  EXPECT_EQ(origin["restored"], false);
  EXPECT_EQ(origin["at"].get<std::string>().size(), 24U);
  ExpectTold("explain onu 1 4", "    from          operator alice, session 3, 20");
}

TEST_F(ExplainOperatorsProfiles, AnotherOperatorsCommandLeavesTheNote) {
  MakePattern("9");
  session_.terminal().settings().user = "bob";
  session_.Type("set onu_common_type sfu 801");
  EXPECT_EQ(Origin()["user"], "alice");
}

TEST_F(ExplainOperatorsProfiles, ProfileThatNobodyNotedIsSaidToBeSo) {
  AddPatterns(1);
  OnuAbilityProfile everything;
  everything.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                  ONU_ABILITY_MATCH_TYPE_EXACT);
  everything.Add(7777U);
  ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(everything), ONU_ABILITY_RET_OK);
  EXPECT_EQ(Origin()["at"], nullptr);
  ExpectTold("explain onu 1 4", "    from          an operator's, not known since when\r\n");
}

}  // namespace
}  // namespace olt_host_test
