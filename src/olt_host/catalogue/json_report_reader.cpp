#include "catalogue/json_report_reader.h"

#include "catalogue/nearest_name.h"
#include "catalogue/report_rules.h"
#include "catalogue/scalar_text.h"

namespace olt_host {

namespace {

// Each enumerator is the place of its key.
enum OnuKey : std::size_t {
  kOlt,
  kPlace,
  kOnu,
  kSerialNumber,
  kVendorId,
  kReportedType,
  kReadAbilities,
  kPrivateCapability,
  kDeviceName,
  kAbilities,
  kIdentify,
  kExpect,
  kTruth,
  kOnuKeys
};
constexpr std::array<const char*, kOnuKeys> kOnuKeyNames = {"olt",
                                                            "place",
                                                            "onu",
                                                            "serial_number",
                                                            "vendor_id",
                                                            "reported_type",
                                                            "read_abilities",
                                                            "private_capability",
                                                            "device_name",
                                                            "abilities",
                                                            "identify",
                                                            "expect",
                                                            "truth"};
using OnuMap = JsonMap<kOnuKeys>;

enum ExpectKey : std::size_t { kRealType, kHow, kReportType, kAmbiguous, kExpectKeys };
constexpr std::array<const char*, kExpectKeys> kExpectKeyNames = {"real_type", "how", "report_type",
                                                                  "ambiguous"};

enum TruthKey : std::size_t { kTrueType, kFaults, kTruthKeys };
constexpr std::array<const char*, kTruthKeys> kTruthKeyNames = {"real_type", "faults"};

void ReadOlt(const OnuMap& map, std::string& olt) {
  const std::string expectation = "a text of 1 to " + std::to_string(kOltBytes) + " bytes";
  const JsonValue& value = map.Get(kOlt, expectation.c_str());
  olt = value.TextUpTo(kOltBytes);
  if (olt.empty()) value.FailValue(expectation);
}

void ReadIdentify(const JsonValue& identify, IdentifySettings& settings) {
  const JsonMap<kSettingKeys.size()> map(identify, kSettingKeys);
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    if (map.Find(i)) settings.*kSettings[i] = map.Find(i).Number16(0, 65535);
  }
}

void ReadIdentity(const OnuMap& map, OnuReport& report) {
  report.place = map.Get(kPlace, "a number from 0 to 65535").Number16(0, 65535);
  report.onu = static_cast<std::uint8_t>(map.Get(kOnu, "a number from 0 to 255").Number(0, 255));
  if (map.Find(kSerialNumber)) {
    report.serial_number = map.Find(kSerialNumber).TextUpTo(kSerialNumberBytes);
  }
  const JsonValue& type = map.Get(kReportedType, "a number from 0 to 4294967295, or unknown");
  if (!type.IsNull() && type.Word() != "unknown") {
    report.reported_type = type.Number(0, kAnyNumber, ", or unknown");
  }
  if (map.Find(kVendorId)) {
    SplitBuffer(map.Find(kVendorId).BufferUpTo(kVendorIdBytes), report.vendor_id,
                report.behind_vendor_id);
  }
  if (map.Find(kDeviceName)) {
    SplitBuffer(map.Find(kDeviceName).BufferUpTo(kDeviceNameBytes), report.device_name,
                report.behind_device_name);
  }
}

std::uint8_t ReadPrivateCapability(const JsonValue& value) {
  if (const auto capability = PrivateCapabilityOf(value.Word())) return *capability;
  return static_cast<std::uint8_t>(value.Number(0, 255, ", or sfu, hgu or unknown"));
}

Expectation ReadExpectation(const JsonValue& value) {
  const JsonMap<kExpectKeys> map(value, kExpectKeyNames);
  Expectation expect;
  const JsonValue& real_type = map.Get(kRealType, "a number from 0 to 65535, or none");
  if (real_type.Word() != "none") expect.real_type = real_type.Number16(0, 65535, ", or none");
  if (map.Find(kHow)) {
    expect.how = RecognitionOf(map.Find(kHow).Word());
    if (!expect.how) map.Find(kHow).FailValue("type, abilities or none");
    CheckHow(expect, value.Position());
  }
  if (map.Find(kReportType)) expect.report_type = map.Find(kReportType).Number16(0, 65535);
  if (map.Find(kAmbiguous)) {
    map.Find(kAmbiguous).ForEachItem("a key", [&](const JsonValue& key) {
      expect.ambiguous.push_back(key.Number(0, kAnyNumber));
    });
    CheckAmbiguous(expect, value.Position());
  }
  return expect;
}

Truth ReadTruth(const JsonValue& value) {
  const JsonMap<kTruthKeys> map(value, kTruthKeyNames);
  Truth truth;
  truth.real_type = map.Get(kTrueType, "a number from 0 to 65535").Number16(0, 65535);
  if (map.Find(kFaults)) {
    map.Find(kFaults).ForEachItem(
        "a fault", [&](const JsonValue& fault) { truth.faults.emplace_back(fault.Text()); });
  }
  return truth;
}

}  // namespace

JsonReportReader::JsonReportReader(const Catalogue& catalogue) {
  _codes.reserve(catalogue.codes.size());
  for (const CodeEntry& entry : catalogue.codes) {
    _codes.push_back({entry.code, entry.name, entry.HoldsText()});
  }
  for (const Code& code : _codes) {
    _by_name.emplace(code.name, &code);
    _by_number.emplace(code.code, &code);
  }
}

NetworkReport JsonReportReader::Read(std::string_view line, const SourcePosition& position) {
  const JsonValue value = _line.Parse(line, "an ONU", position);
  const OnuMap map(value, kOnuKeyNames);
  NetworkReport result;
  OnuReport& report = result.report;
  report.position = position;
  ReadOlt(map, result.olt);
  ReadIdentity(map, report);
  if (map.Find(kReadAbilities)) report.read_abilities = map.Find(kReadAbilities).Flag();
  if (map.Find(kPrivateCapability)) {
    report.private_capability = ReadPrivateCapability(map.Find(kPrivateCapability));
  }
  if (map.Find(kAbilities)) ReadAbilities(map.Find(kAbilities), report.abilities);
  if (map.Find(kIdentify)) ReadIdentify(map.Find(kIdentify), result.settings);
  if (map.Find(kExpect)) report.expect = ReadExpectation(map.Find(kExpect));
  if (map.Find(kTruth)) report.truth = ReadTruth(map.Find(kTruth));
  return result;
}

void JsonReportReader::ReadAbilities(const JsonValue& abilities,
                                     std::map<std::uint16_t, std::uint32_t>& result) {
  _any.clear();
  abilities.ForEachEntry("a map of codes and values", [&](const JsonValue& value) {
    const std::uint16_t code = ReadCode(value);
    const Code* known = FindCode(code);
    const std::size_t before = result.size();
    // Reports mostly come sorted by code.
    const auto entry = result.emplace_hint(result.end(), code, 0);
    if (result.size() == before) {
      value.Fail("code " + std::to_string(code) + " (" +
                     (known == nullptr ? "not defined" : known->name) + ") stands twice",
                 "every code once");
    }
    if (known != nullptr && known->holds_text) {
      value.Fail(std::string(value.Name()) + " holds a text", "a code that holds a number");
    }
    if (value.IsNull()) {
      value.FailValue("a number, any (told as unknown) or no entry (not told)");
    }
    if (value.Word() == "any") {
      _any.push_back(code);
    } else {
      entry->second = value.Number(0, kAnyNumber, ", or any");
    }
  });
  for (const std::uint16_t code : _any) result.erase(code);
}

std::uint16_t JsonReportReader::ReadCode(const JsonValue& value) const {
  const std::string_view name = value.Name();
  const auto known = _by_name.find(name);
  if (known != _by_name.end()) return known->second->code;
  const auto number = ParseNumber(name);
  if (!number) FailUndefined(value);
  if (*number > 65534) {
    value.Fail("a key of abilities is " + std::string(name), "a number from 0 to 65534");
  }
  return static_cast<std::uint16_t>(*number);
}

void JsonReportReader::FailUndefined(const JsonValue& value) const {
  const std::string name(value.Name());
  std::vector<std::string> names;
  names.reserve(_codes.size());
  for (const Code& code : _codes) names.push_back(code.name);
  const std::string nearest = NearestName(name, names);
  // A name of any length and bytes.
  const std::string shown = name.size() > 64 || HasControlCharacter(name) ? Quoted(name) : name;
  throw UnknownNameError(value.Position(), "code " + shown + " is not defined",
                         nearest.empty() ? "a code that is defined under codes" : Quoted(nearest));
}

const JsonReportReader::Code* JsonReportReader::FindCode(std::uint16_t code) const {
  const auto known = _by_number.find(code);
  return known == _by_number.end() ? nullptr : known->second;
}

}  // namespace olt_host
