// Every kind of finding, with a catalogue that has it and one that has not.
#include "recognition/catalogue_lint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "catalogue/report_reader.h"
#include "loaded_catalogue.h"
#include "match_table.h"
#include "recognition/lint_json.h"
#include "recognition/lint_text.h"
#include "state/library_state.h"
#include "text/columns.h"

namespace olt_host_test {
namespace {

using olt_host::Finding;
using olt_host::FindingKind;
using olt_host::LintResult;
using olt_host::Severity;

// Nothing is to be said of it.
const char* const kSound = R"(catalogue: {name: Sound, version: "1"}
attributes:
  - {id: 1, name: CONFIRM_TYPE}
  - {id: 3, name: LAMP}
  - {id: 4, name: PORT_TYPE}
  - {id: 5, name: VALUE_TYPE}
codes:
  - {code: 24, name: FE_PORTS, attributes: {CONFIRM_TYPE: 3, PORT_TYPE: 3}}
  - {code: 47, name: GE_PORTS, attributes: {CONFIRM_TYPE: 3, PORT_TYPE: 3}}
  - {code: 1001, name: ALL_LAN}
  - {code: 1002, name: ONU_CAPA, attributes: {CONFIRM_TYPE: 3}}
  - {code: 1012, name: LAMPS, attributes: {LAMP: 1}}
  - {code: 1081, name: REAL_TYPE}
  - {code: 1082, name: VENDOR_ID, attributes: {CONFIRM_TYPE: 1, VALUE_TYPE: string}}
  - {code: 1083, name: TYPE_NAME, attributes: {CONFIRM_TYPE: 1, VALUE_TYPE: string}}
  - {code: 1085, name: KEY}
  - {code: 65533, name: DATA_UNI}
real_profiles:
  - {key: 1, abilities: {REAL_TYPE: 1, TYPE_NAME: "ONE", GE_PORTS: 1, LAMPS: 3}}
  - {key: 2, abilities: {REAL_TYPE: 2, TYPE_NAME: "TWO", GE_PORTS: 4, FE_PORTS: 1}}
match_profiles:
  - {key: 1, abilities: {REAL_TYPE: 1, GE_PORTS: 1, ONU_CAPA: 0, VENDOR_ID: ACME}}
  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 4, FE_PORTS: 1}}
)";

// Lines of it, to be changed.
const char* const kOne =
    "  - {key: 1, abilities: {REAL_TYPE: 1, GE_PORTS: 1, ONU_CAPA: 0, VENDOR_ID: ACME}}\n";
const char* const kTwo = "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 4, FE_PORTS: 1}}\n";
const char* const kRealTwo =
    "  - {key: 2, abilities: {REAL_TYPE: 2, TYPE_NAME: \"TWO\", GE_PORTS: 4, FE_PORTS: 1}}\n";
const char* const kLamps = "  - {code: 1012, name: LAMPS, attributes: {LAMP: 1}}\n";

class CatalogueLint : public testing::Test {
 protected:
  // Lints the sound catalogue with one place changed.
  LintResult Lint(const std::string& from = "", const std::string& to = "") {
    _loaded.reset();
    const std::string text = from.empty() ? kSound : With(kSound, from, to);
    _loaded = std::make_unique<LoadedCatalogue>(_directory.Write("c.yaml", text));
    return LintAgain();
  }
  LintResult LintAgain() const { return olt_host::LintCatalogue(_loaded->catalogue(), nullptr); }

  // The only finding, which is to be of this kind.
  static Finding Only(const LintResult& result, FindingKind kind) {
    if (result.findings.size() == 1 && result.findings.front().kind == kind) {
      return result.findings.front();
    }
    ADD_FAILURE() << olt_host::LintText(result, true, "");
    return Finding();
  }
  static std::vector<std::string> NamesOf(const LintResult& result) {
    std::vector<std::string> names;
    for (const Finding& finding : result.findings) {
      names.push_back(std::string(olt_host::ToText(finding.severity)) + " " +
                      olt_host::NameOf(finding.kind) + " " + std::to_string(finding.position.line));
    }
    return names;
  }

  TemporaryDirectory _directory;
  std::unique_ptr<LoadedCatalogue> _loaded;
};

using Names = std::vector<std::string>;

TEST_F(CatalogueLint, SaysNothingOfASoundCatalogue) {
  const LintResult result = Lint();
  EXPECT_EQ(NamesOf(result), Names());
  EXPECT_EQ(result.Gravest(), Severity::kNote);
  ASSERT_EQ(result.proofs.size(), 2U);
  EXPECT_EQ(result.proofs[0].by_abilities, true);
  EXPECT_TRUE(result.proofs[0].witness.has_value());
  EXPECT_EQ(olt_host::CountGraveFindings(_loaded->catalogue()), "");
}

TEST_F(CatalogueLint, UnreachablePattern) {
  const Finding finding =
      Only(Lint(kTwo, "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 1, VENDOR_ID: any}}\n"),
           FindingKind::kUnreachablePattern);
  EXPECT_EQ(finding.severity, Severity::kWarning);
  EXPECT_EQ(finding.position.line, 22U);
  EXPECT_EQ(finding.subject, "match profile 1 (ONE)");
  EXPECT_EQ(finding.reason,
            "Every report that fits it fits the newer match profile 2 (TWO) (" +
                _directory.Path("c.yaml") +
                ":23), too, which is tried first; only ONUs that report its key as their type "
                "reach it.");
  ASSERT_EQ(finding.related.size(), 1U);
  EXPECT_EQ(finding.related[0].key, 2U);
  EXPECT_EQ(olt_host::CountGraveFindings(_loaded->catalogue()), "1 warning");
}

TEST_F(CatalogueLint, DeadPattern) {
  const LintResult result =
      Lint(kTwo,
           "  - {key: 1, abilities: {REAL_TYPE: 1, GE_PORTS: 1}}\n"
           "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 4, FE_PORTS: 1}}\n");
  EXPECT_EQ(NamesOf(result), (Names{"error dead-pattern 22", "note same-key 22"}));
  EXPECT_EQ(result.findings[0].reason.substr(result.findings[0].reason.find(';')),
            "; its key leads to a newer match profile as well, so nothing reaches it.");
  EXPECT_FALSE(result.proofs[0].by_type);
  EXPECT_EQ(olt_host::CountGraveFindings(_loaded->catalogue()), "1 error");
}

TEST_F(CatalogueLint, EqualPattern) {
  const Finding finding = Only(Lint(kOne,
                                    "  - {key: 1, abilities: {REAL_TYPE: 1, GE_PORTS: 4, FE_PORTS: "
                                    "1, ONU_CAPA: any, VENDOR_ID: any}}\n"),
                               FindingKind::kEqualPattern);
  EXPECT_EQ(finding.severity, Severity::kWarning);
  EXPECT_EQ(finding.reason.substr(0, finding.reason.find(" (")),
            "It asks for the same as the newer match profile 2");
}

TEST_F(CatalogueLint, EqualPatternsThatShareAKeyAreWorse) {
  const LintResult result = Lint(kTwo, std::string(kTwo) +
                                           "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 4, "
                                           "FE_PORTS: 1, ONU_CAPA: any}}\n");
  EXPECT_EQ(NamesOf(result), (Names{"error equal-pattern 23", "note same-key 23"}));
}

TEST_F(CatalogueLint, TakesEverything) {
  const LintResult result = Lint(kTwo, "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: any}}\n");
  EXPECT_EQ(NamesOf(result),
            (Names{"error takes-everything 23", "warning unreachable-pattern 22"}));
  EXPECT_EQ(olt_host::CountGraveFindings(_loaded->catalogue()), "1 error and 1 warning");
}

TEST_F(CatalogueLint, LastResort) {
  const LintResult result =
      Lint(kOne, "  - {key: 1, abilities: {REAL_TYPE: 1, ONU_CAPA: any, VENDOR_ID: any}}\n");
  EXPECT_EQ(NamesOf(result), (Names{"note stands-behind 22", "note last-resort 22"}));
}

TEST_F(CatalogueLint, ImpossibleValue) {
  const Finding finding = Only(
      Lint(
          kOne,
          "  - {key: 1, abilities: {REAL_TYPE: 1, GE_PORTS: 1, VENDOR_ID: ACME, ONU_CAPA: 300}}\n"),
      FindingKind::kImpossibleValue);
  EXPECT_EQ(finding.reason,
            "It asks for ONU_CAPA 300, but a report holds there 0 to 254: an ONU that tells it "
            "never fits.");
}

TEST_F(CatalogueLint, NeverTold) {
  const Finding finding = Only(Lint("{code: 24, name: FE_PORTS, attributes: {CONFIRM_TYPE: 3",
                                    "{code: 24, name: FE_PORTS, attributes: {CONFIRM_TYPE: 1"),
                               FindingKind::kNeverTold);
  EXPECT_EQ(finding.subject, "match profile 2 (TWO)");
  EXPECT_EQ(finding.reason, "It asks for FE_PORTS, which no report holds, so this never decides.");
}

TEST_F(CatalogueLint, NoRealProfile) {
  const LintResult result = Lint(kRealTwo, "");
  const Finding finding = Only(result, FindingKind::kNoRealProfile);
  EXPECT_EQ(finding.subject, "match profile 2");
  EXPECT_EQ(finding.remedy, "Add a real profile with key 2.");
}

TEST_F(CatalogueLint, NoMatchProfile) {
  EXPECT_EQ(Only(Lint(kTwo, ""), FindingKind::kNoMatchProfile).position.line, 20U);
}

TEST_F(CatalogueLint, CommonTypesNeedNoMatchProfile) {
  EXPECT_EQ(NamesOf(Lint(kRealTwo,
                         std::string(kRealTwo) + "  - {key: 857, abilities: {REAL_TYPE: 857}}\n")),
            Names());
}

TEST_F(CatalogueLint, SameRealType) {
  const Finding finding = Only(
      Lint(kRealTwo, "  - {key: 2, abilities: {REAL_TYPE: 1, TYPE_NAME: \"TWO\", FE_PORTS: 1}}\n"),
      FindingKind::kSameRealType);
  EXPECT_EQ(finding.severity, Severity::kWarning);
  EXPECT_EQ(finding.position.line, 19U);
}

TEST_F(CatalogueLint, LongText) {
  Lint();
  OnuAbilityTableManager::GetInstance()->Add(ONU_ABILITY_PROFILE_TYPE_MATCH,
                                             ONU_ABILITY_PROFILE_SOURCE_DEFAULT, 1, 1082,
                                             std::string("ACMEX"));
  const LintResult result = LintAgain();
  EXPECT_EQ(NamesOf(result), (Names{"warning impossible-value 22", "warning long-text 22"}));
  EXPECT_EQ(result.findings[1].reason,
            "VENDOR_ID \"ACMEX\" has 5 bytes, but the commands and the buffers of the hooks take "
            "4.");
}

TEST_F(CatalogueLint, PortWithoutType) {
  const std::string port = "  - {code: 24, name: FE_PORTS, attributes: {CONFIRM_TYPE: 3}}\n";
  const Finding finding = Only(
      Lint("  - {code: 24, name: FE_PORTS, attributes: {CONFIRM_TYPE: 3, PORT_TYPE: 3}}\n", port),
      FindingKind::kPortWithoutType);
  EXPECT_EQ(finding.subject, "code 24 (FE_PORTS)");
  EXPECT_EQ(finding.position.line, 8U);
}

TEST_F(CatalogueLint, LampWithoutAttribute) {
  Only(Lint(kLamps, "  - {code: 1012, name: LAMPS}\n"), FindingKind::kLampWithoutAttribute);
}

// Only two ports of which one is near 2 to the power of 32 add up to 1 here; the library
// counts round and round, the search does not go there.
TEST_F(CatalogueLint, Undecided) {
  std::string newer;
  for (const char* const ports : {"FE_PORTS: 0", "FE_PORTS: 1", "GE_PORTS: 0", "GE_PORTS: 1"}) {
    newer += std::string("  - {key: 2, abilities: {REAL_TYPE: 2, ") + ports + "}}\n";
  }
  const std::string text =
      With(With(With(kSound, "name: ALL_LAN}", "name: ALL_LAN, attributes: {CONFIRM_TYPE: 1}}"),
                kOne, "  - {key: 1, abilities: {REAL_TYPE: 1, ALL_LAN: 1}}\n"),
           kTwo, newer);
  _loaded = std::make_unique<LoadedCatalogue>(_directory.Write("c.yaml", text));
  const LintResult result = LintAgain();
  EXPECT_EQ(result.proofs.front().by_abilities, std::nullopt);
  const std::vector<std::string> names = NamesOf(result);
  EXPECT_EQ(std::count(names.begin(), names.end(), "note undecided 22"), 1);
}

TEST_F(CatalogueLint, UndefinedTotal) {
  const LintResult result = Lint("  - {code: 65533, name: DATA_UNI}\n", "");
  const Finding finding = Only(result, FindingKind::kUndefinedTotal);
  EXPECT_EQ(finding.subject, "code 65533");
  EXPECT_EQ(finding.severity, Severity::kWarning);
}

TEST_F(CatalogueLint, Overlap) {
  const Finding finding =
      Only(Lint(kTwo, "  - {key: 2, abilities: {REAL_TYPE: 2, FE_PORTS: 1, ONU_CAPA: 0}}\n"),
           FindingKind::kOverlap);
  EXPECT_EQ(finding.position.line, 22U);
  ASSERT_EQ(finding.witnesses.size(), 1U);
  EXPECT_EQ(finding.witnesses[0].other.key, 2U);
  EXPECT_EQ(finding.witnesses[0].winner.key, 2U);
  const olt_host::OnuReport& report = finding.witnesses[0].report;
  EXPECT_EQ(report.vendor_id, "ACME");
  EXPECT_EQ(report.private_capability, std::uint8_t{0});
  EXPECT_EQ(report.abilities, (std::map<std::uint16_t, std::uint32_t>{{24, 1}, {47, 1}}));
}

TEST_F(CatalogueLint, StandsBehind) {
  Only(Lint(kTwo,
            "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 1, ONU_CAPA: 0, VENDOR_ID: ACME, "
            "FE_PORTS: 1}}\n"),
       FindingKind::kStandsBehind);
}

TEST_F(CatalogueLint, UnusedCode) {
  const Finding finding =
      Only(Lint(kLamps, std::string(kLamps) + "  - {code: 1013, name: NOBODYS}\n"),
           FindingKind::kUnusedCode);
  EXPECT_EQ(finding.position.line, 13U);
}

TEST_F(CatalogueLint, DroppedValue) {
  Only(Lint(kRealTwo,
            "  - {key: 2, abilities: {REAL_TYPE: 2, TYPE_NAME: \"TWO\", GE_PORTS: 4, FE_PORTS: "
            "0}}\n"),
       FindingKind::kDroppedValue);
}

TEST_F(CatalogueLint, NotExercised) {
  Lint();
  const std::string reports = _directory.Write(
      "r.yaml", "onus:\n  - {place: 1, onu: 1, reported_type: 7, abilities: {GE_PORTS: 4}}\n");
  const olt_host::Population population(olt_host::ReadReports(reports, _loaded->catalogue()));
  const LintResult result = olt_host::LintCatalogue(_loaded->catalogue(), &population);
  EXPECT_EQ(Only(result, FindingKind::kNotExercised).position.line, 22U);
  EXPECT_EQ(result.population, 1U);
}

TEST_F(CatalogueLint, TellsAnOperatorsProfileFromTheCatalogues) {
  Lint();
  OnuAbilityProfile profile;
  profile.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  profile.Add(1U);
  profile.Add(47, 1U);
  OnuAbilityTableManager::GetInstance()->Add(profile);
  const LintResult result = LintAgain();
  EXPECT_EQ(NamesOf(result), (Names{"error dead-pattern 22", "note same-key 22"}));
  ASSERT_EQ(result.findings[0].related.size(), 1U);
  EXPECT_EQ(olt_host::PlaceText(result.findings[0].related[0]), "an operator's");
}

TEST_F(CatalogueLint, LeavesTheLibraryAsItIs) {
  Lint(kTwo, "  - {key: 2, abilities: {REAL_TYPE: 2, FE_PORTS: 1, ONU_CAPA: 0}}\n");
  const olt_host::LibraryState before = olt_host::CaptureLibrary();
  LintAgain();
  EXPECT_TRUE(olt_host::SameState(before, olt_host::CaptureLibrary()));
}

TEST_F(CatalogueLint, JsonHasEveryFindingAndEveryProof) {
  const nlohmann::ordered_json json =
      olt_host::LintJson(Lint(kTwo, "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: 1}}\n"));
  EXPECT_EQ(json["summary"]["warnings"], 1);
  EXPECT_EQ(json["summary"]["reports"], nullptr);
  ASSERT_EQ(json["findings"].size(), 1U);
  EXPECT_EQ(json["findings"][0]["name"], "unreachable-pattern");
  EXPECT_EQ(json["findings"][0]["severity"], "warning");
  EXPECT_EQ(json["findings"][0]["file"], _directory.Path("c.yaml"));
  EXPECT_EQ(json["findings"][0]["line"], 22);
  EXPECT_EQ(json["match_profiles"][0]["reached_by_abilities"], false);
  EXPECT_EQ(json["match_profiles"][0]["reached_by_type"], true);
  EXPECT_EQ(json["match_profiles"][0]["takers"][0]["key"], 2);
  EXPECT_EQ(json["match_profiles"][1]["witness"]["abilities"]["47"], 1);
}

TEST_F(CatalogueLint, TextFitsAScreen) {
  const LintResult result = Lint(kTwo, "  - {key: 2, abilities: {REAL_TYPE: 2, GE_PORTS: any}}\n");
  for (const bool all : {false, true}) {
    std::istringstream lines(olt_host::LintText(result, all, "--all lists everything."));
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LT(line.size(), 80U) << line;
      EXPECT_EQ(line.find_last_not_of(' ') + 1, line.size()) << line;
    }
  }
}

// The wildest of catalogues that still load: each witness and each taker is tried on the
// library.
TEST(CatalogueLintAtLarge, HoldsForTwoThousandProfiles) {
  const std::vector<std::uint16_t> numbers = {24, 32, 38, 47, 48, 49, 1002, 1010};
  std::map<std::uint16_t, MatchTable::Code> codes = {{1082, {1, true, 0}}, {1083, {1, true, 0}}};
  for (const std::uint16_t code : numbers) codes[code] = {};
  MatchTable table(codes);
  // NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp): the same each time
  std::mt19937 random(7);
  std::vector<Cells> patterns(2000);
  for (Cells& pattern : patterns) {
    for (const std::uint16_t code : numbers) {
      if (random() % 2 == 0) pattern[code] = Number(random() % 4);
    }
    if (random() % 2 == 0) pattern[1082] = Text("V" + std::to_string(random() % 20));
    if (random() % 3 == 0) pattern[1083] = Text("MODEL-" + std::to_string(random() % 500));
  }
  const std::vector<OnuAbilityProfile>& profiles = table.Fill(patterns);
  const LintResult result = olt_host::LintCatalogue(table.catalogue(), nullptr);
  ASSERT_EQ(result.proofs.size(), profiles.size());
  std::size_t unreachable = 0;
  for (std::size_t i = 0; i < profiles.size(); ++i) {
    const olt_host::PatternProof& proof = result.proofs[i];
    ASSERT_TRUE(proof.by_abilities.has_value());
    if (*proof.by_abilities) {
      ASSERT_EQ(MatchTable::Winner(MatchTable::Gather(*proof.witness)), i);
    } else {
      ++unreachable;
      ASSERT_FALSE(proof.takers.empty());
    }
  }
  EXPECT_GT(unreachable, 100U);
  std::size_t witnesses = 0;
  for (const Finding& finding : result.findings) {
    for (const olt_host::LintWitness& witness : finding.witnesses) {
      const ConfirmOnuType gathered = MatchTable::Gather(witness.report);
      ASSERT_EQ(MatchTable::Winner(gathered), witness.winner.id - 1U);
      ASSERT_TRUE(table.Fits(witness.other.id - 1U, gathered));
      ++witnesses;
    }
  }
  EXPECT_GT(witnesses, 1000U);
}

TEST(CatalogueLintAtLarge, ShippedDataIsSound) {
  const LoadedCatalogue loaded(std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml");
  const std::string reports = std::string(OLT_HOST_SHIPPED_DATA) + "/reports.yaml";
  const olt_host::Population population(olt_host::ReadReports(reports, loaded.catalogue()));
  const LintResult result = olt_host::LintCatalogue(loaded.catalogue(), &population);
  EXPECT_EQ(result.Gravest(), Severity::kNote) << olt_host::LintText(result, false, "");
  for (const auto& proof : result.proofs) {
    ASSERT_EQ(proof.by_abilities, true);
    const ConfirmOnuType gathered = MatchTable::Gather(*proof.witness);
    ConfirmOnuType confirmed = gathered;
    ASSERT_NE(confirmed.IsValidOnuType(), ONU_ABILITY_RET_OK);
    confirmed.ConfirmOnuTypeByAbilities();
    EXPECT_EQ(confirmed._id, proof.profile.id);
  }
}

TEST(LintText, BreaksLongNamesBetweenCharacters) {
  LintResult result;
  Finding finding;
  finding.subject = "real profile 1 (";
  for (int i = 0; i < 100; ++i) finding.subject += "\xc3\xb6";
  result.findings = {finding};
  std::istringstream lines(olt_host::LintText(result, true, ""));
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(olt_host::DisplayWidth(line), 79U) << line;
    EXPECT_TRUE(line.empty() || olt_host::StartsCharacter(line[line.find_first_not_of(' ')]))
        << line;
  }
}

}  // namespace
}  // namespace olt_host_test
