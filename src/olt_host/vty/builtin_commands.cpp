#include "vty/builtin_commands.h"

#include <sstream>
#include <string>

#include "vty/command_table.h"
#include "vty/terminal.h"

namespace olt_host {
namespace {

constexpr std::size_t kScreenWidth = 80;

// A syntax string, broken at blanks where it would not fit the screen.
std::string Listed(const char* syntax) {
  std::istringstream items(syntax);
  std::string text;
  std::string line = " ";
  for (std::string item; items >> item;) {
    if (line.size() + 1 + item.size() >= kScreenWidth) {
      text += line + "\r\n";
      line = "     ";
    }
    line += " " + item;
  }
  return text + line + "\r\n";
}

int ListCommands(struct cmd_element*, struct vty* terminal, int, char**) {
  for (const Command& command : CommandTable::Instance().Commands(terminal->node())) {
    vty_out(terminal, "%s", Listed(command.element->string).c_str());
  }
  return 0;
}

int ShowHelp(struct cmd_element* element, struct vty* terminal, int argc, char** argv) {
  vty_out(terminal,
          "Keywords may be abbreviated as far as they stay unambiguous. On a terminal,\r\n"
          "TAB completes them and the arrow keys recall earlier lines.\r\n"
          "\r\n"
          "  <value> <1-2>   a number, or one within the range\r\n"
          "  <string>        a word, or \"several words\" in double quotes\r\n"
          "  [a|b]           one of these\r\n"
          "  {...}*8         none to eight times\r\n"
          "  ! text          a remark\r\n"
          "\r\n");
  return ListCommands(element, terminal, argc, argv);
}

int EndSession(struct cmd_element*, struct vty* terminal, int, char**) {
  terminal->Close();
  return 0;
}

cmd_element list_cmd = {"list", ListCommands, "list the commands\r\n"};
cmd_element help_cmd = {"help", ShowHelp, "how to type commands, and their list\r\n"};
cmd_element exit_cmd = {"exit", EndSession, "end the session\r\n"};
cmd_element quit_cmd = {"quit", EndSession, "end the session\r\n"};

}  // namespace

void InstallBuiltinCommands(unsigned int node) {
  for (const Command& command : CommandTable::Instance().Commands(node)) {
    if (command.element == &list_cmd) return;
  }
  for (cmd_element* element : {&list_cmd, &help_cmd, &exit_cmd, &quit_cmd}) {
    install_element(node, element);
  }
}

}  // namespace olt_host
