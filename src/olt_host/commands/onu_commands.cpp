// The commands about the live ONUs.
#include <algorithm>
#include <cstdlib>
#include <set>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/live_onus.h"
#include "commands/onu_argument.h"
#include "commands/onu_binding.h"
#include "commands/onu_listing.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

void ShowOnus(struct vty& terminal, const OnuReports& onus, bool json) {
  if (!json) {
    WriteOnuTable(terminal, onus);
    return;
  }
  Json list = Json::array();
  for (const OnuReport* report : onus) {
    list.push_back(OnuJson(*report));
  }
  WriteJson(terminal, {{"onus", list}});
}

template <typename Condition>
OnuReports LiveOnusThat(const Condition& holds) {
  OnuReports onus = LiveOnus();
  onus.erase(std::remove_if(onus.begin(), onus.end(),
                            [&holds](const OnuReport* report) { return !holds(*report); }),
             onus.end());
  return onus;
}

int ShowAllOnus(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  ShowOnus(*vty, LiveOnus(), WantsJson(argc, argv));
  return 0;
}

int ShowOnusOfPlace(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const auto place = static_cast<std::uint16_t>(std::strtoul(argv[0], nullptr, 10));
  const OnuReports onus =
      LiveOnusThat([place](const OnuReport& report) { return report.place == place; });
  if (onus.empty()) {
    return vty->Refuse(UnknownOnu(place, std::nullopt));
  }
  ShowOnus(*vty, onus, WantsJson(argc, argv));
  return 0;
}

int ShowOneOnu(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const OnuReport* report = FindOnuArgument(*vty, argv);
  if (report == nullptr) {
    return -1;
  }
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, OnuDetailsJson(*report));
  } else {
    WriteOnuDetails(*vty, *report);
  }
  return 0;
}

int ShowSelectedOnus(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const std::string kind = argv[0];
  const OnuReports onus = LiveOnusThat([&kind](const OnuReport& report) {
    const ConfirmedOnu* confirmed = ConfirmedOf(report);
    if (confirmed == nullptr) {
      return kind == "unconfirmed";
    }
    return kind == "unrecognised" ? confirmed->result.how == Recognition::kNone
                                  : kind == "failed" && !confirmed->result.Ok();
  });
  ShowOnus(*vty, onus, WantsJson(argc, argv));
  return 0;
}

int ShowOnuSummary(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, OnuSummaryJson(LiveOnus()));
  } else {
    WriteOnuSummary(*vty, LiveOnus());
  }
  return 0;
}

int ConfirmOneOnu(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** argv) {
  const OnuReport* report = FindOnuArgument(*vty, argv);
  if (report == nullptr) {
    return -1;
  }
  ConfirmLiveOnu(*report);
  WriteOnuTable(*vty, {report});
  return 0;
}

int ConfirmAllOnus(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** /*argv*/) {
  const OnuReports onus = LiveOnus();
  if (onus.empty()) {
    return vty->Refuse(NoOnus());
  }
  for (const OnuReport* report : onus) {
    ConfirmLiveOnu(*report);
  }
  WriteOnuSummary(*vty, onus);
  return 0;
}

#define SHOW_ONU_HELP            \
  "show what the host holds\r\n" \
  "ONUs and what became of them\r\n"
#define ONU_HELP         \
  "place of the ONU\r\n" \
  "number of the ONU\r\n"
#define JSON_HELP "as a JSON document\r\n"

cmd_element show_all_cmd = {"show onu {[json]}*1", ShowAllOnus, SHOW_ONU_HELP JSON_HELP};

cmd_element show_place_cmd = {"show onu <0-65535> {[json]}*1", ShowOnusOfPlace,
                              SHOW_ONU_HELP "place of the ONU\r\n" JSON_HELP};

cmd_element show_one_cmd = {"show onu <0-65535> <0-255> {[json]}*1", ShowOneOnu,
                            SHOW_ONU_HELP ONU_HELP JSON_HELP};

cmd_element show_selected_cmd = {"show onu [unrecognised|failed|unconfirmed] {[json]}*1",
                                 ShowSelectedOnus,
                                 SHOW_ONU_HELP
                                 "confirmed, but nothing recognised them\r\n"
                                 "confirmed, but not as expected\r\n"
                                 "not confirmed yet\r\n" JSON_HELP};

cmd_element show_summary_cmd = {"show onu summary {[json]}*1", ShowOnuSummary,
                                SHOW_ONU_HELP "counts, and what is not as expected\r\n" JSON_HELP};

cmd_element confirm_one_cmd = {"confirm onu <0-65535> <0-255>", ConfirmOneOnu,
                               "confirm the type of ONUs\r\n"
                               "one ONU\r\n" ONU_HELP};

cmd_element confirm_all_cmd = {"confirm all", ConfirmAllOnus,
                               "confirm the type of ONUs\r\n"
                               "all ONUs\r\n"};

cmd_element bind_cmd = {"bind onu <0-65535> <0-255>", BindOnu,
                        "raise the bind count of an operator's real profile\r\n"
                        "the real profile of a confirmed ONU\r\n" ONU_HELP};

cmd_element unbind_cmd = {"unbind onu <0-65535> <0-255>", UnbindOnu,
                          "lower the bind count of an operator's real profile\r\n"
                          "the real profile of a confirmed ONU\r\n" ONU_HELP};

}  // namespace

void InstallOnuCommands() {
  for (cmd_element* command :
       {&show_all_cmd, &show_place_cmd, &show_one_cmd, &show_selected_cmd, &show_summary_cmd,
        &confirm_one_cmd, &confirm_all_cmd, &bind_cmd, &unbind_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
