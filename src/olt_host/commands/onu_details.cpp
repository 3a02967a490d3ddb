// One ONU in full.
#include "commands/ability_json.h"
#include "commands/explanation_words.h"
#include "commands/host_context.h"
#include "commands/onu_listing.h"
#include "commands/text_table.h"
#include "commands/time_text.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;
using Pairs = std::vector<std::pair<std::string, std::string>>;

std::string TextOrNotTold(const std::optional<std::string>& text) {
  return text ? "\"" + *text + "\"" : "not told";
}

std::string CapabilityText(std::uint8_t capability) {
  constexpr std::uint8_t kSfu = 0;
  constexpr std::uint8_t kHgu = 1;
  const char* const meaning = capability == kSfu                        ? " (SFU)"
                              : capability == kHgu                      ? " (HGU)"
                              : capability == kUnknownPrivateCapability ? " (unknown)"
                                                                        : "";
  return std::to_string(capability) + meaning;
}

std::string ExpectationText(const Expectation& expect) {
  std::string text =
      expect.real_type ? "real type " + std::to_string(*expect.real_type) : "not recognised";
  if (expect.how && expect.real_type) {
    text += std::string(", by ") + ToText(*expect.how);
  }
  if (expect.report_type) {
    text += ", report type " + std::to_string(*expect.report_type);
  }
  return text;
}

Pairs ReportPairs(const OnuReport& report) {
  Pairs pairs = {
      {"Vendor identifier", TextOrNotTold(report.vendor_id)},
      {"Reported type", report.reported_type == kUnknownReportedType
                            ? "unknown"
                            : std::to_string(report.reported_type)},
      {"Device name", TextOrNotTold(report.device_name)},
      {"Private capability",
       report.private_capability ? CapabilityText(*report.private_capability) : "not told"},
  };
  if (!report.read_abilities) {
    pairs.emplace_back("Abilities", "cannot be read");
  } else if (report.abilities.empty()) {
    pairs.emplace_back("Abilities", "none told");
  }
  for (const auto& [code, value] : report.abilities) {
    pairs.emplace_back(AbilityText(code), std::to_string(value));
  }
  const IdentifySettings& settings = Host().population->Settings(report.place);
  pairs.emplace_back("Identify settings", "SFU mode " + std::to_string(settings.sfu_mode) +
                                              ", setting 1 " + std::to_string(settings.setting_1) +
                                              ", HGU mode " + std::to_string(settings.hgu_mode) +
                                              ", setting 3 " + std::to_string(settings.setting_3));
  return pairs;
}

std::string RecognitionText(Recognition how) {
  switch (how) {
    case Recognition::kType:
      return "its reported type";
    case Recognition::kAbilities:
      return "its abilities";
    case Recognition::kNone:
      break;
  }
  return "nothing";
}

std::string KeyText(const ConfirmedOnu& confirmed) {
  if (confirmed.key != 0) {
    return std::to_string(confirmed.key);
  }
  return confirmed.result.real_type ? "none, no real profile has this real type" : "none";
}

Pairs OutcomePairs(const ConfirmedOnu& confirmed) {
  const ConfirmationResult& result = confirmed.result;
  return {
      {"Confirmed at", LocalTimeText(confirmed.when)},
      {"Recognised by", RecognitionText(result.how)},
      {"Real type", result.real_type ? std::to_string(*result.real_type) : "none"},
      {"Type name", result.type_name.empty() ? "none" : "\"" + result.type_name + "\""},
      {"Key", KeyText(confirmed)},
      {"Type to report",
       std::to_string(result.report_type) + (result.translated ? " (translated)" : "")},
  };
}

Pairs ExpectationPairs(const OnuReport& report, const ConfirmedOnu* confirmed) {
  if (!report.expect) {
    return {{"Expected", "nothing stated"}};
  }
  Pairs pairs = {{"Expected", ExpectationText(*report.expect)}};
  if (confirmed != nullptr) {
    const std::string failure = DescribeFailure(confirmed->result);
    pairs.emplace_back("As expected", failure.empty() ? "yes" : "NO: " + failure);
  }
  return pairs;
}

template <typename Value>
Json ValueOrNull(const std::optional<Value>& value) {
  return value ? Json(*value) : Json(nullptr);
}

Json ReportJson(const OnuReport& report) {
  Json abilities = Json::array();
  for (const auto& [code, value] : report.abilities) {
    abilities.push_back({{"code", code}, {"name", CodeNameJson(code)}, {"value", value}});
  }
  const IdentifySettings& settings = Host().population->Settings(report.place);
  return {{"read_abilities", report.read_abilities},
          {"abilities", abilities},
          {"private_capability", ValueOrNull(report.private_capability)},
          {"device_name", ValueOrNull(report.device_name)},
          {"identify",
           {{"sfu_mode", settings.sfu_mode},
            {"setting_1", settings.setting_1},
            {"hgu_mode", settings.hgu_mode},
            {"setting_3", settings.setting_3}}},
          {"file", report.position.file},
          {"line", report.position.line}};
}

}  // namespace

void WriteOnuDetails(struct vty& terminal, const OnuReport& report) {
  const ConfirmedOnu* confirmed = ConfirmedOf(report);
  vty_out(&terminal, "ONU %u/%u reports\r\n", report.place, report.onu);
  WritePairs(terminal, ReportPairs(report));
  Pairs outcome = confirmed != nullptr
                      ? OutcomePairs(*confirmed)
                      : Pairs{{"Confirmed at", "not confirmed yet, see \"confirm onu\""}};
  for (auto& pair : ExpectationPairs(report, confirmed)) {
    outcome.push_back(std::move(pair));
  }
  vty_out(&terminal, "\r\nand became\r\n");
  WritePairs(terminal, outcome);
}

Json OnuDetailsJson(const OnuReport& report) {
  Json json = OnuJson(report);
  json["report"] = ReportJson(report);
  return json;
}

}  // namespace olt_host
