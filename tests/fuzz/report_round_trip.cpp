#include "report_round_trip.h"

#include <tuple>

#include "fuzz_target.h"

using olt_host::Expectation;
using olt_host::IdentifySettings;
using olt_host::OnuReport;
using olt_host::Truth;

namespace {

auto Members(const IdentifySettings& settings) {
  return std::tie(settings.sfu_mode, settings.setting_1, settings.hgu_mode, settings.setting_3);
}

auto Members(const Expectation& expect) {
  return std::tie(expect.real_type, expect.how, expect.report_type, expect.ambiguous);
}

auto Members(const Truth& truth) { return std::tie(truth.real_type, truth.faults); }

auto Identity(const OnuReport& report) {
  return std::tie(report.place, report.onu, report.serial_number, report.vendor_id,
                  report.behind_vendor_id, report.reported_type, report.device_name,
                  report.behind_device_name);
}

template <typename Value>
bool SameOptional(const std::optional<Value>& a, const std::optional<Value>& b) {
  return a.has_value() == b.has_value() && (!a.has_value() || Members(*a) == Members(*b));
}

}  // namespace

void HoldSameSettings(const IdentifySettings& was, const IdentifySettings& read) {
  Hold(Members(was) == Members(read), "the identify settings read back differ");
}

void HoldSameReport(const OnuReport& was, const OnuReport& read) {
  const std::string onu = std::to_string(was.place) + "/" + std::to_string(was.onu);
  Hold(Identity(was) == Identity(read), "the identity of " + onu + " read back differs");
  Hold(was.read_abilities == read.read_abilities &&
           was.private_capability == read.private_capability,
       "the flags of " + onu + " read back differ");
  Hold(was.abilities == read.abilities, "the abilities of " + onu + " read back differ");
  Hold(SameOptional(was.expect, read.expect), "the expectation of " + onu + " read back differs");
  Hold(SameOptional(was.truth, read.truth), "the truth of " + onu + " read back differs");
}

void HoldSameAsJson(const olt_host::NetworkReport& report, const olt_host::JsonReportWriter& writer,
                    olt_host::JsonReportReader& reader) {
  std::string line = writer.Line(report);
  Hold(!line.empty() && line.find('\n') == line.size() - 1, "a report is one line: " + line);
  line.pop_back();
  const olt_host::SourcePosition position{"written", 1};
  try {
    const olt_host::NetworkReport read = reader.Read(line, position);
    Hold(read.olt == report.olt, "the OLT read back differs: " + line);
    HoldSameSettings(report.settings, read.settings);
    HoldSameReport(report.report, read.report);
    HoldSame("a line written twice", line + "\n", writer.Line(read));
  } catch (const olt_host::InputError& error) {
    Fail("a written line is refused: " + std::string(error.what()) + "\n  " + line);
  }
}
