#include "catalogue/report_reader.h"

#include <map>
#include <utility>

#include "catalogue/ability_reader.h"
#include "catalogue/yaml_document.h"

namespace olt_host {

namespace {

constexpr std::size_t kSerialNumberBytes = 32;

const char* const kSettingKeys[] = {"sfu_mode", "setting_1", "hgu_mode", "setting_3"};

void ReadSettings(const YamlMap& map, IdentifySettings& settings) {
  std::uint16_t* const fields[] = {&settings.sfu_mode, &settings.setting_1, &settings.hgu_mode,
                                   &settings.setting_3};
  for (std::size_t i = 0; i < 4; ++i) {
    if (const auto value = map.Find(kSettingKeys[i])) {
      *fields[i] = value->Number16(0, 65535);
    }
  }
}

void ReadIdentify(const YamlView& identify, Reports& reports) {
  const YamlMap map = identify.Map({"default", "places"});
  if (const auto settings = map.Find("default")) {
    ReadSettings(settings->Map({kSettingKeys, kSettingKeys + 4}), reports.default_settings);
  }
  const auto places = map.Find("places");
  if (!places) {
    return;
  }
  std::map<std::uint16_t, SourcePosition> seen;
  for (const YamlView& item : places->Items("a place")) {
    std::vector<std::string> keys(kSettingKeys, kSettingKeys + 4);
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
  if (value.IsWord("sfu")) {
    return 0;
  }
  if (value.IsWord("hgu")) {
    return 1;
  }
  if (value.IsWord("unknown")) {
    return kUnknownPrivateCapability;
  }
  return static_cast<std::uint8_t>(value.Number(0, 255, ", or sfu, hgu or unknown"));
}

Recognition ReadRecognition(const YamlView& value) {
  for (const Recognition how : {Recognition::kType, Recognition::kAbilities, Recognition::kNone}) {
    if (value.IsWord(ToText(how))) {
      return how;
    }
  }
  value.FailValue("type, abilities or none");
}

std::vector<std::uint32_t> ReadAmbiguity(const YamlView& value) {
  std::vector<std::uint32_t> keys;
  for (const YamlView& key : value.Items("a key")) keys.push_back(key.Number(0, kAnyNumber));
  if (keys.size() < 2) {
    value.Fail("ambiguous names " + std::string(keys.empty() ? "no key" : "one key"),
               "the keys of all match profiles that fit, or no entry when no more than one does");
  }
  return keys;
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
    if ((*expect.how == Recognition::kNone) == expect.real_type.has_value()) {
      how->Fail("real_type " + real_type.Description() + " and how " + how->Description() +
                    " exclude each other",
                "none for both or for neither");
    }
  }
  if (const auto report_type = map.Find("report_type")) {
    expect.report_type = report_type->Number16(0, 65535);
  }
  if (const auto ambiguous = map.Find("ambiguous")) {
    expect.ambiguous = ReadAmbiguity(*ambiguous);
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

// A text, and what stands behind its terminator.
std::string ReadBuffer(const YamlView& value, std::size_t max_bytes, std::string& behind) {
  const std::string bytes = value.BufferUpTo(max_bytes);
  const std::size_t terminator = bytes.find('\0');
  if (terminator != std::string::npos) behind = bytes.substr(terminator + 1);
  return bytes.substr(0, terminator);
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
    report.vendor_id = ReadBuffer(*vendor_id, kVendorIdBytes, report.behind_vendor_id);
  }
  if (const auto device_name = map.Find("device_name")) {
    report.device_name = ReadBuffer(*device_name, kDeviceNameBytes, report.behind_device_name);
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

const char* ToText(Recognition recognition) {
  switch (recognition) {
    case Recognition::kType:
      return "type";
    case Recognition::kAbilities:
      return "abilities";
    case Recognition::kNone:
      break;
  }
  return "none";
}

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
