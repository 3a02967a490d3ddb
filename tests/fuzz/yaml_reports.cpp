// The reader of YAML reports over any text: what it takes is the same when it is written
// and read again, as YAML and as lines of JSON; what it refuses has one message.
#include <sstream>
#include <string>

#include "catalogue/report_reader.h"
#include "catalogue/yaml_report_writer.h"
#include "fuzz_target.h"
#include "input_bytes.h"
#include "loaded_host.h"
#include "report_round_trip.h"

namespace {

using olt_host::IdentifySettings;
using olt_host::OnuReport;
using olt_host::Reports;

const IdentifySettings& SettingsOf(const Reports& reports, std::uint16_t place) {
  const auto found = reports.settings.find(place);
  return found == reports.settings.end() ? reports.default_settings : found->second;
}

std::string Written(const Reports& reports) {
  std::ostringstream out;
  olt_host::YamlReportWriter writer(out);
  olt_host::ReportsHeader header;
  header.name = reports.name;
  header.remark = "Taken from an input.\nFor people.";
  for (const OnuReport& report : reports.onus) {
    header.settings[report.place] = SettingsOf(reports, report.place);
  }
  writer.Begin(header);
  for (const OnuReport& report : reports.onus) writer.Write(report);
  writer.End();
  return out.str();
}

void HoldSameAsYaml(const Reports& reports) {
  const std::string text = Written(reports);
  const InputFile file(text);
  try {
    const Reports read = olt_host::ReadReports(file.name(), SmallCatalogue());
    HoldSame("the name", reports.name, read.name);
    Hold(reports.onus.size() == read.onus.size(), "the number of ONUs read back differs");
    for (std::size_t i = 0; i < read.onus.size(); ++i) {
      const std::uint16_t place = read.onus[i].place;
      HoldSameReport(reports.onus[i], read.onus[i]);
      HoldSameSettings(SettingsOf(reports, place), SettingsOf(read, place));
    }
    HoldSame("reports written twice", text, Written(read));
  } catch (const olt_host::InputError& error) {
    Fail("written reports are refused: " + std::string(error.what()) + "\n" + text);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LoadSmallCatalogue();
  static const olt_host::JsonReportWriter json_writer;
  static olt_host::JsonReportReader json_reader(SmallCatalogue());
  const InputFile file(InputBytes(data, size).Rest());
  Reports reports;
  try {
    reports = olt_host::ReadReports(file.name(), SmallCatalogue());
  } catch (const olt_host::InputError& error) {
    HoldMessage(error.what(), file.name());
    return 0;
  }
  HoldSameAsYaml(reports);
  for (const OnuReport& report : reports.onus) {
    HoldSameAsJson({"an OLT", SettingsOf(reports, report.place), report}, json_writer, json_reader);
  }
  return 0;
}
