// What operators see of the live ONUs, and how they confirm and bind them.
#include <gtest/gtest.h>

#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "commands/live_onus.h"
#include "commands/onu_listing.h"
#include "onu_ability_common_table.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmLiveOnu;

class OnuCommands : public testing::Test {
 protected:
  void ConfirmAll() {
    for (const olt_host::OnuReport& report : olt_host::Host().population->Onus()) {
      ConfirmLiveOnu(report);
    }
  }

  // A real profile of an operator with its own key, and a pattern that takes the
  // reported type of the same number.
  static void AddOperatorsType(unsigned int key) {
    for (const auto type : {ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_TYPE_REAL}) {
      OnuAbilityProfile profile;
      profile.Init(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, ONU_ABILITY_MATCH_TYPE_EXACT);
      profile.Add(key);
      profile.Add(ONU_ABILITY_CODE_REPORT_TYPE, key);
      profile.Add(ONU_ABILITY_CODE_REAL_TYPE, key);
      profile.Add(ONU_ABILITY_CODE_TYPE_NAME, std::string("OPERATORS"));
      ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(profile), ONU_ABILITY_RET_OK);
    }
  }

  static unsigned int BindCount(unsigned int key) {
    OnuAbilityProfile profile;
    OnuAbilityTableManager::GetInstance()->Get(ONU_ABILITY_PROFILE_TYPE_REAL,
                                               ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, key, profile);
    return profile._bind_count;
  }

  CommandSession session_{{olt_host::InstallOnuCommands}};
};

// One more ONU, of the type that AddOperatorsType makes, and one whose expectation
// fails.
class OnuCommandsOnMoreOnus : public OnuCommands {
 protected:
  OnuCommandsOnMoreOnus() {
    olt_host::Reports reports;
    olt_host::OnuReport of_operator;
    of_operator.place = 4;
    of_operator.onu = 200;
    of_operator.reported_type = 6666;
    olt_host::OnuReport surprising;
    surprising.place = 4;
    surprising.onu = 3;
    surprising.reported_type = 1001;
    surprising.expect = olt_host::Expectation{1002, olt_host::Recognition::kType, std::nullopt, {}};
    reports.onus = {of_operator, surprising};
    olt_host::Host().population = std::make_shared<const olt_host::Population>(reports);
  }
};

TEST_F(OnuCommands, TableShowsEveryOnuAndWhatBecameOfIt) {
  ConfirmAll();
  const std::string text = session_.Type("show onu");
  ExpectFitsScreen(text);
  EXPECT_EQ(text,
            "Place/ONU Vendor   Reported Becomes   Real  Type name             Known by  OK?\r\n"
            "1/1       ACME         1001           1001  SFU-1GE               type      yes\r\n"
            "1/2       ACME         5555           1001  SFU-1GE               abilities yes\r\n"
            "1/3       -         unknown     800   1003  SFU-4FE               abilities yes\r\n"
            "1/4                    6666              -  -                     -         yes\r\n"
            "2/1       -            1002     700   1002  HGU-4GE-1POTS         type      yes\r\n"
            "3/1       -            1002           1002  HGU-4GE-1POTS         type      yes\r\n"
            "3/2       -            1003           1003  SFU-4FE               type      -\r\n");
}

TEST_F(OnuCommands, TableShowsOnusThatAreNotConfirmedYetAsSuch) {
  ConfirmLiveOnu(olt_host::Host().population->Onus().front());
  const std::string text = session_.Type("show onu 1");
  EXPECT_EQ(text,
            "Place/ONU Vendor   Reported Becomes   Real  Type name             Known by  OK?\r\n"
            "1/1       ACME         1001           1001  SFU-1GE               type      yes\r\n"
            "1/2       ACME         5555              -  (not confirmed)       -         -\r\n"
            "1/3       -         unknown              -  (not confirmed)       -         -\r\n"
            "1/4                    6666              -  (not confirmed)       -         -\r\n");
}

TEST_F(OnuCommands, TableAsJsonHasAMemberForEveryColumn) {
  ConfirmLiveOnu(olt_host::Host().population->Onus().front());
  const auto onus = session_.TypeJson("show onu json")["onus"];
  ASSERT_EQ(onus.size(), 7U);
  const auto& confirmed = onus[0];
  EXPECT_EQ(confirmed["place"], 1);
  EXPECT_EQ(confirmed["onu"], 1);
  EXPECT_EQ(confirmed["vendor_id"], "ACME");
  EXPECT_EQ(confirmed["reported_type"], 1001);
  EXPECT_EQ(confirmed["real_type"], 1001);
  EXPECT_EQ(confirmed["type_name"], "SFU-1GE");
  EXPECT_EQ(confirmed["recognised_by"], "type");
  EXPECT_EQ(confirmed["ok"], true);
  EXPECT_EQ(confirmed["key"], 1001);
  EXPECT_EQ(confirmed["confirmed"], true);
  EXPECT_EQ(confirmed["confirmed_at"].get<std::string>().size(), 24U);
  EXPECT_EQ(onus[1].dump(),
            R"({"place":1,"onu":2,"vendor_id":"ACME","reported_type":5555,"confirmed":false})");
  EXPECT_EQ(onus[2]["reported_type"], nullptr);
}

TEST_F(OnuCommands, OnePlaceShowsItsOnusOnly) {
  EXPECT_EQ(session_.TypeJson("show onu 3 json")["onus"].size(), 2U);
  EXPECT_EQ(session_.Refusal("show onu 7"),
            "No ONU at place 7, there is only place 1, place 2, place 3");
  EXPECT_EQ(session_.TypeJson("show onu 7 json")["error"]["message"],
            "No ONU at place 7, there is only place 1, place 2, place 3");
}

TEST_F(OnuCommands, DetailsShowReportAndOutcome) {
  ConfirmAll();
  const std::string text = session_.Type("show onu 1 3");
  ExpectFitsScreen(text);
  EXPECT_EQ(text.substr(0, text.find("  Confirmed at")),
            "ONU 1/3 reports\r\n"
            "  Vendor identifier   not told\r\n"
            "  Reported type       unknown\r\n"
            "  Device name         not told\r\n"
            "  Private capability  0 (SFU)\r\n"
            "  FE_PORTS (24)       4\r\n"
            "  Identify settings   SFU mode 1, setting 1 0, HGU mode 0, setting 3 0\r\n"
            "\r\n"
            "and became\r\n");
  EXPECT_EQ(text.substr(text.find("  Recognised by")),
            "  Recognised by   its abilities\r\n"
            "  Real type       1003\r\n"
            "  Type name       \"SFU-4FE\"\r\n"
            "  Key             1003\r\n"
            "  Type to report  800 (translated)\r\n"
            "  Expected        real type 1003, by abilities, report type 800\r\n"
            "  As expected     yes\r\n");
}

TEST_F(OnuCommands, DetailsTellNotToldFromEmpty) {
  ConfirmAll();
  const std::string text = session_.Type("show onu 1 4");
  EXPECT_NE(text.find("Vendor identifier   \"\"\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Device name         \"Mystery, \"9 ports\"\"\r\n"), std::string::npos);
  EXPECT_NE(text.find("Recognised by   nothing\r\n"), std::string::npos);
  EXPECT_NE(text.find("Key             none\r\n"), std::string::npos);
  EXPECT_NE(text.find("Expected        not recognised, report type 6666\r\n"), std::string::npos);
  EXPECT_NE(session_.Type("show onu 3 2").find("Abilities           cannot be read\r\n"),
            std::string::npos);
  EXPECT_NE(session_.Type("show onu 3 1").find("Abilities           none told\r\n"),
            std::string::npos);
}

TEST_F(OnuCommands, DetailsOfAnOnuThatIsNotConfirmed) {
  const std::string text = session_.Type("show onu 3 2");
  EXPECT_NE(text.find("  Confirmed at  not confirmed yet, see \"confirm onu\"\r\n"
                      "  Expected      nothing stated\r\n"),
            std::string::npos)
      << text;
  EXPECT_EQ(session_.TypeJson("show onu 3 2 json")["confirmed"], false);
}

TEST_F(OnuCommands, DetailsAsJson) {
  ConfirmAll();
  const auto onu = session_.TypeJson("show onu 1 3 json");
  EXPECT_EQ(onu["real_type"], 1003);
  EXPECT_EQ(onu["report"]["abilities"].dump(), R"([{"code":24,"name":"FE_PORTS","value":4}])");
  EXPECT_EQ(onu["report"]["identify"]["sfu_mode"], 1);
  EXPECT_EQ(onu["report"]["private_capability"], 0);
  EXPECT_EQ(onu["report"]["device_name"], nullptr);
  EXPECT_EQ(onu["report"]["line"], 15);
}

TEST_F(OnuCommands, DetailsOfACodeThatIsNotRegisteredHaveItsNumberAndNoName) {
  olt_host::Reports reports;
  olt_host::OnuReport report;
  report.onu = 1;
  report.abilities = {{999, 7}};
  reports.onus = {report};
  olt_host::Host().population = std::make_shared<const olt_host::Population>(reports);
  testing::internal::CaptureStderr();
  const auto onu = session_.TypeJson("show onu 0 1 json");
  const std::string text = session_.Type("show onu 0 1");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(onu["report"]["abilities"].dump(), R"([{"code":999,"name":null,"value":7}])");
  EXPECT_NE(text.find("  code 999            7\r\n"), std::string::npos) << text;
}

TEST_F(OnuCommands, UnrecognisedOnusOnly) {
  ConfirmAll();
  const auto onus = session_.TypeJson("show onu unrecognised json")["onus"];
  ASSERT_EQ(onus.size(), 1U);
  EXPECT_EQ(onus[0]["onu"], 4);
  EXPECT_NE(session_.Type("show onu unr").find("\r\n1/4 "), std::string::npos);
}

TEST_F(OnuCommands, EmptySelectionsSaySo) {
  ConfirmAll();
  EXPECT_EQ(session_.Type("show onu failed"), "No ONUs\r\n");
  EXPECT_EQ(session_.Type("show onu unconfirmed"), "No ONUs\r\n");
  EXPECT_EQ(session_.TypeJson("show onu failed json").dump(), R"({"onus":[]})");
}

TEST_F(OnuCommands, OnusThatAreNotConfirmedAreNeitherUnrecognisedNorFailed) {
  EXPECT_EQ(session_.Type("show onu unrecognised"), "No ONUs\r\n");
  EXPECT_EQ(session_.Type("show onu failed"), "No ONUs\r\n");
  EXPECT_EQ(session_.TypeJson("show onu unconfirmed json")["onus"].size(), 7U);
}

TEST_F(OnuCommandsOnMoreOnus, FailedExpectationsOnly) {
  ConfirmAll();
  const auto onus = session_.TypeJson("show onu failed json")["onus"];
  ASSERT_EQ(onus.size(), 1U);
  EXPECT_EQ(onus[0]["onu"], 3);
  const std::string text = session_.Type("show onu failed");
  EXPECT_NE(text.find("type      NO\r\n          expected real type 1002\r\n"), std::string::npos)
      << text;
  EXPECT_NE(session_.Type("show onu 4 3").find("As expected     NO: expected real type 1002\r\n"),
            std::string::npos);
}

TEST_F(OnuCommandsOnMoreOnus, OnusStandInTheOrderOfTheirNumbers) {
  const auto onus = session_.TypeJson("show onu json")["onus"];
  EXPECT_EQ(onus[0]["onu"], 3);
  EXPECT_EQ(onus[1]["onu"], 200);
}

TEST_F(OnuCommands, SummaryCountsWhatIsConfirmed) {
  ConfirmLiveOnu(*olt_host::Host().population->Find(1, 1));
  ConfirmLiveOnu(*olt_host::Host().population->Find(1, 4));
  EXPECT_EQ(session_.Type("show onu summary"),
            "  5 of 7 ONUs not confirmed yet\r\n"
            "\r\n"
            "  ONUs confirmed                           2\r\n"
            "  recognised by reported type              1\r\n"
            "  recognised by abilities                  0\r\n"
            "  not recognised                           1\r\n"
            "  reported type translated                 0\r\n"
            "  with an expectation                      2\r\n"
            "  not as expected                          0\r\n");
  const auto json = session_.TypeJson("show onu summary json");
  EXPECT_EQ(json["onus"], 2);
  EXPECT_EQ(json["not_recognised"], 1);
  EXPECT_EQ(json["not_confirmed"], 5);
  EXPECT_EQ(json["failed"].dump(), "[]");
}

TEST_F(OnuCommands, ConfirmOnuConfirmsThroughTheLibraryAndShowsTheOutcome) {
  EXPECT_EQ(session_.Type("confirm onu 2 1"),
            "Place/ONU Vendor   Reported Becomes   Real  Type name             Known by  OK?\r\n"
            "2/1       -            1002     700   1002  HGU-4GE-1POTS         type      yes\r\n");
  ASSERT_EQ(olt_host::Host().confirmed.size(), 1U);
  EXPECT_EQ((olt_host::Host().confirmed.at({2, 1}).key), 1002U);
}

TEST_F(OnuCommands, ConfirmOnuSeesAProfileThatAnOperatorAdded) {
  ConfirmAll();
  AddOperatorsType(6666);
  // As it was, until it is confirmed again.
  EXPECT_EQ(session_.TypeJson("show onu 1 4 json")["real_type"], nullptr);
  session_.Type("confirm onu 1 4");
  EXPECT_EQ(session_.TypeJson("show onu 1 4 json")["real_type"], 6666);
}

TEST_F(OnuCommands, ConfirmOnuNamesTheNearestOnesForAnUnknownOne) {
  EXPECT_EQ(session_.Refusal("confirm onu 1 9"), "No ONU 1/9, there is only 1/1, 1/2, 1/3, 1/4");
  EXPECT_EQ(session_.Refusal("confirm onu 9 1"),
            "No ONU at place 9, there is only place 1, place 2, place 3");
  EXPECT_EQ(olt_host::Host().confirmed.size(), 0U);
}

TEST_F(OnuCommands, NearestOnusAreFiveAtMost) {
  olt_host::Reports reports;
  for (int onu = 0; onu < 40; onu += 2) {
    olt_host::OnuReport report;
    report.onu = static_cast<std::uint8_t>(onu);
    reports.onus.push_back(report);
  }
  olt_host::Host().population = std::make_shared<const olt_host::Population>(reports);
  EXPECT_EQ(session_.Refusal("show onu 0 21"),
            "No ONU 0/21, the nearest are 0/16, 0/18, 0/20, 0/22, 0/24");
}

TEST_F(OnuCommands, ConfirmAllConfirmsEveryOnuAndSumsUp) {
  const std::string text = session_.Type("confirm all");
  EXPECT_EQ(text,
            "  ONUs confirmed                           7\r\n"
            "  recognised by reported type              4\r\n"
            "  recognised by abilities                  2\r\n"
            "  not recognised                           1\r\n"
            "  reported type translated                 2\r\n"
            "  with an expectation                      6\r\n"
            "  not as expected                          0\r\n");
  EXPECT_EQ(olt_host::Host().confirmed.size(), 7U);
}

TEST_F(OnuCommandsOnMoreOnus, ConfirmAllNamesWhatIsNotAsExpected) {
  EXPECT_NE(session_.Type("confirm all")
                .find("\r\nNot as expected:\r\n  : ONU 4/3 is type 1001 by type; "
                      "expected real type 1002\r\n"),
            std::string::npos);
}

TEST_F(OnuCommands, WithoutReportsThereAreNoOnus) {
  olt_host::Host().population = nullptr;
  EXPECT_EQ(session_.Type("show onu"), "No ONUs\r\n");
  EXPECT_EQ(session_.TypeJson("show onu json").dump(), R"({"onus":[]})");
  EXPECT_EQ(session_.TypeJson("show onu summary json")["onus"], 0);
  for (const char* line : {"confirm all", "confirm onu 1 1", "show onu 1", "bind onu 1 1"}) {
    EXPECT_EQ(session_.Refusal(line), "No ONUs: the host was started without reports") << line;
  }
}

TEST_F(OnuCommandsOnMoreOnus, BindRaisesAndUnbindLowersTheCountOfAnOperatorsProfile) {
  AddOperatorsType(6666);
  ConfirmAll();
  EXPECT_EQ(session_.Type("bind onu 4 200"), "The real profile with key 6666 is bound 1 time\r\n");
  EXPECT_EQ(session_.Type("bind onu 4 200"), "The real profile with key 6666 is bound 2 times\r\n");
  EXPECT_EQ(BindCount(6666), 2U);
  EXPECT_EQ(session_.Type("unbind onu 4 200"),
            "The real profile with key 6666 is bound 1 time\r\n");
  EXPECT_EQ(session_.Type("unbind onu 4 200"),
            "The real profile with key 6666 is bound 0 times\r\n");
  EXPECT_EQ(BindCount(6666), 0U);
  EXPECT_EQ(session_.Refusal("unbind onu 4 200"), "The real profile with key 6666 is not bound");
  EXPECT_EQ(BindCount(6666), 0U);
}

TEST_F(OnuCommandsOnMoreOnus, BindCountsTheConfirmedProfileWhateverKeyAbilityCodeIsSet) {
  AddOperatorsType(6666);
  AddOperatorsType(6667);
  // Read under code 1002, the key of the first profile would be that of the second.
  ASSERT_EQ(
      OnuAbilityTableManager::GetInstance()->Add(
          ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, 6666U, 1002, 6667U),
      ONU_ABILITY_RET_OK);
  session_.Type("set key_ability_code 1002");
  ConfirmAll();
  EXPECT_EQ(session_.Type("bind onu 4 200"), "The real profile with key 6666 is bound 1 time\r\n");
  EXPECT_EQ(BindCount(6667), 0U);
}

TEST_F(OnuCommandsOnMoreOnus, BoundProfileIsNotDeleted) {
  AddOperatorsType(6666);
  ConfirmAll();
  session_.Type("bind onu 4 200");
  session_.Type("del onu_ability_profile key 6666 profile_type 1 profile_source 1");
  EXPECT_EQ(BindCount(6666), 1U);
  session_.Type("unbind onu 4 200");
  session_.Type("del onu_ability_profile key 6666 profile_type 1 profile_source 1");
  EXPECT_EQ(session_.Refusal("bind onu 4 200"),
            "The real profile with key 6666 is gone, confirm the ONU again");
}

TEST_F(OnuCommands, BindSaysWhyItCannot) {
  EXPECT_EQ(session_.Refusal("bind onu 1 1"), "ONU 1/1 is not confirmed yet");
  ConfirmAll();
  EXPECT_EQ(session_.Refusal("bind onu 1 4"),
            "ONU 1/4 was not recognised, so it has no real profile");
  EXPECT_EQ(session_.Refusal("bind onu 1 1"),
            "The real profile with key 1001 is a shipped one, only an operator's are bound");
  EXPECT_EQ(session_.Refusal("unbind onu 1 1"),
            "The real profile with key 1001 is a shipped one, only an operator's are bound");
  EXPECT_EQ(session_.Refusal("bind onu 1 77"), "No ONU 1/77, there is only 1/1, 1/2, 1/3, 1/4");
}

TEST_F(OnuCommands, BindRefusesATypeThatOnlyAPatternKnows) {
  OnuAbilityProfile pattern;
  pattern.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  pattern.Add(6666U);
  pattern.Add(ONU_ABILITY_CODE_REPORT_TYPE, 6666U);
  pattern.Add(ONU_ABILITY_CODE_REAL_TYPE, 4321U);
  ASSERT_EQ(OnuAbilityTableManager::GetInstance()->Add(pattern), ONU_ABILITY_RET_OK);
  ConfirmAll();
  EXPECT_EQ(session_.Refusal("bind onu 1 4"), "No real profile has the real type 4321 of ONU 1/4");
  EXPECT_NE(session_.Type("show onu 1 4").find("Key             none, no real profile has this"),
            std::string::npos);
}

TEST_F(OnuCommands, ReadOnlyOperatorsLookAndChangeNothing) {
  session_.terminal().settings().access = olt_host::Access::kReadOnly;
  EXPECT_EQ(session_.TypeJson("show onu json")["onus"].size(), 7U);
  for (const char* line : {"confirm onu 1 1", "confirm all", "bind onu 1 1", "unbind onu 1 1"}) {
    session_.Type(line);
    EXPECT_FALSE(session_.last().ok()) << line;
  }
  EXPECT_TRUE(olt_host::Host().confirmed.empty());
}

TEST_F(OnuCommands, MayBeAbbreviated) {
  EXPECT_EQ(session_.Type("sh onu sum j"), session_.Type("show onu summary json"));
  EXPECT_EQ(session_.Type("conf o 1 1"), session_.Type("confirm onu 1 1"));
  session_.Type("show onu un");
  EXPECT_EQ(session_.last().kind, olt_host::CommandResult::kRefused);
}

}  // namespace
}  // namespace olt_host_test
