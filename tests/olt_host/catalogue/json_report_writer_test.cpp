// Lines of JSON: what they look like, and that they are read back as what was written.
#include "catalogue/json_report_writer.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "catalogue/json_report_reader.h"
#include "host_files.h"

namespace olt_host_test {
namespace {

using olt_host::NetworkReport;

class Random {
 public:
  explicit Random(unsigned int seed) : _engine(seed) {}
  std::uint32_t operator()() { return static_cast<std::uint32_t>(_engine()); }

 private:
  std::mt19937 _engine;
};

class JsonReportWriter : public testing::Test {
 protected:
  JsonReportWriter()
      : _catalogue(olt_host::ReadCatalogue(Fixture("small_catalogue.yaml"))), _reader(_catalogue) {
    olt_host::LoadCatalogue(_catalogue);
  }

  static std::string Written(const NetworkReport& report) {
    return olt_host::JsonReportWriter().Line(report);
  }

  void ExpectReadsBack(const NetworkReport& report) {
    const std::string line = Written(report);
    ASSERT_EQ(line.find('\n'), line.size() - 1) << line;
    const NetworkReport read =
        _reader.Read(std::string_view(line).substr(0, line.size() - 1), {"r.jsonl", 1});
    const auto settings = [](const NetworkReport& of) {
      return std::tie(of.olt, of.settings.sfu_mode, of.settings.setting_1, of.settings.hgu_mode,
                      of.settings.setting_3);
    };
    EXPECT_EQ(settings(read), settings(report)) << line;
    const auto told = [](const olt_host::OnuReport& of) {
      return std::tie(of.place, of.onu, of.serial_number, of.vendor_id, of.behind_vendor_id,
                      of.reported_type, of.read_abilities, of.private_capability, of.device_name,
                      of.behind_device_name, of.abilities);
    };
    EXPECT_EQ(told(read.report), told(report.report)) << line;
    ASSERT_EQ(read.report.expect.has_value(), report.report.expect.has_value()) << line;
    if (report.report.expect) {
      const auto expected = [](const olt_host::Expectation& of) {
        return std::tie(of.real_type, of.how, of.report_type, of.ambiguous);
      };
      EXPECT_EQ(expected(*read.report.expect), expected(*report.report.expect)) << line;
    }
    ASSERT_EQ(read.report.truth.has_value(), report.report.truth.has_value()) << line;
    if (report.report.truth) {
      EXPECT_EQ(read.report.truth->real_type, report.report.truth->real_type) << line;
      EXPECT_EQ(read.report.truth->faults, report.report.truth->faults) << line;
    }
  }

  CleanLibrary _library;
  olt_host::Catalogue _catalogue;
  olt_host::JsonReportReader _reader;
};

TEST_F(JsonReportWriter, WritesOneOnuALine) {
  NetworkReport report;
  report.olt = "olt-0017";
  report.settings = {1, 0, 2, 0};
  report.report.place = 3;
  report.report.onu = 200;
  report.report.vendor_id = "A\"\\";
  report.report.device_name = "N\xC3\xA4";
  report.report.behind_device_name = std::string("\0\x01\x7F\n", 4) + "x";
  report.report.abilities = {{47, 4}, {60000, 9}};
  report.report.expect = olt_host::Expectation();
  report.report.truth = olt_host::Truth{1001, {"garbage", "unknown"}};
  EXPECT_EQ(
      Written(report),
      R"({"olt":"olt-0017","place":3,"onu":200,"vendor_id":"A\"\\","reported_type":"unknown",)"
      R"("device_name":")"
      "N\xC3\xA4"
      R"(\u0000\u0000\u0001\u007F\u000Ax",)"
      R"("abilities":{"GE_PORTS":4,"60000":9},"identify":{"sfu_mode":1,"hgu_mode":2},)"
      R"("expect":{"real_type":"none"},"truth":{"real_type":1001,)"
      R"("faults":["garbage","unknown"]}})"
      "\n");
}

TEST_F(JsonReportWriter, LeavesOutWhatIsNotTold) {
  NetworkReport report;
  report.olt = "o";
  report.report.reported_type = 7;
  EXPECT_EQ(Written(report), "{\"olt\":\"o\",\"place\":0,\"onu\":0,\"reported_type\":7}\n");
  ExpectReadsBack(report);
}

TEST_F(JsonReportWriter, EveryByteThatATextMayHoldIsReadBack) {
  for (unsigned int byte = 0; byte < 256; ++byte) {
    NetworkReport report;
    report.olt = "o";
    const std::string text(2, static_cast<char>(byte));
    report.report.vendor_id = "V";
    report.report.behind_vendor_id = text;
    report.report.device_name = byte >= 0x20 && byte != 0x7F ? text : "";
    ExpectReadsBack(report);
  }
}

std::string AnyBytes(Random& random, std::size_t size, bool with_controls) {
  std::string bytes;
  while (bytes.size() < size) {
    const auto byte = static_cast<unsigned char>(random() % 256);
    if (with_controls || (byte >= 0x20 && byte != 0x7F)) bytes += static_cast<char>(byte);
  }
  return bytes;
}

// A text and what is behind it, within a buffer of so many bytes; zeros among the latter.
void FillBuffer(Random& random, std::size_t room, std::optional<std::string>& text,
                std::string& behind) {
  if (random() % 4 == 0) return;
  text = AnyBytes(random, random() % (room + 1), false);
  if (text->size() + 2 > room || random() % 2 == 0) return;
  behind = AnyBytes(random, 1 + random() % (room - text->size() - 1), true);
}

std::uint16_t Any16(Random& random) { return static_cast<std::uint16_t>(random()); }

olt_host::Expectation AnyExpectation(Random& random) {
  olt_host::Expectation expect;
  if (random() % 2 == 0) expect.real_type = Any16(random);
  if (random() % 2 == 0) {
    expect.how = !expect.real_type   ? olt_host::Recognition::kNone
                 : random() % 2 == 0 ? olt_host::Recognition::kType
                                     : olt_host::Recognition::kAbilities;
  }
  if (random() % 2 == 0) expect.report_type = Any16(random);
  const std::size_t keys = random() % 2 == 0 ? 0 : 2 + random() % 3;
  while (expect.ambiguous.size() < keys) expect.ambiguous.push_back(random());
  return expect;
}

NetworkReport AnyReport(Random& random) {
  NetworkReport result;
  result.olt = AnyBytes(random, 1 + random() % 64, false);
  if (random() % 2 == 0) {
    result.settings = {Any16(random), static_cast<std::uint16_t>(random() % 2), Any16(random), 0};
  }
  olt_host::OnuReport& report = result.report;
  report.place = Any16(random);
  report.onu = static_cast<std::uint8_t>(random());
  report.serial_number = AnyBytes(random, random() % 33, false);
  FillBuffer(random, 4, report.vendor_id, report.behind_vendor_id);
  FillBuffer(random, 20, report.device_name, report.behind_device_name);
  if (random() % 2 == 0) report.reported_type = random();
  report.read_abilities = random() % 2 == 0;
  if (random() % 2 == 0) report.private_capability = static_cast<std::uint8_t>(random());
  const std::uint16_t numbers[] = {24, 32, 47, 1002};
  for (std::size_t i = random() % 5; i > 0; --i) report.abilities[numbers[i - 1]] = random();
  for (std::size_t i = random() % 3; i > 0; --i) {
    report.abilities[static_cast<std::uint16_t>(60000 + random() % 5000)] = random();
  }
  if (random() % 2 == 0) report.expect = AnyExpectation(random);
  if (random() % 2 == 0) {
    report.truth = olt_host::Truth{Any16(random), {}};
    for (std::size_t i = random() % 3; i > 0; --i) {
      report.truth->faults.push_back(AnyBytes(random, random() % 100, false));
    }
  }
  return result;
}

TEST_F(JsonReportWriter, AnyReportIsReadBack) {
  for (unsigned int seed = 0; seed < 5000 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    ExpectReadsBack(AnyReport(random));
  }
}

}  // namespace
}  // namespace olt_host_test
