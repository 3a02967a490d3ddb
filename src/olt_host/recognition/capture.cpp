#include "recognition/capture.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <utility>

#include "catalogue/hash.h"
#include "catalogue/yaml_report_writer.h"
#include "recognition/met_expectations.h"

namespace olt_host {

namespace {

constexpr const char* kHashMark = "sha256:";
constexpr std::size_t kHashDigits = 16;

bool IsHash(const std::string& serial_number) {
  const std::string mark = kHashMark;
  return serial_number.size() == mark.size() + kHashDigits &&
         serial_number.compare(0, mark.size(), mark) == 0 &&
         serial_number.find_first_not_of("0123456789abcdef", mark.size()) == std::string::npos;
}

bool IsAllZero(const IdentifySettings& settings) {
  return settings.sfu_mode == 0 && settings.setting_1 == 0 && settings.hgu_mode == 0 &&
         settings.setting_3 == 0;
}

OnuReport WithoutSecrets(OnuReport report) {
  report.serial_number = HashedSerialNumber(report.serial_number);
  report.truth.reset();
  return report;
}

// What was expected and did not come stays expected.
void Expect(const Expectation& met, OnuReport& report, Capture& capture) {
  capture.ambiguous += met.ambiguous.empty() ? 0 : 1;
  if (report.expect &&
      (!TypesAsStated(*report.expect, met) ||
       (!report.expect->ambiguous.empty() && !AmbiguityAsStated(*report.expect, met)))) {
    ++capture.not_as_expected;
    return;
  }
  report.expect = met;
}

}  // namespace

std::string HashedSerialNumber(const std::string& serial_number) {
  if (serial_number.empty() || IsHash(serial_number)) return serial_number;
  std::string upper = serial_number;
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return kHashMark + Sha256(upper).substr(0, kHashDigits);
}

Capture CaptureReports(const Population& population, const std::vector<const OnuReport*>& onus,
                       const std::string& catalogue) {
  Reports reports;
  ReportsHeader header;
  for (const OnuReport* onu : onus) {
    reports.onus.push_back(WithoutSecrets(*onu));
    const IdentifySettings& settings = population.Settings(onu->place);
    reports.settings[onu->place] = settings;
    if (!IsAllZero(settings)) header.settings[onu->place] = settings;
  }
  const auto captured = std::make_shared<const Population>(std::move(reports));
  const std::vector<Expectation> met = MetExpectations(captured);
  header.name = population.Name();
  header.remark = "Captured under the catalogue " + catalogue +
                  ".\nThe expectations are what came of the ONUs: look at them before you rely on "
                  "them.";
  Capture capture;
  std::ostringstream text;
  YamlReportWriter writer(text);
  writer.Begin(header);
  for (OnuReport onu : captured->Onus()) {
    Expect(met[capture.onus++], onu, capture);
    writer.Write(onu);
  }
  writer.End();
  capture.text = text.str();
  return capture;
}

}  // namespace olt_host
