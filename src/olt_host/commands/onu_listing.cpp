#include "commands/onu_listing.h"

#include <algorithm>
#include <sstream>
#include <tuple>

#include "commands/host_context.h"
#include "commands/text_table.h"
#include "commands/time_text.h"
#include "confirmation/json_writer.h"
#include "confirmation/summary_writer.h"
#include "confirmation/table_writer.h"
#include "text/columns.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kFailureIndent = 4;

// What is known of an ONU before it is confirmed.
ConfirmationResult UnconfirmedResult(const OnuReport& report) {
  ConfirmationResult result;
  result.place = report.place;
  result.onu = report.onu;
  result.vendor_id = report.vendor_id;
  result.reported_type = report.reported_type;
  return result;
}

std::size_t CountUnconfirmed(const OnuReports& onus) {
  return static_cast<std::size_t>(
      std::count_if(onus.begin(), onus.end(),
                    [](const OnuReport* report) { return ConfirmedOf(*report) == nullptr; }));
}

}  // namespace

OnuReports LiveOnus() {
  OnuReports onus;
  if (Host().population == nullptr) {
    return onus;
  }
  for (const OnuReport& report : Host().population->Onus()) {
    onus.push_back(&report);
  }
  std::sort(onus.begin(), onus.end(), [](const OnuReport* a, const OnuReport* b) {
    return std::tie(a->place, a->onu) < std::tie(b->place, b->onu);
  });
  return onus;
}

const ConfirmedOnu* ConfirmedOf(const OnuReport& report) {
  const auto found = Host().confirmed.find({report.place, report.onu});
  return found == Host().confirmed.end() ? nullptr : &found->second;
}

ConfirmationSummary SummaryOf(const OnuReports& onus) {
  ConfirmationSummary summary;
  for (const OnuReport* report : onus) {
    if (const ConfirmedOnu* confirmed = ConfirmedOf(*report)) {
      summary.Count(confirmed->result);
    }
  }
  return summary;
}

void WriteOnuTable(struct vty& terminal, const OnuReports& onus) {
  std::ostringstream text;
  TableWriter table(text);
  if (onus.empty()) {
    text << "No ONUs\n";
  } else {
    table.Begin({});
  }
  for (const OnuReport* report : onus) {
    if (const ConfirmedOnu* confirmed = ConfirmedOf(*report)) {
      table.Write(confirmed->result);
    } else {
      ConfirmationResult result = UnconfirmedResult(*report);
      result.type_name = "(not confirmed)";
      table.Write(result);
    }
  }
  WriteLines(terminal, text.str());
}

Json OnuJson(const OnuReport& report) {
  const ConfirmedOnu* confirmed = ConfirmedOf(report);
  if (confirmed == nullptr) {
    const Json known = ResultJson(UnconfirmedResult(report));
    return {{"place", known["place"]},
            {"onu", known["onu"]},
            {"vendor_id", known["vendor_id"]},
            {"reported_type", known["reported_type"]},
            {"confirmed", false}};
  }
  Json json = ResultJson(confirmed->result);
  json["key"] = confirmed->key == 0 ? Json(nullptr) : Json(confirmed->key);
  json["confirmed"] = true;
  json["confirmed_at"] = UtcTimeText(confirmed->when);
  return json;
}

void WriteOnuSummary(struct vty& terminal, const OnuReports& onus) {
  std::ostringstream text;
  SummaryWriter writer(text);
  for (const OnuReport* report : onus) {
    if (const ConfirmedOnu* confirmed = ConfirmedOf(*report)) {
      writer.Write(confirmed->result);
    }
  }
  const std::size_t unconfirmed = CountUnconfirmed(onus);
  if (unconfirmed > 0) {
    text << "  " << unconfirmed << " of " << onus.size() << " ONUs not confirmed yet\n\n";
  }
  writer.End(SummaryOf(onus));
  std::istringstream lines(text.str());
  for (std::string line; std::getline(lines, line);) {
    const std::string shown = DisplayWidth(line) < kScreenColumns
                                  ? line + "\r\n"
                                  : Wrap("  ", line.substr(2), kFailureIndent);
    terminal.Write(shown.data(), shown.size());
  }
}

Json OnuSummaryJson(const OnuReports& onus) {
  Json json = SummaryJson(SummaryOf(onus));
  json["not_confirmed"] = CountUnconfirmed(onus);
  Json failed = Json::array();
  for (const OnuReport* report : onus) {
    const ConfirmedOnu* confirmed = ConfirmedOf(*report);
    if (confirmed != nullptr && !confirmed->result.Ok()) {
      failed.push_back(OnuJson(*report));
    }
  }
  json["failed"] = std::move(failed);
  return json;
}

}  // namespace olt_host
