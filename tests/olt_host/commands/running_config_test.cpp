// The running configuration: typed into an empty host, its lines rebuild what operators
// made, apart from what its remarks say.
#include "commands/running_config.h"

#include <algorithm>
#include <iostream>
#include <regex>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "platform/log_sink.h"
#include "state/library_state.h"
#include "state/random_operator.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::LibraryState;
using olt_host::RunningConfig;

// Remarks by table ("real", "match") and number of the profile.
using Remarks = std::map<std::pair<std::string, std::size_t>, std::vector<std::string>>;

Remarks RemarksOf(const std::vector<std::string>& lines) {
  static const std::regex form(R"(! (real|match) profile (\d+) \(key \d+\): (.*))");
  Remarks remarks;
  for (const std::string& line : lines) {
    std::smatch match;
    if (std::regex_match(line, match, form)) {
      remarks[{match[1], std::stoul(match[2])}].push_back(match[3]);
    }
  }
  return remarks;
}

// Takes over from `built` what the remark says to become otherwise.
void Concede(const std::string& remark, const OnuAbilityProfile& built,
             OnuAbilityProfile& expected) {
  static const std::regex code(R"(code (\d+) .* becomes (.*))");
  std::smatch match;
  if (std::regex_match(remark, match, code)) {
    const auto number = static_cast<unsigned short>(std::stoul(match[1]));
    const auto held = built._common_ability.find(number);
    if (held == built._common_ability.end()) {
      EXPECT_EQ(match[2], "absent");
      expected._common_ability.erase(number);
    } else {
      expected._common_ability[number] = held->second;
    }
  } else if (remark.rfind("id ", 0) == 0) {
    EXPECT_NE(remark.find("becomes " + std::to_string(built._id)), std::string::npos) << remark;
    expected._id = built._id;
  } else if (remark.rfind("bind count ", 0) == 0) {
    expected._bind_count = 0;
  } else if (remark.rfind("ability count ", 0) == 0) {
    expected._common_ability_num = built._common_ability_num;
  } else {
    ADD_FAILURE() << remark;
  }
}

// An attribute that a code lacks reads as 0, and is 0 when it is built anew.
void WriteOutAttributes(LibraryState& state) {
  for (auto& code : state.codes) {
    for (const auto& attribute : state.attributes) {
      code.ability_attr.emplace(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute.first), 0);
    }
  }
}

class RunningConfigTest : public testing::Test {
 protected:
  // What the lines make of an empty host.
  LibraryState Typed(const std::vector<std::string>& lines) {
    const CleanLibrary empty;
    for (const std::string& line : lines) {
      const std::string answer = _session.Type(line);
      EXPECT_TRUE(_session.last().ok()) << line << "\n" << answer;
      EXPECT_EQ(answer.find("fail"), std::string::npos) << line << "\n" << answer;
      EXPECT_EQ(answer.find("invalid"), std::string::npos) << line << "\n" << answer;
    }
    return CaptureLibrary();
  }

  // Holds a table against the one that was to be rebuilt.
  static void ExpectRebuilt(const std::string& table, const std::vector<OnuAbilityProfile>& wanted,
                            const std::vector<OnuAbilityProfile>& built, const Remarks& remarks) {
    std::size_t number = 0;
    std::size_t next = 0;
    for (const OnuAbilityProfile& profile : wanted) {
      if (profile._profile_source != ONU_ABILITY_PROFILE_SOURCE_EXTERNAL) continue;
      SCOPED_TRACE(table + " profile " + std::to_string(++number));
      OnuAbilityProfile expected(profile);
      const auto conceded = remarks.find({table, number});
      if (conceded != remarks.end()) {
        if (conceded->second.front().rfind("left out", 0) == 0) continue;
        ASSERT_LT(next, built.size());
        for (const auto& remark : conceded->second) Concede(remark, built[next], expected);
      }
      ASSERT_LT(next, built.size());
      EXPECT_TRUE(olt_host::SameProfile(expected, built[next]));
      ++next;
    }
    EXPECT_EQ(next, built.size());
  }

  // Types the running configuration into an empty host and compares; the remarks.
  Remarks ExpectRebuilds() {
    LibraryState wanted = CaptureLibrary();
    const std::vector<std::string> lines = RunningConfig(wanted);
    EXPECT_TRUE(olt_host::SameState(CaptureLibrary(), wanted));
    LibraryState built = Typed(lines);
    Remarks remarks = RemarksOf(lines);
    ExpectRebuilt("real", wanted.real_profiles, built.real_profiles, remarks);
    ExpectRebuilt("match", wanted.match_profiles, built.match_profiles, remarks);
    WriteOutAttributes(wanted);
    WriteOutAttributes(built);
    for (LibraryState* state : {&wanted, &built}) {
      state->match_profiles.clear();
      state->real_profiles.clear();
    }
    EXPECT_TRUE(olt_host::SameState(built, wanted));
    return remarks;
  }

  std::vector<std::string> LinesAfter(const std::vector<std::string>& typed) {
    for (const std::string& line : typed) _session.Type(line);
    return RunningConfig(CaptureLibrary());
  }

  static bool Has(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  CommandSession _session{{olt_host::InstallAttributeCommands, olt_host::InstallStateCommands}};
};

std::string AddLine(const std::string& key, const std::string& type, const std::string& names) {
  return "add onu_ability_profile key " + key + " profile_type " + type + " reporttype " + key +
         " realtype " + key + " " + names;
}

// Changes the profile that the lines add.
std::string UpdateLine(const std::string& index, const std::string& code,
                       const std::string& value) {
  return "update onu_ability_profile " + index + " profile_type 1 profile_source 1 ability_code " +
         code + " " + value;
}

const std::vector<std::string>& TypicalLines() {
  static const std::vector<std::string> lines = {
      AddLine("5", "1", "vendorid ZKWM onu_type_name \"GE 4\""),
      "set onu_ability_profile key 5 47 4 1012 null",
      "apply onu_ability_profile key 5",
      UpdateLine("key 5", "32", "uint_ability_value 70000"),
      UpdateLine("id 5", "1083", "string_ability_value \"a name of more than twenty bytes\""),
  };
  return lines;
}

TEST_F(RunningConfigTest, HasTheLinesThatAnOperatorTyped) {
  const std::vector<std::string> lines = LinesAfter(TypicalLines());
  EXPECT_TRUE(Has(lines, "register attribute 4 PORT_TYPE"));
  EXPECT_TRUE(Has(lines, "set ability_code 47 name GE_PORTS 1 3 4 3"));
  EXPECT_TRUE(Has(lines, "set ability_code 1083 name TYPE_NAME 5 3"));
  EXPECT_TRUE(Has(lines, "set onu_common_type hgu 700"));
  EXPECT_TRUE(Has(lines,
                  "add onu_ability_profile key 5 profile_type 1 reporttype 5 realtype 5 "
                  "vendorid ZKWM onu_type_name null"));
  EXPECT_TRUE(Has(lines, "set onu_ability_profile key 5 47 4 1012 null"));
  EXPECT_TRUE(Has(lines, "apply onu_ability_profile key 5"));
  EXPECT_TRUE(Has(lines,
                  "update onu_ability_profile key 5 profile_type 1 profile_source 1 "
                  "ability_code 32 uint_ability_value 70000"));
  EXPECT_TRUE(Has(lines,
                  "update onu_ability_profile id 5 profile_type 1 profile_source 1 "
                  "ability_code 1083 string_ability_value \"a name of more than twenty "
                  "bytes\""));
  EXPECT_TRUE(RemarksOf(lines).empty());
}

TEST_F(RunningConfigTest, RebuildsATypicalHostWithoutARemark) {
  LinesAfter(TypicalLines());
  EXPECT_TRUE(ExpectRebuilds().empty());
}

TEST_F(RunningConfigTest, RebuildsProfilesUnderSeveralKeyAbilityCodes) {
  LinesAfter({"set ability_code 2000 name KEY_2",
              AddLine("5", "2", "vendorid null onu_type_name null"),
              "apply onu_ability_profile key 5", "set key_ability_code 2000",
              AddLine("6", "2", "vendorid null onu_type_name null"),
              "apply onu_ability_profile key 6", "set key_ability_code 1080"});
  EXPECT_TRUE(ExpectRebuilds().empty());
}

TEST_F(RunningConfigTest, RebuildsAnyOperatorSessionApartFromWhatItRemarks) {
  std::size_t profiles = 0;
  std::size_t remarked = 0;
  for (unsigned int seed = 1; seed <= 120; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const CleanLibrary library;
    if (seed % 3 != 0) olt_host::LoadCatalogue(olt_host::Host().catalogue.catalogue);
    RandomOperator typist(seed);
    typist.RegisterUsualAttributes();
    typist.Act(80);
    const LibraryState state = CaptureLibrary();
    for (const auto* table : {&state.real_profiles, &state.match_profiles}) {
      for (const auto& profile : *table) {
        profiles += profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL ? 1 : 0;
      }
    }
    remarked += ExpectRebuilds().size();
  }
  std::cout << profiles << " profiles, " << remarked << " with remarks\n";
  EXPECT_GT(profiles, 300U);
  EXPECT_LT(remarked, profiles);
}

TEST_F(RunningConfigTest, RemarksWhatNoCommandSets) {
  LinesAfter(TypicalLines());
  LinesAfter(
      {AddLine("6", "1", "vendorid null onu_type_name null"), "apply onu_ability_profile key 6"});
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  manager->AddBindCount(ONU_ABILITY_PROFILE_TYPE_REAL, 6);
  manager->Del(ONU_ABILITY_PROFILE_SOURCE_EXTERNAL, ONU_ABILITY_PROFILE_TYPE_REAL, 5);
  const std::vector<std::string> lines = RunningConfig(CaptureLibrary());
  EXPECT_TRUE(Has(lines, "! real profile 1 (key 6): id 30002 becomes 30001"));
  EXPECT_TRUE(Has(lines, "! real profile 1 (key 6): bind count 1 becomes 0"));
  ExpectRebuilds();
}

TEST_F(RunningConfigTest, LeavesOutASecondProfileOfAKey) {
  LinesAfter(
      {AddLine("5", "1", "vendorid null onu_type_name null"), "apply onu_ability_profile key 5",
       AddLine("6", "1", "vendorid null onu_type_name null"), "apply onu_ability_profile key 6",
       UpdateLine("key 6", "1085", "uint_ability_value 5")});
  EXPECT_TRUE(
      Has(RunningConfig(CaptureLibrary()), "! real profile 2 (key 5): left out, its key is taken"));
  ExpectRebuilds();
}

TEST_F(RunningConfigTest, GivesNamesThatCannotBeTypedAStandIn) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>& codes = OnuAbilityCodeInfo::GetInstance()->Get();
  codes[0].ability_name = "a\tb";
  codes[1].ability_name = "CODE_24";
  codes[2].ability_name = std::string(5000, 'x');
  const std::vector<std::string> lines = RunningConfig(CaptureLibrary());
  EXPECT_TRUE(Has(lines, "! code 24: name \"a\\x09b\" becomes CODE_24_"));
  EXPECT_TRUE(Has(lines, "set ability_code 24 name CODE_24_ 1 3 4 3"));
  EXPECT_TRUE(Has(lines, "set ability_code 47 name CODE_47 1 3 4 3"));
  Typed(lines);
}

// Reading an attribute of a code that is older gives it to the code.
TEST_F(RunningConfigTest, ChangesNothingWhereCodesAreOlderThanAnAttribute) {
  LinesAfter(TypicalLines());
  for (ONU_ABILITY_CODE_ATTR_INFO& code : OnuAbilityCodeInfo::GetInstance()->Get()) {
    code.ability_attr.erase(ONU_ABILITY_ATTR_PORT_TYPE);
  }
  const LibraryState before = CaptureLibrary();
  _session.Type("show running-config");
  EXPECT_TRUE(olt_host::SameState(CaptureLibrary(), before));
}

TEST_F(RunningConfigTest, GivesTheValueTypeANameThatNoOtherAttributeHas) {
  LibraryState state = CaptureLibrary();
  state.attributes.erase(ONU_ABILITY_ATTR_VALUE_TYPE);
  state.attributes[9] = "VALUE_TYPE";
  olt_host::InstallLibrary(state);
  const std::vector<std::string> lines = RunningConfig(CaptureLibrary());
  EXPECT_TRUE(Has(lines, "! attribute 5: absent becomes VALUE_TYPE_"));
  EXPECT_TRUE(Has(lines, "register attribute 5 VALUE_TYPE_"));
  EXPECT_EQ(Typed(lines).codes.size(), state.codes.size());
}

TEST_F(RunningConfigTest, SaysWhichAttributesALineHasNoRoomFor) {
  ONU_ABILITY_CODE_ATTR_INFO& code = OnuAbilityCodeInfo::GetInstance()->Get().front();
  for (int id = 1; id <= 10; ++id) {
    const auto attribute = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id);
    OnuAbilityAttrInfo::GetInstance()->Add(attribute, "ATTRIBUTE-" + std::to_string(id));
    code.ability_attr[attribute] = 3;
  }
  const std::vector<std::string> lines = RunningConfig(CaptureLibrary());
  EXPECT_TRUE(Has(lines, "! code 24: attribute 9 3 becomes 0"));
  EXPECT_TRUE(Has(lines, "! code 24: attribute 10 3 becomes 0"));
  const LibraryState built = Typed(lines);
  EXPECT_EQ(built.codes.front().ability_attr.at(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(8)),
            3);
}

TEST_F(RunningConfigTest, EndsWithALogMaskThatAnOperatorSet) {
  const std::vector<std::string> before = RunningConfig(CaptureLibrary());
  EXPECT_NE(before.back().rfind("log mask", 0), 0U);
  olt_host::SetLogMask(olt_host::kDefaultLogMask | 2U);
  const std::vector<std::string> after = RunningConfig(CaptureLibrary());
  // What it does to the library meanwhile is undone.
  EXPECT_EQ(onu_ability_get_log_level_mask(), olt_host::kDefaultLogMask | 2U);
  olt_host::SetLogMask(olt_host::kDefaultLogMask);
  EXPECT_EQ(after.size(), before.size() + 1);
  EXPECT_EQ(after.back(), "log mask 0,1,13");
}

TEST_F(RunningConfigTest, IsShownAsTextAndAsJson) {
  LinesAfter(TypicalLines());
  const std::vector<std::string> lines = RunningConfig(CaptureLibrary());
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  EXPECT_EQ(_session.Type("show running-config"), text);
  EXPECT_EQ(_session.TypeJson("show running-config json")["lines"], lines);
}

}  // namespace
}  // namespace olt_host_test
