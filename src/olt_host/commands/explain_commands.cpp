// explain onu: why a live ONU is confirmed as what it is.
#include <cstring>

#include "commands/explanation_output.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/onu_argument.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

int ExplainOnu(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const OnuReport* report = FindOnuArgument(*vty, argv);
  if (report == nullptr) return -1;
  const Explanation explanation = ExplainLiveOnu(*report);
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, ExplanationJson(explanation));
  } else {
    WriteExplanation(*vty, explanation, argc > 2 && std::strcmp(argv[2], "all") == 0);
  }
  return 0;
}

cmd_element explain_cmd = {"explain onu <0-65535> <0-255> {[all|json]}*1", ExplainOnu,
                           "say why something is as it is\r\n"
                           "why an ONU is recognised as what it is\r\n"
                           "place of the ONU\r\n"
                           "number of the ONU\r\n"
                           "every match profile, not only the nearest\r\n"
                           "as a JSON document, with every match profile\r\n"};

}  // namespace

void InstallExplainCommands() {
  install_element(kCommandNode, &explain_cmd);
  CommandTable::Instance().AllowReadOnly(&explain_cmd);
}

}  // namespace olt_host
