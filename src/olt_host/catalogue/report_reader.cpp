#include "catalogue/report_reader.h"

#include <map>
#include <utility>

#include "catalogue/ability_reader.h"
#include "catalogue/report_rules.h"
#include "catalogue/yaml_document.h"

namespace olt_host {

namespace {

void ReadSettings(const YamlMap& map, IdentifySettings& settings) {
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    if (const auto value = map.Find(kSettingKeys[i])) {
      settings.*kSettings[i] = value->Number16(0, 65535);
    }
  }
}

void ReadIdentify(const YamlView& identify, Reports& reports) {
  const YamlMap map = identify.Map({"default", "places"});
  if (const auto settings = map.Find("default")) {
    ReadSettings(settings->Map({kSettingKeys.begin(), kSettingKeys.end()}),
                 reports.default_settings);
  }
  const auto places = map.Find("places");
  if (!places) {
    return;
  }
  std::map<std::uint16_t, SourcePosition> seen;
  for (const YamlView& item : places->Items("a place")) {
    std::vector<std::string> keys(kSettingKeys.begin(), kSettingKeys.end());
    keys.insert(keys.begin(), "place");
    const YamlMap place_map = item.Map(keys);
    const std::uint16_t place =
        place_map.Get("place", "a number from 0 to 65535").Number16(0, 65535);
    const auto [earlier, is_new] = seen.emplace(place, item.Position());
    if (!is_new) {
      item.Fail("place " + std::to_string(place) + " is already set in " +
                    RelativeText(earlier->second, item.Position()),
                "every place once");
    }
    IdentifySettings settings = reports.default_settings;
    ReadSettings(place_map, settings);
    reports.settings[place] = settings;
  }
}

std::uint8_t ReadPrivateCapability(const YamlView& value) {
  if (const auto capability = PrivateCapabilityOf(value.Word())) return *capability;
  return static_cast<std::uint8_t>(value.Number(0, 255, ", or sfu, hgu or unknown"));
}

Recognition ReadRecognition(const YamlView& value) {
  const auto how = RecognitionOf(value.Word());
  if (!how) value.FailValue("type, abilities or none");
  return *how;
}

Expectation ReadExpectation(const YamlView& view) {
  const YamlMap map = view.Map({"real_type", "how", "report_type", "ambiguous"});
  Expectation expect;
  const YamlView real_type = map.Get("real_type", "a number from 0 to 65535, or none");
  if (!real_type.IsWord("none")) {
    expect.real_type = real_type.Number16(0, 65535, ", or none");
  }
  if (const auto how = map.Find("how")) {
    expect.how = ReadRecognition(*how);
    CheckHow(expect, how->Position());
  }
  if (const auto report_type = map.Find("report_type")) {
    expect.report_type = report_type->Number16(0, 65535);
  }
  if (const auto ambiguous = map.Find("ambiguous")) {
    for (const YamlView& key : ambiguous->Items("a key")) {
      expect.ambiguous.push_back(key.Number(0, kAnyNumber));
    }
    CheckAmbiguous(expect, ambiguous->Position());
  }
  return expect;
}

std::map<std::uint16_t, std::uint32_t> ReadReportedAbilities(const YamlView& view,
                                                             const Catalogue& catalogue) {
  AbilityRules rules;
  rules.texts_allowed = false;
  rules.unknown_codes_allowed = true;
  std::map<std::uint16_t, std::uint32_t> abilities;
  for (const AbilityEntry& ability : ReadAbilities(view, catalogue, rules)) {
    if (ability.kind == AbilityKind::kNumber) {
      abilities[ability.code] = ability.number;
    }
  }
  return abilities;
}

Truth ReadTruth(const YamlView& view) {
  const YamlMap map = view.Map({"real_type", "faults"});
  Truth truth;
  truth.real_type = map.Get("real_type", "a number from 0 to 65535").Number16(0, 65535);
  if (const auto faults = map.Find("faults")) {
    for (const YamlView& fault : faults->Items("a fault")) truth.faults.push_back(fault.Text());
  }
  return truth;
}

void ReadIdentity(const YamlMap& map, OnuReport& report) {
  report.place = map.Get("place", "a number from 0 to 65535").Number16(0, 65535);
  report.onu = static_cast<std::uint8_t>(map.Get("onu", "a number from 0 to 255").Number(0, 255));
  if (const auto serial_number = map.Find("serial_number")) {
    report.serial_number = serial_number->TextUpTo(kSerialNumberBytes);
  }
  const YamlView type = map.Get("reported_type", "a number from 0 to 4294967295, or unknown");
  report.reported_type =
      type.IsWord("unknown") ? kUnknownReportedType : type.Number(0, kAnyNumber, ", or unknown");
  if (const auto vendor_id = map.Find("vendor_id")) {
    SplitBuffer(vendor_id->BufferUpTo(kVendorIdBytes), report.vendor_id, report.behind_vendor_id);
  }
  if (const auto device_name = map.Find("device_name")) {
    SplitBuffer(device_name->BufferUpTo(kDeviceNameBytes), report.device_name,
                report.behind_device_name);
  }
}

OnuReport ReadReport(const YamlView& item, const Catalogue& catalogue) {
  const YamlMap map =
      item.Map({"place", "onu", "serial_number", "vendor_id", "reported_type", "read_abilities",
                "private_capability", "device_name", "abilities", "expect", "truth"});
  OnuReport report;
  report.position = item.Position();
  ReadIdentity(map, report);
  if (const auto read_abilities = map.Find("read_abilities")) {
    report.read_abilities = read_abilities->Flag();
  }
  if (const auto capability = map.Find("private_capability")) {
    report.private_capability = ReadPrivateCapability(*capability);
  }
  if (const auto abilities = map.Find("abilities")) {
    report.abilities = ReadReportedAbilities(*abilities, catalogue);
  }
  if (const auto expect = map.Find("expect")) {
    report.expect = ReadExpectation(*expect);
  }
  if (const auto truth = map.Find("truth")) {
    report.truth = ReadTruth(*truth);
  }
  return report;
}

}  // namespace

Reports ReadReports(const std::string& file, const Catalogue& catalogue) {
  const YamlMap root = OpenYaml(file, "a reports file").Map({"reports", "identify", "onus"});
  Reports reports;
  if (const auto header = root.Find("reports")) {
    const YamlMap map = header->Named("the reports header").Map({"name"});
    if (const auto name = map.Find("name")) {
      reports.name = name->Text();
    }
  }
  if (const auto identify = root.Find("identify")) {
    ReadIdentify(*identify, reports);
  }
  std::map<std::pair<std::uint16_t, std::uint8_t>, SourcePosition> seen;
  for (const YamlView& item : root.Get("onus", "a list of ONUs").Items("an ONU")) {
    OnuReport report = ReadReport(item, catalogue);
    const auto [earlier, is_new] =
        seen.emplace(std::pair(report.place, report.onu), item.Position());
    if (!is_new) {
      item.Fail("ONU " + std::to_string(report.place) + "/" + std::to_string(report.onu) +
                    " already stands in " + RelativeText(earlier->second, item.Position()),
                "every place and onu once");
    }
    reports.onus.push_back(std::move(report));
  }
  return reports;
}

}  // namespace olt_host
