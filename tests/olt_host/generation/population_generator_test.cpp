// Generated populations: the same for the same seed, with the faults that were asked for
// and no others, and recognised by the library wherever they say so.
#include "generation/population_generator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/hash.h"
#include "catalogue/report_reader.h"
#include "catalogue/yaml_report_writer.h"
#include "confirmation/confirmer.h"
#include "confirmation/population.h"
#include "recognition/loaded_catalogue.h"

namespace olt_host_test {
namespace {

using olt_host::FaultKind;
using olt_host::OnuReport;
using olt_host::PopulationGenerator;

std::string ShippedCatalogue() { return std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml"; }

PopulationGenerator Generator(const std::string& faults, std::uint64_t seed = 7,
                              bool asked_again = false) {
  const olt_host::FaultRates rates =
      faults.empty() ? olt_host::FaultRates() : olt_host::ReadFaultRates(faults);
  return {olt_host::ReadModels({}), rates, seed, asked_again};
}

std::string Written(const PopulationGenerator& generator, std::uint32_t onus) {
  std::ostringstream out;
  olt_host::YamlReportWriter writer(out);
  writer.Begin({"Population", "Made by a test.", {}});
  for (std::uint32_t onu = 0; onu < onus; ++onu) writer.Write(generator.Onu(onu));
  writer.End();
  return out.str();
}

bool HasFault(const OnuReport& report, FaultKind kind) {
  const auto& faults = report.truth->faults;
  return std::find(faults.begin(), faults.end(), olt_host::ToText(kind)) != faults.end();
}

bool SameReport(const OnuReport& a, const OnuReport& b) {
  return a.place == b.place && a.onu == b.onu && a.vendor_id == b.vendor_id &&
         a.behind_vendor_id == b.behind_vendor_id && a.reported_type == b.reported_type &&
         a.device_name == b.device_name && a.behind_device_name == b.behind_device_name &&
         a.abilities == b.abilities;
}

TEST(RandomStream, IsThatOfTheStandardOnEveryPlatform) {
  // NOLINTNEXTLINE(cert-msc32-c,cert-msc51-cpp): the same each time
  std::mt19937_64 engine;
  engine.discard(9999);
  EXPECT_EQ(engine(), 9981545732273789042ULL);
  olt_host::RandomStream stream(1, 2, 3);
  for (std::uint32_t bound : {1U, 2U, 3U, 1000U, 0xFFFFFFFFU}) {
    for (int i = 0; i < 1000; ++i) ASSERT_LT(stream.Below(bound), bound);
  }
}

TEST(RandomStream, DrawsEveryNumberAboutEquallyOften) {
  olt_host::RandomStream stream(5, 0, 0);
  std::vector<int> drawn(10, 0);
  for (int i = 0; i < 100000; ++i) ++drawn[stream.Below(10)];
  for (const int count : drawn) EXPECT_NEAR(count, 10000, 500);
}

TEST(PopulationGenerator, SameSeedSameBytes) {
  const LoadedCatalogue catalogue;
  const std::string text = Written(Generator("all=30"), 300);
  EXPECT_EQ(text, Written(Generator("all=30"), 300));
  EXPECT_NE(text, Written(Generator("all=30", 8), 300));
  EXPECT_EQ(olt_host::Sha256(text),
            "6574ffe2f114ddc4e258b4b9657a1363b9e4c5a7369c4fdd0694bdebebd91b14");
}

TEST(PopulationGenerator, AnOnuIsTheSameWhicheverOthersAreMade) {
  const LoadedCatalogue catalogue;
  const PopulationGenerator generator = Generator("all=50");
  const OnuReport late = generator.Onu(70000);
  EXPECT_EQ(late.place, 70000 / 256);
  EXPECT_EQ(late.onu, 70000 % 256);
  generator.Onu(3);
  EXPECT_TRUE(SameReport(late, generator.Onu(70000)));
  const OnuReport last = generator.Onu(olt_host::kMostOnus - 1);
  EXPECT_EQ(last.place, 65535);
  EXPECT_EQ(last.onu, 255);
}

TEST(PopulationGenerator, OneRateDoesNotChangeWhatOthersDo) {
  const LoadedCatalogue catalogue;
  const PopulationGenerator one = Generator("case=20");
  const PopulationGenerator two = Generator("case=20,unknown=20");
  int compared = 0;
  for (std::uint32_t onu = 0; onu < 500; ++onu) {
    const OnuReport report = two.Onu(onu);
    if (HasFault(report, FaultKind::kUnknown)) continue;
    ++compared;
    EXPECT_TRUE(SameReport(one.Onu(onu), report)) << onu;
  }
  EXPECT_GT(compared, 300);
}

TEST(PopulationGenerator, EveryFaultOccursAtItsRateAndOnlyThen) {
  const LoadedCatalogue catalogue;
  constexpr std::uint32_t kOnus = 20000;
  const PopulationGenerator generator =
      Generator("missing=1,ones=2,truncated=3,case=4,padding=5,garbage=6,unknown=0,changed=12.5");
  std::array<std::uint32_t, olt_host::kFaultKinds.size()> counts = {};
  for (std::uint32_t onu = 0; onu < kOnus; ++onu) {
    const OnuReport report = generator.Onu(onu);
    for (std::size_t i = 0; i < counts.size(); ++i) {
      counts[i] += HasFault(report, olt_host::kFaultKinds[i]) ? 1U : 0U;
    }
  }
  const double expected[] = {1, 2, 3, 4, 5, 6, 0, 12.5};
  for (std::size_t i = 0; i < counts.size(); ++i) {
    // Four times the deviation of such a draw.
    EXPECT_NEAR(counts[i] * 100.0 / kOnus, expected[i], expected[i] == 0 ? 0 : 0.95)
        << olt_host::ToText(olt_host::kFaultKinds[i]);
  }
  for (const FaultKind kind : olt_host::kFaultKinds) {
    const std::string name = olt_host::ToText(kind);
    const PopulationGenerator always = Generator(name + "=100");
    const PopulationGenerator never = Generator(name + "=0");
    for (std::uint32_t onu = 0; onu < 200; ++onu) {
      EXPECT_EQ(always.Onu(onu).truth->faults, std::vector<std::string>{name});
      EXPECT_TRUE(never.Onu(onu).truth->faults.empty());
    }
  }
}

// What `kind` made of each ONU, beside the ONU without it.
template <typename Expect>
void ForEachWith(FaultKind kind, const Expect& expect) {
  const LoadedCatalogue catalogue(ShippedCatalogue());
  const PopulationGenerator clean = Generator("");
  const PopulationGenerator faulty = Generator(std::string(olt_host::ToText(kind)) + "=100");
  int seen = 0;
  for (std::uint32_t onu = 0; onu < 1000; ++onu) {
    const OnuReport report = faulty.Onu(onu);
    if (!HasFault(report, kind)) {
      EXPECT_TRUE(SameReport(clean.Onu(onu), report)) << onu;
      continue;
    }
    ++seen;
    EXPECT_EQ(report.truth->faults.size(), 1U);
    expect(clean.Onu(onu), report);
  }
  EXPECT_GT(seen, 900);
}

std::size_t Told(const OnuReport& report) {
  return report.abilities.size() + (report.vendor_id ? 1U : 0U) + (report.device_name ? 1U : 0U);
}

TEST(PopulationGenerator, MissingIsOneThingLess) {
  ForEachWith(FaultKind::kMissing, [](const OnuReport& clean, const OnuReport& report) {
    EXPECT_EQ(Told(report) + 1, Told(clean));
    EXPECT_FALSE(report.expect);
  });
}

TEST(PopulationGenerator, OnesAreOneNumber) {
  ForEachWith(FaultKind::kOnes, [](const OnuReport& clean, const OnuReport& report) {
    int ones = 0;
    for (const auto& [code, number] : report.abilities) {
      if (number == 0xFFFFFFFF) ++ones;
      EXPECT_TRUE(number == 0xFFFFFFFF || number == clean.abilities.at(code));
    }
    EXPECT_EQ(ones, 1);
    EXPECT_FALSE(report.expect);
  });
}

TEST(PopulationGenerator, TruncatedIsTheBeginningOfOneText) {
  ForEachWith(FaultKind::kTruncated, [](const OnuReport& clean, const OnuReport& report) {
    const std::string whole = clean.vendor_id.value_or("") + "|" + clean.device_name.value_or("");
    const std::string cut = report.vendor_id.value_or("") + "|" + report.device_name.value_or("");
    EXPECT_LT(cut.size(), whole.size());
    EXPECT_EQ(clean.vendor_id.value_or("").find(report.vendor_id.value_or("")), 0U);
    EXPECT_EQ(clean.device_name.value_or("").find(report.device_name.value_or("")), 0U);
    EXPECT_EQ(clean.abilities, report.abilities);
    EXPECT_FALSE(report.expect);
  });
}

TEST(PopulationGenerator, CaseTurnsLettersAndNothingElse) {
  ForEachWith(FaultKind::kCase, [](const OnuReport& clean, const OnuReport& report) {
    EXPECT_NE(clean.vendor_id.value_or("") + clean.device_name.value_or(""),
              report.vendor_id.value_or("") + report.device_name.value_or(""));
    const auto lower = [](std::string text) {
      for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      return text;
    };
    EXPECT_EQ(lower(clean.vendor_id.value_or("")), lower(report.vendor_id.value_or("")));
    EXPECT_EQ(lower(clean.device_name.value_or("")), lower(report.device_name.value_or("")));
    EXPECT_FALSE(report.expect);
  });
}

TEST(PopulationGenerator, PaddingFillsOneTextWithBlanksOrZeros) {
  int blanks = 0;
  int zeros = 0;
  ForEachWith(FaultKind::kPadding, [&](const OnuReport& clean, const OnuReport& report) {
    const std::string behind = report.behind_vendor_id + report.behind_device_name;
    if (!behind.empty()) {
      ++zeros;
      EXPECT_EQ(behind, std::string(behind.size(), '\0'));
      EXPECT_EQ(clean.vendor_id, report.vendor_id);
      EXPECT_EQ(clean.device_name, report.device_name);
      EXPECT_EQ(clean.expect.has_value(), report.expect.has_value());
    } else {
      ++blanks;
      const std::string before = clean.vendor_id.value_or("") + clean.device_name.value_or("");
      const std::string after = report.vendor_id.value_or("") + report.device_name.value_or("");
      EXPECT_LT(before.size(), after.size());
      EXPECT_EQ(after.find_last_not_of(' '), before.find_last_not_of(' '));
      EXPECT_FALSE(report.expect);
    }
    EXPECT_LE(report.device_name.value_or("").size() + report.behind_device_name.size(), 20U);
  });
  EXPECT_GT(blanks, 300);
  EXPECT_GT(zeros, 300);
}

TEST(PopulationGenerator, GarbageStandsBehindTheTerminatorWithinTheBuffer) {
  ForEachWith(FaultKind::kGarbage, [](const OnuReport& clean, const OnuReport& report) {
    EXPECT_EQ(clean.vendor_id, report.vendor_id);
    EXPECT_EQ(clean.device_name, report.device_name);
    EXPECT_NE(report.behind_vendor_id.size() + report.behind_device_name.size(), 0U);
    if (!report.behind_device_name.empty()) {
      EXPECT_LE(report.device_name->size() + 1 + report.behind_device_name.size(), 20U);
      EXPECT_NE(report.behind_device_name[0], '\0');
    }
    if (!report.behind_vendor_id.empty()) {
      EXPECT_LE(report.vendor_id->size() + 1 + report.behind_vendor_id.size(), 4U);
    }
    EXPECT_EQ(clean.expect.has_value(), report.expect.has_value());
  });
}

TEST(PopulationGenerator, UnknownCodesAreNotOfTheCatalogue) {
  ForEachWith(FaultKind::kUnknown, [](const OnuReport& clean, const OnuReport& report) {
    EXPECT_GT(report.abilities.size(), clean.abilities.size());
    for (const auto& [code, number] : report.abilities) {
      const auto told = clean.abilities.find(code);
      if (told != clean.abilities.end()) {
        EXPECT_EQ(told->second, number);
      } else {
        EXPECT_EQ(OnuAbilityCodeInfo::GetInstance()->IsExist(code), 0U);
      }
    }
    EXPECT_EQ(clean.expect.has_value(), report.expect.has_value());
  });
}

TEST(PopulationGenerator, ChangedOnesTellSomethingElseWhenAskedAgainAndOnlyThey) {
  const LoadedCatalogue catalogue;
  const PopulationGenerator first = Generator("changed=40,case=20,garbage=20");
  const PopulationGenerator second = Generator("changed=40,case=20,garbage=20", 7, true);
  int changed = 0;
  for (std::uint32_t onu = 0; onu < 1000; ++onu) {
    const OnuReport before = first.Onu(onu);
    const OnuReport after = second.Onu(onu);
    EXPECT_EQ(before.truth->faults, after.truth->faults);
    EXPECT_EQ(before.truth->real_type, after.truth->real_type);
    const bool is_changed = HasFault(before, FaultKind::kChanged);
    changed += is_changed ? 1 : 0;
    EXPECT_EQ(SameReport(before, after), !is_changed) << onu;
    if (!is_changed) continue;
    EXPECT_NE(before.reported_type, after.reported_type);
    EXPECT_FALSE(after.expect);
  }
  EXPECT_NEAR(changed, 400, 80);
}

// The reports as a population, and how many of them the library confirmed as the truth is.
std::size_t ConfirmedTruths(const PopulationGenerator& generator, std::uint32_t onus,
                            std::size_t& expected) {
  olt_host::Reports reports;
  for (std::uint32_t onu = 0; onu < onus; ++onu) reports.onus.push_back(generator.Onu(onu));
  const olt_host::Population population(std::move(reports));
  std::size_t truths = 0;
  expected = 0;
  for (const OnuReport& report : population.Onus()) {
    const olt_host::ConfirmationResult result = olt_host::ConfirmOnu(population, report);
    EXPECT_TRUE(result.Ok()) << report.place << "/" << static_cast<unsigned int>(report.onu) << ": "
                             << olt_host::DescribeFailure(result);
    expected += report.expect ? 1U : 0U;
    truths += result.real_type == report.truth->real_type ? 1U : 0U;
  }
  return truths;
}

TEST(PopulationGenerator, WithoutFaultsTheLibraryConfirmsEveryTypeThatItCanTell) {
  const LoadedCatalogue catalogue(ShippedCatalogue());
  const PopulationGenerator generator = Generator("");
  for (const olt_host::Model& model : generator.models()) {
    EXPECT_TRUE(model.told_by_type) << model.key;
    EXPECT_TRUE(model.told_by_abilities) << model.key;
  }
  std::size_t expected = 0;
  EXPECT_EQ(ConfirmedTruths(generator, 1000, expected), 1000U);
  EXPECT_EQ(expected, 1000U);
}

TEST(PopulationGenerator, WithFaultsTheLibraryConfirmsWhateverIsExpected) {
  const LoadedCatalogue catalogue(ShippedCatalogue());
  std::size_t expected = 0;
  const std::size_t truths = ConfirmedTruths(Generator("all=10"), 1000, expected);
  EXPECT_GT(expected, 400U);
  EXPECT_LT(expected, 800U);
  EXPECT_GE(truths, expected);
  EXPECT_LT(truths, 1000U);
}

TEST(PopulationGenerator, TypesThatTheLibraryCannotTellStateNoExpectation) {
  const TemporaryDirectory directory;
  std::string text = ReadFile(Fixture("small_catalogue.yaml"));
  // Key 1004 looks like 1001 and is tried before it; 1005 has no pattern at all.
  text = With(text, "match_profiles:",
              "  - {key: 1004, abilities: {REAL_TYPE: 1004, TYPE_NAME: TWIN, GE_PORTS: 1}}\n"
              "  - {key: 1005, abilities: {REAL_TYPE: 1005, TYPE_NAME: NO-PATTERN}}\n\n"
              "match_profiles:");
  text +=
      "  - {key: 1004, abilities: {REPORT_TYPE: 1004, REAL_TYPE: 1004, GE_PORTS: 1,\n"
      "     FE_PORTS: 0, VENDOR_ID: ACME}}\n";
  const LoadedCatalogue catalogue(directory.Write("c.yaml", text));
  const PopulationGenerator generator = Generator("");
  std::string told;
  for (const olt_host::Model& model : generator.models()) {
    told += std::to_string(model.key) + (model.told_by_type ? " type" : "") +
            (model.told_by_abilities ? " abilities\n" : "\n");
  }
  EXPECT_EQ(told,
            "1005\n1004 type abilities\n1003 type abilities\n1002 type abilities\n"
            "1001 type\n");
  std::size_t expected = 0;
  ConfirmedTruths(generator, 1000, expected);
  EXPECT_NEAR(static_cast<double>(expected), 700, 60);  // 7 of 10 kinds
}

TEST(PopulationGenerator, OnlyOfTheModelsThatAreCalled) {
  const LoadedCatalogue catalogue;
  const PopulationGenerator generator({olt_host::ReadModels({"1002", "SFU-4FE"})}, {}, 1, false);
  ASSERT_EQ(generator.models().size(), 2U);
  int first = 0;
  for (std::uint32_t onu = 0; onu < 1000; ++onu) {
    const std::uint16_t type = generator.Onu(onu).truth->real_type;
    EXPECT_TRUE(type == 1002 || type == 1003) << type;
    first += type == 1002 ? 1 : 0;
  }
  EXPECT_NEAR(first, 500, 80);
  EXPECT_THROW(olt_host::ReadModels({"1002", "7777"}), olt_host::TypeNameError);
}

TEST(YamlReportWriter, TheReaderReadsTheSame) {
  for (const std::string& file : {Fixture("small_catalogue.yaml"), ShippedCatalogue()}) {
    const LoadedCatalogue catalogue(file);
    const TemporaryDirectory directory;
    const PopulationGenerator generator = Generator("all=30");
    constexpr std::uint32_t kOnus = 600;
    const olt_host::Reports reports = olt_host::ReadReports(
        directory.Write("r.yaml", Written(generator, kOnus)), catalogue.catalogue());
    EXPECT_EQ(reports.name, "Population");
    ASSERT_EQ(reports.onus.size(), kOnus);
    for (std::uint32_t onu = 0; onu < kOnus; ++onu) {
      const OnuReport made = generator.Onu(onu);
      const OnuReport& read = reports.onus[onu];
      EXPECT_TRUE(SameReport(made, read)) << onu;
      EXPECT_EQ(made.truth->real_type, read.truth->real_type);
      EXPECT_EQ(made.truth->faults, read.truth->faults);
      EXPECT_EQ(made.expect.has_value(), read.expect.has_value());
      if (made.expect) {
        EXPECT_EQ(made.expect->real_type, read.expect->real_type);
      }
    }
  }
}

TEST(YamlReportWriter, WritesAnEmptyPopulationToo) {
  const LoadedCatalogue catalogue;
  const TemporaryDirectory directory;
  const std::string text = Written(Generator(""), 0);
  EXPECT_EQ(text, "# Made by a test.\nreports: {name: \"Population\"}\nonus: []\n");
  EXPECT_TRUE(
      olt_host::ReadReports(directory.Write("r.yaml", text), catalogue.catalogue()).onus.empty());
}

TEST(YamlReportWriter, WritesOneOnuALine) {
  const LoadedCatalogue catalogue;
  OnuReport report;
  report.place = 3;
  report.onu = 200;
  report.vendor_id = "A\"\\";
  report.device_name = "N";
  report.behind_device_name = std::string("\0\x01\x7F", 3) + "x";
  report.abilities = {{47, 4}, {60000, 9}};
  report.truth = olt_host::Truth{1001, {"garbage", "unknown"}};
  std::ostringstream out;
  olt_host::YamlReportWriter writer(out);
  writer.Write(report);
  EXPECT_EQ(out.str(),
            "\n  - {place: 3, onu: 200, vendor_id: \"A\\\"\\\\\", reported_type: unknown, "
            "device_name: \"N\\0\\0\\x01\\x7Fx\", abilities: {GE_PORTS: 4, 60000: 9}, "
            "truth: {real_type: 1001, faults: [garbage, unknown]}}\n");
}

}  // namespace
}  // namespace olt_host_test
