// show onu unknown: the inbox of the unknown.
#include <cstring>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/unknown_output.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

int ShowUnknownOnus(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, UnknownOnusJson());
  } else {
    const bool all = argc > 0 && std::strcmp(argv[argc - 1], "all") == 0;
    WriteUnknownOnus(*vty, all, "\"show onu unknown all\" shows them");
  }
  return 0;
}

cmd_element show_unknown_cmd = {"show onu unknown {[all|json]}*1", ShowUnknownOnus,
                                "show what the host holds\r\n"
                                "ONUs and what became of them\r\n"
                                "unrecognised or by luck, by what they report, with entries to "
                                "paste\r\n"
                                "every group, not only the largest\r\n"
                                "as a JSON document, with every group\r\n"};

}  // namespace

void InstallUnknownCommands() { install_element(kCommandNode, &show_unknown_cmd); }

}  // namespace olt_host
