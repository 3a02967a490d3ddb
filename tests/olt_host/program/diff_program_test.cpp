// olt_host diff, as a user runs it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class DiffProgram : public testing::Test {
 protected:
  static std::string Small() { return ReadFile(Fixture("small_catalogue.yaml")); }

  // The fixture's catalogue with one change of every kind.
  std::string Changed() {
    std::string text = With(Small(), "hgu: 700", "hgu: 701");
    text = With(text, "REAL_TYPE: 1001, GE_PORTS: 1,", "REAL_TYPE: 1001, GE_PORTS: 2,");
    text +=
        "  - key: 1009\n"
        "    abilities: {REPORT_TYPE: 1009, REAL_TYPE: 1009, GE_PORTS: 9}\n"
        "  - key: 1004\n"
        "    abilities: {REPORT_TYPE: 1004, REAL_TYPE: 1004, GE_PORTS: 0, FE_PORTS: 4}\n";
    return _directory.Write("new.yaml", text);
  }

  // The output without the directory of its files.
  std::string Short(std::string text) const {
    const std::string prefix = _directory.Path("");
    for (std::size_t at = text.find(prefix); at != text.npos; at = text.find(prefix)) {
      text.erase(at, prefix.size());
    }
    return text;
  }

  TemporaryDirectory _directory;
  std::string _old = _directory.Write("old.yaml", Small());
  std::string _reports = Fixture("small_reports.yaml");
};

TEST_F(DiffProgram, TellsWhatBecomesOtherwiseAndWhy) {
  const ProgramResult result = RunProgram({"diff", _old, Changed(), _reports});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Short(result.out).substr(Short(result.out).find("\n\n") + 2),
            R"(Of 7 ONUs
  change type                                                    1
  become known                                                   1
  become unknown                                                 1
  keep their type, but another one is reported upwards           1
  stay what they are                                             3
Decided by luck of order: several profiles fit, the newest of them won
  under OLD                                                      1
  under NEW                                                      1

Change type
       1  1003 "SFU-4FE" becomes 1004
          ONU 1/3
          Why: profile 1003 "SFU-4FE" still fits, but is tried after profile
          1004; profile 1004 is new and fits

Become known
       1  unknown becomes 1009
          ONU 1/4
          Why: profile 1009 is new and fits

Become unknown
       1  1001 "SFU-1GE" becomes unknown
          ONU 1/2
          Why: profile 1001 "SFU-1GE" no longer fits: GE_PORTS is reported 1,
          the profile asks for 2; no other profile fits

Keep their type, but another one is reported upwards
       1  1002 "HGU-4GE-1POTS", reported as 700, becomes 701
          ONU 2/1
          Why: the identify mode of its place made type 1002 into 700, and now
          makes it 701

Decided by luck of order under OLD
       1  ONU 1/3
          Why: profile 1003 "SFU-4FE" is tried before 1002 "HGU-4GE-1POTS",
          which fits as well

Decided by luck of order under NEW
       1  ONU 1/3
          Why: profile 1004 is tried before 1009, which fits as well, and 2
          more do
)");
}

TEST_F(DiffProgram, EndsWithZeroWhenEveryOnuStaysWhatItIs) {
  const ProgramResult result = RunProgram({"diff", _old, _old, _reports});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(Short(result.out).substr(0, 99),
            "OLD  old.yaml: \"Small test models\", version 1\n"
            "NEW  old.yaml: \"Small test models\", version 1\n\nOf 7 O");
  EXPECT_NE(result.out.find("Decided by luck of order under both\n"), std::string::npos);
}

TEST_F(DiffProgram, FitsAScreen) {
  const std::string data = OLT_HOST_SHIPPED_DATA;
  std::string text = ReadFile(data + "/catalogue.yaml");
  for (std::size_t at = text.find("GE_PORTS: 1, PON"); at != text.npos;
       at = text.find("GE_PORTS: 1, PON")) {
    text.replace(at, 11, "GE_PORTS: 3");
  }
  const ProgramResult result =
      RunProgram({"diff", data + "/catalogue.yaml", _directory.Write("new.yaml", text),
                  data + "/reports.yaml"});
  EXPECT_EQ(result.status, 1);
  std::istringstream lines(result.out);
  for (std::string line; std::getline(lines, line);) {
    // A path is not cut.
    if (line.rfind("OLD  ", 0) == 0 || line.rfind("NEW  ", 0) == 0) continue;
    EXPECT_LE(line.size(), 79U) << line;
  }
}

TEST_F(DiffProgram, PrintsJson) {
  const ProgramResult result = RunProgram({"diff", _old, Changed(), _reports, "--json"});
  EXPECT_EQ(result.status, 1);
  const auto json = nlohmann::json::parse(result.out);
  EXPECT_EQ(json["onus"], 7);
  EXPECT_EQ(json["changed"], 4);
  for (const char* kind :
       {"type_changed", "became_known", "became_unknown", "report_type_changed"}) {
    EXPECT_EQ(json[kind], 1) << kind;
  }
  ASSERT_EQ(json["groups"].size(), 4U);
  const auto& lost = json["groups"][2];
  EXPECT_EQ(lost["change"], "became_unknown");
  EXPECT_EQ(lost["before"]["profile"]["key"], 1001);
  EXPECT_EQ(lost["after"]["real_type"], nullptr);
  EXPECT_EQ(lost["old_profile_after"]["ability"], "GE_PORTS");
  EXPECT_EQ(lost["old_profile_after"]["held"], "2");
  EXPECT_EQ(json["luck_of_order"]["before"]["groups"][0]["profile"]["key"], 1003);
  EXPECT_EQ(json["luck_of_order"]["before"]["groups"][0]["next_profile"]["key"], 1002);
}

// OLD never asks for what only NEW defines; a name may stand for another number.
TEST_F(DiffProgram, TellsOfCodesThatOnlyOneCatalogueHas) {
  const std::string newer = _directory.Write(
      "new.yaml", With(Small(), "  - {code: 1001, name: ALL_LAN}",
                       "  - {code: 50, name: NEW_PORTS, attributes: {CONFIRM_TYPE: 3}}\n"
                       "  - {code: 1001, name: ALL_LAN}") +
                      "  - key: 1009\n"
                      "    abilities: {REAL_TYPE: 1009, NEW_PORTS: 9}\n");
  const std::string reports = _directory.Write(
      "r.yaml", With(ReadFile(_reports), "abilities: {GE_PORTS: 9}", "abilities: {NEW_PORTS: 9}"));
  const ProgramResult result = RunProgram({"diff", _old, newer, reports});
  EXPECT_EQ(result.status, 1) << result.err;
  EXPECT_NE(result.out.find("Note: only NEW defines code 50 (NEW_PORTS), which 1 ONU reports; "
                            "under OLD\n      nobody asks for it\n"),
            std::string::npos)
      << result.out;
  const ProgramResult back = RunProgram({"diff", newer, _old, reports, "--json"});
  const auto json = nlohmann::json::parse(back.out);
  EXPECT_EQ(json["codes_of_one"][0]["name"], "NEW_PORTS");
  EXPECT_EQ(json["codes_of_one"][0]["only_in"], "old");
}

TEST_F(DiffProgram, SaysNothingOfCodesThatNeitherCatalogueDefines) {
  const std::string reports = _directory.Write(
      "r.yaml", With(ReadFile(_reports), "abilities: {GE_PORTS: 9}", "abilities: {777: 9}"));
  const ProgramResult result = RunProgram({"diff", _old, _old, reports});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out.find("Note"), std::string::npos) << result.out;
}

TEST_F(DiffProgram, TakesAnotherKeyAbilityCode) {
  const std::string newer = _directory.Write(
      "new.yaml", With(With(Small(), "{code: 1085, name: KEY}", "{code: 2000, name: KEY}"),
                       "common_types:", "key_ability_code: 2000\ncommon_types:"));
  const ProgramResult result = RunProgram({"diff", _old, newer, _reports});
  EXPECT_EQ(result.status, 0) << result.err << result.out;
}

TEST_F(DiffProgram, TakesReportsOfSeveralPlacesByTheirFiles) {
  const std::string other = _directory.Write("other.yaml", ReadFile(_reports));
  const ProgramResult result = RunProgram({"diff", _old, Changed(), _reports, other});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.out.find("Of 14 ONUs\n"), std::string::npos);
  EXPECT_NE(result.out.find("ONUs 1/3 of small_reports.yaml, 1/3 of other.yaml\n"),
            std::string::npos)
      << result.out;
}

TEST_F(DiffProgram, EndsWithTwoForBadInput) {
  EXPECT_EQ(RunProgram({"diff", _old, _old}).status, 2);
  const ProgramResult missing = RunProgram({"diff", _old, _directory.Path("no.yaml"), _reports});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.out, "");
  EXPECT_NE(missing.err.find("no.yaml"), std::string::npos) << missing.err;
  const std::string reports =
      _directory.Write("r.yaml", With(ReadFile(_reports), "GE_PORTS: 9", "NO_PORTS: 9"));
  const ProgramResult unknown = RunProgram({"diff", _old, _old, reports});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("code NO_PORTS is not defined"), std::string::npos) << unknown.err;
}

}  // namespace
}  // namespace olt_host_test
