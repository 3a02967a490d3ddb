#include "recognition/report_line.h"

#include "catalogue/input_error.h"
#include "recognition/ability_reading.h"

namespace olt_host {

nlohmann::ordered_json ReportJson(const OnuReport& report) {
  nlohmann::ordered_json json = {{"place", report.place}, {"onu", report.onu}};
  if (report.vendor_id) json["vendor_id"] = *report.vendor_id;
  if (report.reported_type == kUnknownReportedType) {
    json["reported_type"] = "unknown";
  } else {
    json["reported_type"] = report.reported_type;
  }
  if (report.private_capability) json["private_capability"] = *report.private_capability;
  if (report.device_name) json["device_name"] = *report.device_name;
  nlohmann::ordered_json abilities = nlohmann::ordered_json::object();
  for (const auto& [code, number] : report.abilities) {
    abilities[std::to_string(code)] = number;
  }
  if (!abilities.empty()) json["abilities"] = abilities;
  return json;
}

std::string ReportLine(const OnuReport& report) {
  std::string line =
      "{place: " + std::to_string(report.place) + ", onu: " + std::to_string(report.onu);
  if (report.vendor_id) line += ", vendor_id: " + Quoted(*report.vendor_id);
  line += ", reported_type: " + (report.reported_type == kUnknownReportedType
                                     ? "unknown"
                                     : std::to_string(report.reported_type));
  if (report.private_capability) {
    line += ", private_capability: " + std::to_string(*report.private_capability);
  }
  if (report.device_name) line += ", device_name: " + Quoted(*report.device_name);
  std::string abilities;
  for (const auto& [code, number] : report.abilities) {
    const std::string name = CodeName(code);
    abilities += (abilities.empty() ? "" : ", ") + (name.empty() ? std::to_string(code) : name) +
                 ": " + std::to_string(number);
  }
  return line + (abilities.empty() ? "" : ", abilities: {" + abilities + "}") + "}";
}

}  // namespace olt_host
