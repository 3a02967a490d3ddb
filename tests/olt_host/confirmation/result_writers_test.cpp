// The results as table, summary, JSON and CSV, byte for byte where people read
// them and parsed back where machines do.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "confirmation/result_writer.h"

namespace olt_host_test {
namespace {

using olt_host::ConfirmationResult;
using olt_host::OutputFormat;
using olt_host::Recognition;

ConfirmationResult Widest() {
  ConfirmationResult result;
  result.place = 65535;
  result.onu = 255;
  result.vendor_id = "ACME";
  result.reported_type = 4294967294;
  result.real_type = 65534;
  result.type_name = "ABCDEFGHIJKLMNOPQRST";
  result.how = Recognition::kAbilities;
  result.translated = true;
  result.report_type = 65535;
  result.expect = olt_host::Expectation{65534, Recognition::kAbilities, 65535, {}};
  result.position = {"r.yaml", 4};
  return result;
}

ConfirmationResult NotRecognised() {
  ConfirmationResult result;
  result.place = 1;
  result.onu = 2;
  result.report_type = 65535;
  result.position = {"r.yaml", 5};
  return result;
}

ConfirmationResult Wrong() {
  ConfirmationResult result;
  result.place = 1;
  result.onu = 3;
  result.vendor_id = "A,\"B";
  result.reported_type = 17;
  result.real_type = 18;
  result.type_name = "Caf\xc3\xa9 \"4,2\"";
  result.how = Recognition::kType;
  result.report_type = 18;
  result.expect = olt_host::Expectation{17, Recognition::kType, std::nullopt, {}};
  result.position = {"r.yaml", 6};
  return result;
}

std::string Written(OutputFormat format, bool summary_only,
                    const std::vector<ConfirmationResult>& results) {
  std::ostringstream out;
  const auto writer = olt_host::MakeResultWriter(format, summary_only, out);
  writer->Begin({"Models", "7", "Population"});
  olt_host::ConfirmationSummary summary;
  for (const ConfirmationResult& result : results) {
    summary.Count(result);
    writer->Write(result);
  }
  writer->End(summary);
  return out.str();
}

const char* const kCounts =
    "  ONUs confirmed                           3\n"
    "  recognised by reported type              1\n"
    "  recognised by abilities                  1\n"
    "  not recognised                           1\n"
    "  reported type translated                 1\n"
    "  with an expectation                      2\n"
    "  not as expected                          1\n";

TEST(ResultTable, ShowsARowAnOnuAndWhyOneIsWrong) {
  EXPECT_EQ(
      Written(OutputFormat::kTable, false, {Widest(), NotRecognised(), Wrong()}),
      "Place/ONU Vendor   Reported Becomes   Real  Type name             Known by  OK?\n"
      "65535/255 ACME   4294967294   65535  65534  ABCDEFGHIJKLMNOPQRST  abilities yes\n"
      "1/2       -         unknown              -  -                     -         -\n"
      "1/3       A,\"B           17             18  Caf\xc3\xa9 \"4,2\"            type      NO\n"
      "          expected real type 17\n"
      "\n" +
          std::string(kCounts));
}

TEST(ResultTable, FitsAnEightyColumnTerminal) {
  ConfirmationResult wrong = Widest();
  wrong.real_type = 65533;
  wrong.how = Recognition::kType;
  wrong.expect = olt_host::Expectation{65534, Recognition::kAbilities, 65534, {}};
  const std::string text = Written(OutputFormat::kTable, false, {Widest(), wrong});
  EXPECT_NE(text.find("\n          expected real type 65534, by abilities, report type 65534 (is "
                      "65535)\n"),
            std::string::npos)
      << text;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 79U) << line;
  }
}

TEST(ResultSummary, ShowsCountsAndWhatWasNotAsExpected) {
  EXPECT_EQ(Written(OutputFormat::kTable, true, {Widest(), NotRecognised(), Wrong()}),
            "Catalogue: Models, version 7\n"
            "Reports:   Population\n"
            "\n" +
                std::string(kCounts) +
                "\n"
                "Not as expected:\n"
                "  r.yaml:6: ONU 1/3 is type 18 by type; expected real type 17\n");
}

TEST(ResultSummary, SaysNothingOfAVersionThatTheCatalogueDoesNotState) {
  std::ostringstream out;
  olt_host::MakeResultWriter(OutputFormat::kTable, true, out)->Begin({"Models", "", ""});
  EXPECT_EQ(out.str(), "Catalogue: Models\n\n");
}

TEST(ResultSummary, ShowsTheFirstTenFailuresOnly) {
  std::vector<ConfirmationResult> results(12, NotRecognised());
  for (ConfirmationResult& result : results) {
    result.expect = olt_host::Expectation{5, std::nullopt, std::nullopt, {}};
  }
  const std::string text = Written(OutputFormat::kTable, true, results);
  EXPECT_NE(text.find("  r.yaml:5: ONU 1/2 is not recognised; expected real type 5\n"
                      "  and 2 more\n"),
            std::string::npos)
      << text;
}

TEST(ResultJson, ReadsBack) {
  const auto json = nlohmann::json::parse(
      Written(OutputFormat::kJson, false, {Widest(), NotRecognised(), Wrong()}));
  EXPECT_EQ(json["catalogue"], (nlohmann::json{{"name", "Models"}, {"version", "7"}}));
  EXPECT_EQ(json["reports"], "Population");
  ASSERT_EQ(json["results"].size(), 3U);
  EXPECT_EQ(json["results"][0], nlohmann::json::parse(R"({
    "place": 65535, "onu": 255, "vendor_id": "ACME", "reported_type": 4294967294,
    "real_type": 65534, "type_name": "ABCDEFGHIJKLMNOPQRST", "recognised_by": "abilities",
    "translated": true, "report_type": 65535,
    "expected": {"real_type": 65534, "recognised_by": "abilities", "report_type": 65535},
    "ok": true})"));
  EXPECT_EQ(json["results"][1], nlohmann::json::parse(R"({
    "place": 1, "onu": 2, "vendor_id": null, "reported_type": null, "real_type": null,
    "type_name": "", "recognised_by": "none", "translated": false, "report_type": 65535,
    "expected": null, "ok": null})"));
  EXPECT_EQ(json["results"][2]["type_name"], "Caf\xc3\xa9 \"4,2\"");
  EXPECT_EQ(json["results"][2]["expected"],
            (nlohmann::json{{"real_type", 17}, {"recognised_by", "type"}}));
  EXPECT_EQ(json["results"][2]["ok"], false);
  EXPECT_EQ(json["summary"], nlohmann::json::parse(R"({
    "onus": 3, "by_type": 1, "by_abilities": 1, "not_recognised": 1, "translated": 1,
    "with_expectation": 2, "not_as_expected": 1})"));
}

TEST(ResultJson, ReadsBackWithoutAnyOnuAndWithTheSummaryAlone) {
  EXPECT_TRUE(nlohmann::json::parse(Written(OutputFormat::kJson, false, {}))["results"].empty());
  const auto json = nlohmann::json::parse(Written(OutputFormat::kJson, true, {Wrong()}));
  EXPECT_FALSE(json.contains("results"));
  EXPECT_EQ(json["summary"]["onus"], 1);
}

TEST(ResultJson, StaysJsonWhenATextIsNotUtf8) {
  ConfirmationResult result = Wrong();
  result.type_name = "\xff\xfe";
  const auto json = nlohmann::json::parse(Written(OutputFormat::kJson, false, {result}));
  EXPECT_EQ(json["results"][0]["type_name"], "\xef\xbf\xbd\xef\xbf\xbd");
}

TEST(ResultCsv, QuotesWhatNeedsIt) {
  EXPECT_EQ(Written(OutputFormat::kCsv, false, {Widest(), NotRecognised(), Wrong()}),
            "place,onu,vendor_id,reported_type,real_type,type_name,recognised_by,translated,"
            "report_type,expected_real_type,expected_recognised_by,expected_report_type,ok\n"
            "65535,255,ACME,4294967294,65534,ABCDEFGHIJKLMNOPQRST,abilities,yes,65535,65534,"
            "abilities,65535,yes\n"
            "1,2,,,,,none,no,65535,,,,\n"
            "1,3,\"A,\"\"B\",17,18,\"Caf\xc3\xa9 \"\"4,2\"\"\",type,no,18,17,type,,no\n");
}

TEST(ResultCsv, TellsExpectedNoneFromNoExpectation) {
  ConfirmationResult result = NotRecognised();
  result.expect = olt_host::Expectation{std::nullopt, std::nullopt, std::nullopt, {}};
  const std::string text = Written(OutputFormat::kCsv, false, {result});
  EXPECT_NE(text.find("\n1,2,,,,,none,no,65535,none,,,yes\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace olt_host_test
