// The framework's two installation calls, as the platform interface has them.
#include "platform/log_sink.h"
#include "vty/command_table.h"

int install_element(unsigned int node, struct cmd_element* element) {
  olt_host::CommandTable& table = olt_host::CommandTable::Instance();
  const std::string refusal = table.Install(node, element);
  if (refusal.empty()) return 0;
  olt_host::LogHostLine(0, "node " + std::to_string(node) + ": " + refusal);
  table.NoteRefusal(refusal);
  return 1;
}

// Modules are installed as they come: nothing of this host has to be there
// before a command is.
int cl_install_module(const char* name, int (*install)(void), int (*showrun)(void)) {
  if (name == nullptr || install == nullptr) {
    olt_host::LogHostLine(0, "a module without a name or an installation function");
    return 1;
  }
  olt_host::CommandTable::Instance().AddModule({name, showrun});
  return install();
}
