// lint catalogue: what is wrong with the catalogue and with what operators made of it.
#include <cstring>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "recognition/catalogue_lint.h"
#include "recognition/lint_json.h"
#include "recognition/lint_text.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

int LintLoaded(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const LintResult result = LintCatalogue(Host().catalogue.catalogue, Host().population.get());
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, LintJson(result));
  } else {
    const bool all = argc > 0 && std::strcmp(argv[argc - 1], "all") == 0;
    WriteLines(*vty, LintText(result, all, "\"lint catalogue all\" lists everything."));
  }
  return 0;
}

cmd_element lint_cmd = {"lint catalogue {[all|json]}*1", LintLoaded,
                        "find what is wrong\r\n"
                        "with the catalogue and what operators made of it\r\n"
                        "with all notes, not only counts\r\n"
                        "as a JSON document, with all notes\r\n"};

}  // namespace

void InstallLintCommands() {
  install_element(kCommandNode, &lint_cmd);
  CommandTable::Instance().AllowReadOnly(&lint_cmd);
}

}  // namespace olt_host
