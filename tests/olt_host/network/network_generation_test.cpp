// Generated networks: every ONU is that of the population, OLTs have as many as they
// should, the lines are read back, and the bytes are the same however they came about.
#include "network/network_generation.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <tuple>

#include "catalogue/json_report_reader.h"
#include "catalogue/json_report_writer.h"
#include "catalogue/report_reader.h"
#include "catalogue/yaml_report_writer.h"
#include "confirmation/confirmer.h"
#include "network/checkpoint.h"
#include "network/resumable_output.h"
#include "recognition/loaded_catalogue.h"
#include "recognition/one_report.h"

namespace olt_host_test {
namespace {

using olt_host::GeneratedNetwork;
using olt_host::NetworkReport;
using olt_host::OnuReport;
using olt_host::PopulationGenerator;

auto Told(const OnuReport& report) {
  return std::tie(report.serial_number, report.vendor_id, report.behind_vendor_id,
                  report.reported_type, report.read_abilities, report.private_capability,
                  report.device_name, report.behind_device_name, report.abilities);
}

bool SameTruth(const OnuReport& a, const OnuReport& b) {
  if (a.truth->real_type != b.truth->real_type || a.truth->faults != b.truth->faults) return false;
  if (a.expect.has_value() != b.expect.has_value()) return false;
  return !a.expect ||
         (a.expect->real_type == b.expect->real_type && a.expect->how == b.expect->how);
}

class GeneratedNetworkTest : public testing::Test {
 protected:
  static std::string Lines(const GeneratedNetwork& network) {
    const olt_host::JsonReportWriter writer;
    std::string lines;
    for (std::uint64_t onu = 0; onu < network.onus(); ++onu) lines += writer.Line(network.Onu(onu));
    return lines;
  }

  std::string Output() const { return _directory.Path("n.jsonl"); }
  std::string CheckpointPath() const { return _directory.Path("n.checkpoint"); }

  olt_host::NetworkGeneration Run(unsigned int workers) const {
    olt_host::NetworkGeneration run;
    run.output = Output();
    run.workers = workers;
    run.checkpoint = CheckpointPath();
    run.depends_on = {{"job", "test"}};
    return run;
  }

  void Generate(const GeneratedNetwork& network, unsigned int workers) const {
    olt_host::GenerateNetwork(network, Run(workers), [](std::uint64_t) {});
  }

  LoadedCatalogue _catalogue{std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml"};
  PopulationGenerator _population{olt_host::ReadModels({}), olt_host::ReadFaultRates("all=20"), 7,
                                  false};
  TemporaryDirectory _directory;
};

TEST_F(GeneratedNetworkTest, OltsHaveAsManyOnusOneAfterTheOther) {
  for (const auto& [onus, olts] : std::initializer_list<std::pair<std::uint64_t, std::uint32_t>>{
           {1000, 3}, {1001, 3}, {7, 9}, {600, 1}, {100, 100}}) {
    const GeneratedNetwork network(_population, onus, olts, 7);
    std::vector<std::pair<std::string, std::uint32_t>> counts;
    for (std::uint64_t onu = 0; onu < onus; ++onu) {
      const NetworkReport report = network.Onu(onu);
      if (counts.empty() || counts.back().first != report.olt) counts.push_back({report.olt, 0});
      EXPECT_EQ(report.report.place * 256U + report.report.onu, counts.back().second++);
    }
    EXPECT_EQ(counts.size(), std::min<std::uint64_t>(onus, olts));
    EXPECT_EQ(counts.front().first, "olt-00001");
    for (std::size_t i = 1; i < counts.size(); ++i) {
      EXPECT_LT(counts[i - 1].first, counts[i].first);
      EXPECT_GE(counts[i - 1].second, counts[i].second);
      EXPECT_LE(counts.front().second - counts[i].second, 1U);
    }
  }
}

TEST_F(GeneratedNetworkTest, AnOnuIsThatOfThePopulationWhateverTheOlts) {
  const GeneratedNetwork many(_population, 5000, 321, 7);
  const GeneratedNetwork one(_population, 6000, 1, 7);
  for (std::uint64_t onu = 0; onu < 5000; ++onu) {
    const OnuReport expected = _population.Onu(onu);
    EXPECT_EQ(Told(many.Onu(onu).report), Told(expected));
    EXPECT_TRUE(SameTruth(many.Onu(onu).report, expected));
    EXPECT_EQ(Told(one.Onu(onu).report), Told(expected));
  }
}

TEST_F(GeneratedNetworkTest, HasMoreOnusThanAnOltWithPlacesForAll) {
  const std::uint64_t full = std::uint64_t{olt_host::kMostOlts} * olt_host::kMostOnus;
  const GeneratedNetwork network(_population, full, olt_host::kMostOlts, 7);
  const NetworkReport last = network.Onu(full - 1);
  EXPECT_EQ(last.olt, "olt-65535");
  EXPECT_EQ(last.report.place, 65535);
  EXPECT_EQ(last.report.onu, 255);
  const NetworkReport middle = network.Onu(olt_host::kMostOnus);
  EXPECT_EQ(middle.olt, "olt-00002");
  EXPECT_EQ(middle.report.place, 0);
  EXPECT_EQ(middle.report.onu, 0);
  EXPECT_NE(Told(network.Onu(5).report), Told(network.Onu(5 + olt_host::kMostOnus).report));
}

TEST_F(GeneratedNetworkTest, SettingsAreOfTheOltAndOfTheSeed) {
  const GeneratedNetwork network(_population, 4000, 200, 7);
  const GeneratedNetwork larger(_population, 8000, 200, 7);
  const GeneratedNetwork other(_population, 4000, 200, 8);
  std::set<std::pair<std::uint16_t, std::uint16_t>> seen;
  int set = 0;
  int different = 0;
  for (std::uint64_t olt = 0; olt < 200; ++olt) {
    const olt_host::IdentifySettings settings = network.Onu(olt * 20).settings;
    const auto modes = std::pair(settings.sfu_mode, settings.hgu_mode);
    seen.insert(modes);
    set += modes == std::pair<std::uint16_t, std::uint16_t>(0, 0) ? 0 : 1;
    for (const olt_host::IdentifySettings& same :
         {network.Onu(olt * 20 + 19).settings, larger.Onu(olt * 40 + 7).settings}) {
      EXPECT_EQ(modes, std::pair(same.sfu_mode, same.hgu_mode));
    }
    const olt_host::IdentifySettings others = other.Onu(olt * 20).settings;
    different += modes == std::pair(others.sfu_mode, others.hgu_mode) ? 0 : 1;
  }
  EXPECT_NEAR(set, 100, 30);
  EXPECT_GT(different, 50);
  EXPECT_EQ(seen.size(), 9U);  // none; each of four HGU modes with both SFU modes
}

TEST_F(GeneratedNetworkTest, SomeTypesAreTranslatedAndExpectationsHold) {
  const GeneratedNetwork network(_population, 2000, 50, 7);
  int translated = 0;
  int expected = 0;
  for (std::uint64_t onu = 0; onu < network.onus(); ++onu) {
    const NetworkReport report = network.Onu(onu);
    const olt_host::ConfirmationResult result =
        olt_host::ConfirmOnu(olt_host::OneReport(report.report, report.settings), report.report);
    EXPECT_TRUE(result.Ok()) << onu << ": " << olt_host::DescribeFailure(result);
    expected += report.report.expect ? 1 : 0;
    translated += result.translated ? 1 : 0;
  }
  EXPECT_GT(expected, 200);
  EXPECT_GT(translated, 20);
}

TEST_F(GeneratedNetworkTest, LinesAndReportsFilesSayTheSame) {
  const GeneratedNetwork network(_population, 3000, 1, 7);
  std::ostringstream yaml;
  olt_host::YamlReportWriter yaml_writer(yaml);
  yaml_writer.Begin({"Population", "Made by a test.", {}});
  for (std::uint64_t onu = 0; onu < network.onus(); ++onu) {
    yaml_writer.Write(network.Onu(onu).report);
  }
  yaml_writer.End();
  const olt_host::Reports reports =
      olt_host::ReadReports(_directory.Write("r.yaml", yaml.str()), _catalogue.catalogue());
  ASSERT_EQ(reports.onus.size(), network.onus());

  std::istringstream lines(Lines(network));
  olt_host::JsonReportReader reader(_catalogue.catalogue());
  std::set<std::string> faults;
  std::string line;
  for (std::size_t onu = 0; onu < network.onus(); ++onu) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_TRUE(nlohmann::json::accept(line)) << line;
    const OnuReport read = reader.Read(line, {"n.jsonl", 1}).report;
    EXPECT_EQ(Told(read), Told(reports.onus[onu])) << line;
    EXPECT_TRUE(SameTruth(read, reports.onus[onu])) << line;
    EXPECT_EQ(read.place, reports.onus[onu].place);
    EXPECT_EQ(read.onu, reports.onus[onu].onu);
    faults.insert(read.truth->faults.begin(), read.truth->faults.end());
  }
  EXPECT_FALSE(std::getline(lines, line));
  EXPECT_EQ(faults.size(), olt_host::kFaultKinds.size());
}

TEST_F(GeneratedNetworkTest, SameBytesHoweverManyWork) {
  const GeneratedNetwork network(_population, 12345, 17, 7);
  const std::string expected = Lines(network);
  for (const unsigned int workers : {1U, 2U, 5U}) {
    std::uint64_t shown = 0;
    olt_host::GenerateNetwork(network, Run(workers), [&shown](std::uint64_t onus) {
      EXPECT_GT(onus, shown);
      shown = onus;
    });
    EXPECT_EQ(shown, 12345U);
    EXPECT_TRUE(ReadFile(Output()) == expected) << workers;
    EXPECT_FALSE(std::filesystem::exists(CheckpointPath()));
  }
}

TEST_F(GeneratedNetworkTest, NoOnusAreAnEmptyFile) {
  _directory.Write("n.jsonl", "something older");
  Generate(GeneratedNetwork(_population, 0, 3, 7), 2);
  EXPECT_EQ(ReadFile(Output()), "");
}

TEST_F(GeneratedNetworkTest, GoesOnWhereTheCheckpointIs) {
  const GeneratedNetwork network(_population, 5500, 4, 7);
  const std::string expected = Lines(network);
  std::size_t end = 0;
  for (int line = 0; line < 3000; ++line) end = expected.find('\n', end) + 1;
  olt_host::Progress progress;
  progress.offset = 3000;
  progress.line = 3001;
  progress.written = end;
  olt_host::Checkpoint(CheckpointPath(), Run(1).depends_on).Keep(progress);
  // What is there is kept as it is, what stands behind it goes.
  std::string there = expected.substr(0, end) + "{\"half a li";
  there[0] = '#';
  _directory.Write("n.jsonl", there);
  Generate(network, 2);
  EXPECT_TRUE(ReadFile(Output()) == "#" + expected.substr(1));
  EXPECT_FALSE(std::filesystem::exists(CheckpointPath()));
}

TEST_F(GeneratedNetworkTest, RefusesAnOutputThatLacksWhatTheCheckpointCounts) {
  olt_host::Progress progress;
  progress.offset = 1000;
  progress.written = 500;
  olt_host::Checkpoint(CheckpointPath(), Run(1).depends_on).Keep(progress);
  _directory.Write("n.jsonl", "short");
  EXPECT_EQ(ErrorOf([&] { Generate(GeneratedNetwork(_population, 2000, 1, 7), 1); }, _directory),
            "n.jsonl has 5 of the 500 bytes that its checkpoint counts");
  EXPECT_EQ(ReadFile(Output()), "short");
}

// Starts generating in a process of its own and kills that once there is a checkpoint.
void GenerateAndBeKilled(const GeneratedNetwork& network, const olt_host::NetworkGeneration& run,
                         std::uint64_t after) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    olt_host::GenerateNetwork(network, run, [&](std::uint64_t onus) {
      if (onus >= after && std::filesystem::exists(run.checkpoint)) {
        static_cast<void>(std::raise(SIGKILL));
      }
    });
    _exit(0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
}

TEST_F(GeneratedNetworkTest, SameBytesHoweverOftenItWasKilled) {
  const GeneratedNetwork network(_population, 30000, 12, 7);
  const std::string expected = Lines(network);
  for (const std::uint64_t after : {1000U, 9000U, 9000U, 25000U}) {
    GenerateAndBeKilled(network, Run(2), after);
    ASSERT_TRUE(std::filesystem::exists(CheckpointPath()));
    const std::string there = ReadFile(Output());
    EXPECT_GE(there.size(), 1U);
    EXPECT_TRUE(there == expected.substr(0, there.size()));
  }
  Generate(network, 3);
  EXPECT_TRUE(ReadFile(Output()) == expected);
}

TEST_F(GeneratedNetworkTest, SaysWhatItCannotWrite) {
  const GeneratedNetwork network(_population, 10, 1, 7);
  olt_host::NetworkGeneration run = Run(1);
  run.checkpoint.clear();
  run.output = _directory.Path("none/n.jsonl");
  const auto error = [&] {
    return ErrorOf([&] { olt_host::GenerateNetwork(network, run, [](std::uint64_t) {}); },
                   _directory);
  };
  EXPECT_EQ(error(), "none/n.jsonl cannot be written: No such file or directory");
  run.output = "/dev/full";
  EXPECT_EQ(error(), "/dev/full cannot be written: No space left on device");
  run.output = "/dev/null";
  EXPECT_EQ(error(), "no error");
}

}  // namespace
}  // namespace olt_host_test
