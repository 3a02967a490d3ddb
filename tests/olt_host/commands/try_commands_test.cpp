// try: what a command would do to the live ONUs, and making it, for a while or for good.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <stdexcept>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "commands/live_onus.h"
#include "commands/onu_argument.h"
#include "commands/operator_changes.h"
#include "commands/tried_change.h"
#include "state/library_state.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::Host;
using olt_host::LibraryState;
using olt_host::SameState;

constexpr const char* kAddNine =
    "add onu_ability_profile key 1009 profile_type 2 reporttype 1009 realtype 1009 vendorid null "
    "onu_type_name null";
constexpr const char* kSetNine = "set onu_ability_profile key 1009 47 9";
constexpr const char* kApplyNine = "apply onu_ability_profile key 1009";

class TryCommands : public testing::Test {
 protected:
  TryCommands() {
    Host().clock = [this] { return _now; };
    Host().state_file = _directory.Path("olt.state");
    olt_host::KeepOperatorChanges();
    for (const olt_host::OnuReport& report : Host().population->Onus()) {
      olt_host::ConfirmLiveOnu(report);
    }
  }
  ~TryCommands() override { olt_host::ObserveCommands({}); }

  // The whole state of the host that a question must not touch.
  struct Seen {
    LibraryState library = CaptureLibrary();
    OnuAbilityProfile* lent = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
    std::map<std::pair<std::uint16_t, std::uint8_t>, std::chrono::system_clock::time_point>
        confirmed;
    std::string state_file;
    std::optional<OnuAbilityProfile> pending;
  };
  Seen See() {
    Seen seen;
    seen.state_file = ReadFile(Host().state_file);
    for (const auto& [onu, confirmed] : Host().confirmed) seen.confirmed[onu] = confirmed.when;
    const auto& pending = _session.terminal().settings().pending_profile;
    if (pending != nullptr) seen.pending = *pending;
    return seen;
  }
  void ExpectUntouched(const Seen& before) {
    const Seen now = See();
    EXPECT_TRUE(SameState(now.library, before.library));
    EXPECT_EQ(now.lent, before.lent);
    EXPECT_EQ(now.state_file, before.state_file);
    EXPECT_EQ(now.confirmed, before.confirmed);
    ASSERT_EQ(now.pending.has_value(), before.pending.has_value());
    if (now.pending) {
      EXPECT_TRUE(olt_host::SameProfile(*now.pending, *before.pending));
    }
  }

  void TryNine() {
    for (const char* line : {kAddNine, kSetNine, kApplyNine}) {
      _session.Type(std::string("try ") + line);
      ASSERT_TRUE(_session.last().ok());
    }
  }

  // A second operator with a terminal of its own.
  std::string TypeOther(const std::string& line) {
    _output.clear();
    olt_host::ExecuteLine(_other, olt_host::kCommandNode, line);
    return _output;
  }

  std::optional<std::uint16_t> RealTypeOf(std::uint16_t place, std::uint8_t onu) {
    _session.Type("confirm all");
    return Host().confirmed.at({place, onu}).result.real_type;
  }

  const TemporaryDirectory _directory;
  olt_host::UnconfirmedChange::Time _now{};
  CommandSession _session{
      {olt_host::InstallStateCommands, olt_host::InstallOnuCommands, olt_host::InstallTryCommands}};
  std::string _output;
  struct vty _other {
    olt_host::kCommandNode, [this](const char* bytes, std::size_t length) {
      _output.append(bytes, length);
      return true;
    }
  };
};

TEST_F(TryCommands, TellWhatALineWouldDoAndDoNothing) {
  const Seen before = See();
  const std::string answer = _session.Type("try set onu_common_type hgu 701");
  ExpectFitsScreen(answer);
  ExpectUntouched(before);
  EXPECT_EQ(answer.substr(0, answer.find("\r\n")), "set onu common type ok!common_type:701");
  EXPECT_NE(answer.find("1002 \"HGU-4GE-1POTS\", reported as 700, becomes 701\r\n"
                        "          ONU 2/1\r\n"),
            std::string::npos)
      << answer;
  EXPECT_NE(answer.find("\"try commit\" makes it so"), std::string::npos);
}

TEST_F(TryCommands, AddUp) {
  const Seen before = See();
  EXPECT_NE(_session.Type(std::string("try ") + kAddNine).find("would stay as it is (1 line"),
            std::string::npos);
  EXPECT_NE(_session.Type(std::string("try ") + kSetNine).find("would stay as it is (2 lines"),
            std::string::npos);
  const std::string answer = _session.Type(std::string("try ") + kApplyNine);
  EXPECT_NE(answer.find("  become known                                                   1\r\n"),
            std::string::npos)
      << answer;
  EXPECT_NE(answer.find("Why: profile 1009 is new and fits\r\n"), std::string::npos) << answer;
  EXPECT_NE(answer.find("(3 lines tried)"), std::string::npos);
  ExpectUntouched(before);
}

TEST_F(TryCommands, GoOnFromTheProfileThatIsBeingBuilt) {
  _session.Type(kAddNine);
  _session.Type(kSetNine);
  const Seen before = See();
  const std::string answer = _session.Type(std::string("try ") + kApplyNine);
  EXPECT_NE(answer.find("become known  "), std::string::npos) << answer;
  ExpectUntouched(before);
  _session.Type("try commit");
  EXPECT_EQ(RealTypeOf(1, 4), 1009);
}

TEST_F(TryCommands, TakeEverythingBackWhenTheLineFails) {
  _session.Type(kAddNine);
  const Seen before = See();
  const std::string answer = _session.Type("try apply onu_ability_profile key 77");
  EXPECT_FALSE(_session.last().ok());
  EXPECT_NE(answer.find("invalid key_ability_value:77"), std::string::npos) << answer;
  EXPECT_NE(answer.find("% Command failed: 0x80000002"), std::string::npos) << answer;
  ExpectUntouched(before);
  EXPECT_EQ(_session.terminal().settings().tried_change, nullptr);
}

TEST_F(TryCommands, KeepWhatWasTriedBeforeALineThatFails) {
  TryNine();
  const Seen before = See();
  _session.Type("try apply onu_ability_profile key 77");
  ExpectUntouched(before);
  EXPECT_EQ(_session.terminal().settings().tried_change->lines, 3U);
}

TEST_F(TryCommands, TakeEverythingBackWhenTheCommandThrows) {
  _session.Type(kAddNine);
  olt_host::ObserveCommands({});
  OnuAbilityProfile*& lent = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
  lent = _session.terminal().settings().pending_profile.get();
  const Seen before = See();
  const auto change = []() -> bool {
    OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile->Clear();
    LibraryState other = CaptureLibrary();
    other.match_profiles.pop_back();
    other.hgu_common_type = 1;
    olt_host::InstallLibrary(other);
    throw std::runtime_error("broken");
  };
  EXPECT_THROW(olt_host::Try(nullptr, {Host().population}, change), std::runtime_error);
  ExpectUntouched(before);
  lent = nullptr;
}

// Comparisons leave an entry in profiles without a key; a question must not.
TEST_F(TryCommands, LeaveNoTraceInProfilesWithoutAKey) {
  LibraryState library = CaptureLibrary();
  library.match_profiles.front()._common_ability.erase(1085);
  olt_host::InstallLibrary(library);
  const Seen before = See();
  _session.Type("try set onu_common_type hgu 701");
  ExpectUntouched(before);
}

TEST_F(TryCommands, AnswerInJson) {
  const auto json = _session.TypeJson("try set onu_common_type hgu 701 json");
  EXPECT_EQ(json["answer"][0], "set onu common type ok!common_type:701");
  EXPECT_EQ(json["lines"], 1);
  EXPECT_EQ(json["report_type_changed"], 1);
  EXPECT_EQ(json["groups"][0]["examples"][0]["place"], 2);
  EXPECT_EQ(_session.TypeJson("try json")["tried"]["changed"], 1);
}

// The name of a type is an argument that is always there, so it is no keyword.
TEST_F(TryCommands, TakeAValueForWhatItIs) {
  const std::string answer = _session.Type(
      "try add onu_ability_profile key 9 profile_type 2 reporttype 9 realtype 9 vendorid null "
      "onu_type_name json");
  EXPECT_NE(answer.find("onu ability item set ok"), std::string::npos) << answer;
  std::string name;
  _session.terminal().settings().tried_change->wanted_pending->Get(1083, name);
  EXPECT_EQ(name, "json");
}

TEST_F(TryCommands, CommitMakesWhatWasTriedAndKeepsIt) {
  TryNine();
  EXPECT_EQ(_session.Type("try commit"),
            "Committed 3 lines; \"confirm all\" lets the ONUs follow\r\n");
  EXPECT_EQ(RealTypeOf(1, 4), 1009);
  EXPECT_EQ(CaptureLibrary().match_profiles.size(), 4U);
  EXPECT_NE(ReadFile(Host().state_file), "");
  EXPECT_EQ(_session.Refusal("try commit"), "Nothing is tried that could be committed");
}

// Typed and committed, lines leave the same library and the same pending profile.
TEST_F(TryCommands, CommitLeavesWhatTheLinesThemselvesLeave) {
  const LibraryState start = CaptureLibrary();
  for (const char* line : {kAddNine, kSetNine, kApplyNine}) _session.Type(line);
  const LibraryState typed = CaptureLibrary();
  const OnuAbilityProfile pending = *_session.terminal().settings().pending_profile;
  olt_host::InstallLibrary(start);
  _session.terminal().settings().pending_profile.reset();
  TryNine();
  _session.Type("try commit");
  EXPECT_TRUE(SameState(CaptureLibrary(), typed));
  EXPECT_TRUE(olt_host::SameProfile(*_session.terminal().settings().pending_profile, pending));
}

TEST_F(TryCommands, DropForgets) {
  EXPECT_EQ(_session.Refusal("try drop"), "Nothing is tried, and no change waits to be confirmed");
  const Seen before = See();
  TryNine();
  EXPECT_EQ(_session.Type("try drop"), "Forgot 3 lines\r\n");
  ExpectUntouched(before);
  EXPECT_EQ(_session.Refusal("try commit"), "Nothing is tried that could be committed");
}

TEST_F(TryCommands, CommitRefusesWhenAnotherOperatorChangedTheLibrary) {
  TryNine();
  TypeOther("set onu_common_type sfu 801");
  const LibraryState before = CaptureLibrary();
  EXPECT_EQ(_session.Refusal("try commit").substr(0, 44),
            "Nothing is committed: the library or your pe");
  EXPECT_NE(_session.Refusal("try set onu_common_type sfu 802").find("\"try drop\" forgets the 3"),
            std::string::npos);
  EXPECT_TRUE(SameState(CaptureLibrary(), before));
  _session.Type("try drop");
  TryNine();
  _session.Type("try commit");
  EXPECT_EQ(CaptureLibrary().sfu_common_type, 801);
  EXPECT_EQ(RealTypeOf(1, 4), 1009);
}

TEST_F(TryCommands, ConfirmingOnusIsNoChangeOfTheLibrary) {
  TryNine();
  TypeOther("confirm all");
  _session.Type("try commit");
  EXPECT_TRUE(_session.last().ok());
}

TEST_F(TryCommands, EachOperatorTriesForThemselves) {
  TryNine();
  TypeOther("try set onu_common_type sfu 801");
  EXPECT_EQ(_other.settings().tried_change->lines, 1U);
  TypeOther("try commit");
  EXPECT_EQ(CaptureLibrary().sfu_common_type, 801);
  EXPECT_EQ(_session.Refusal("try commit").substr(0, 20), "Nothing is committed");
}

TEST_F(TryCommands, CommitConfirmedGoesBackUnlessConfirmed) {
  _session.terminal().settings().user = "anna";
  _session.terminal().settings().number = 2;
  const LibraryState before = CaptureLibrary();
  const std::string file = ReadFile(Host().state_file);
  TryNine();
  EXPECT_EQ(_session.Type("try commit confirmed 5"),
            "Committed 3 lines; \"confirm all\" lets the ONUs follow\r\n"
            "Now the change of anna (session 2) waits for \"try commit\", for 5m 00s more\r\n");
  EXPECT_EQ(RealTypeOf(1, 4), 1009);
  EXPECT_EQ(ReadFile(Host().state_file), file) << "an unconfirmed change is not kept";
  _now += std::chrono::minutes(5) - std::chrono::seconds(1);
  olt_host::GoBackWhenDue();
  EXPECT_FALSE(SameState(CaptureLibrary(), before));
  EXPECT_EQ(TypeOther("try").substr(0, 71),
            "Now the change of anna (session 2) waits for \"try commit\", for 1s more;");
  _now += std::chrono::seconds(1);
  olt_host::GoBackWhenDue();
  EXPECT_TRUE(olt_host::SameForOperators(CaptureLibrary(), before));
  EXPECT_EQ(RealTypeOf(1, 4), std::nullopt);
  EXPECT_EQ(ReadFile(Host().state_file), file);
  EXPECT_EQ(TypeOther("try").substr(0, 56),
            "Last, the change of anna (session 2) was taken back at 2");
}

TEST_F(TryCommands, GoBackBeforeTheNextCommandWhereNobodyServes) {
  const LibraryState before = CaptureLibrary();
  TryNine();
  _session.Type("try commit confirmed 1");
  _now += std::chrono::minutes(2);
  EXPECT_EQ(_session.Refusal("try commit").substr(0, 46),
            "Nothing is tried that could be committed; last");
  EXPECT_TRUE(olt_host::SameForOperators(CaptureLibrary(), before));
}

TEST_F(TryCommands, CommitAgainConfirms) {
  TryNine();
  _session.Type("try commit confirmed 1");
  EXPECT_NE(_session.Refusal("save").find("a change waits to be confirmed"), std::string::npos);
  EXPECT_EQ(TypeOther("try commit").substr(0, 52),
            "Confirmed: the change of an operator was confirmed a");
  _now += std::chrono::hours(1);
  olt_host::GoBackWhenDue();
  EXPECT_EQ(RealTypeOf(1, 4), 1009);
  EXPECT_NE(ReadFile(Host().state_file), "");
}

TEST_F(TryCommands, CommitConfirmedAgainWaitsAnew) {
  TryNine();
  _session.Type("try commit confirmed 1");
  EXPECT_EQ(_session.Type("try commit confirmed 10"),
            "Now the change of an operator waits for \"try commit\", for 10m 00s more\r\n");
  _now += std::chrono::minutes(9);
  olt_host::GoBackWhenDue();
  EXPECT_TRUE(Host().unconfirmed.Waits());
}

TEST_F(TryCommands, DropTakesBackWhatWaits) {
  const LibraryState before = CaptureLibrary();
  TryNine();
  _session.Type("try commit confirmed 1");
  EXPECT_NE(_session.Refusal("try set onu_common_type sfu 802").find("\"try drop\" takes it back"),
            std::string::npos);
  EXPECT_EQ(_session.Type("try drop").substr(0, 48),
            "Gone back: the change of an operator was taken b");
  EXPECT_TRUE(olt_host::SameForOperators(CaptureLibrary(), before));
  EXPECT_FALSE(Host().unconfirmed.Waits());
}

TEST_F(TryCommands, WhatOthersChangeMeanwhileGoesBackAsWell) {
  const LibraryState before = CaptureLibrary();
  TryNine();
  _session.Type("try commit confirmed 1");
  const std::string answer = TypeOther("set onu_common_type sfu 801");
  EXPECT_NE(answer.find("if it goes back, so"), std::string::npos) << answer;
  EXPECT_EQ(TypeOther("confirm onu 1 4").find("goes back"), std::string::npos);
  _now += std::chrono::minutes(1);
  olt_host::GoBackWhenDue();
  EXPECT_TRUE(olt_host::SameForOperators(CaptureLibrary(), before));
}

TEST_F(TryCommands, WhatGoesBackIsStillThatOfItsMaker) {
  _session.terminal().settings().user = "anna";
  _session.Type(
      "add onu_ability_profile key 1009 profile_type 1 reporttype 1009 realtype 1009 vendorid null "
      "onu_type_name null");
  _session.Type(kApplyNine);
  const OnuAbilityProfile profile = CaptureLibrary().real_profiles.back();
  ASSERT_EQ(profile._profile_source, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  _session.Type("try del onu_ability_profile key 1009 profile_type 1 profile_source 1");
  _session.Type("try commit confirmed 1");
  ASSERT_FALSE(Host().operator_register.Of(profile));
  _now += std::chrono::minutes(1);
  _other.settings().user = "bert";
  TypeOther("set onu_common_type hgu 702");
  ASSERT_FALSE(Host().unconfirmed.Waits());
  const auto note = Host().operator_register.Of(profile);
  ASSERT_TRUE(note);
  EXPECT_EQ(note->user, "anna");
}

TEST_F(TryCommands, NeedOnus) {
  Host().population = nullptr;
  const LibraryState before = CaptureLibrary();
  EXPECT_EQ(_session.Refusal("try set onu_common_type sfu 1"), olt_host::NoOnus());
  EXPECT_TRUE(SameState(CaptureLibrary(), before));
}

TEST_F(TryCommands, AreForOperatorsWithFullAccess) {
  _session.terminal().settings().access = olt_host::Access::kReadOnly;
  for (const char* line : {"try set onu_common_type sfu 1", "try commit", "try drop"}) {
    EXPECT_EQ(_session.Refusal(line), "Read-only session: this command may change something");
  }
}

}  // namespace
}  // namespace olt_host_test
