// show statistics, clear statistics: what the host counted.
#include <cstring>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/statistics_output.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

int ShowStatistics(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const StatisticsReport report = ReportStatistics();
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, StatisticsJson(report));
  } else {
    WriteStatistics(*vty, report, argc > 0 && std::strcmp(argv[0], "all") == 0);
  }
  return 0;
}

int ClearStatistics(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** /*argv*/) {
  Host().statistics.Clear(std::chrono::system_clock::now());
  vty_out(vty, "Counting begins anew\r\n");
  return 0;
}

cmd_element show_cmd = {"show statistics {[all|json]}*1", ShowStatistics,
                        "show what the host holds\r\n"
                        "confirmations, and how often each match profile won\r\n"
                        "every match profile, also those that never won\r\n"
                        "as a JSON document, with every match profile\r\n"};

cmd_element clear_cmd = {"clear statistics", ClearStatistics,
                         "begin to count anew\r\n"
                         "what show statistics shows\r\n"};

}  // namespace

void InstallStatisticsCommands() {
  install_element(kCommandNode, &show_cmd);
  install_element(kCommandNode, &clear_cmd);
}

}  // namespace olt_host
