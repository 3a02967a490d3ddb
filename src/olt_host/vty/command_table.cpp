#include "vty/command_table.h"

#include <algorithm>
#include <utility>

#include "vty/command_conflicts.h"

namespace olt_host {

CommandTable& CommandTable::Instance() {
  static CommandTable table;
  return table;
}

std::string CommandTable::Install(unsigned int node, cmd_element* element) {
  if (element == nullptr || element->string == nullptr || element->func == nullptr) {
    return "a command without a syntax string or a handler";
  }
  const std::string text = element->string;
  const Syntax syntax = ParseSyntax(text, element->doc == nullptr ? "" : element->doc);
  if (!syntax.error.empty()) {
    return "cannot read the syntax of a command: " + syntax.error + "\n  \"" + text + "\"\n   " +
           std::string(syntax.error_column, ' ') + "^";
  }
  Command command{element, BuildGrammar(syntax)};
  if (command.grammar.vertices.empty()) {
    return "the groups of a command repeat too much\n  \"" + text + "\"";
  }
  std::vector<Command>& commands = _commands[node];
  const bool known = std::any_of(commands.begin(), commands.end(), [element](const Command& other) {
    return other.element == element;
  });
  if (known) return "a command is installed twice\n  \"" + text + "\"";
  for (const Command& earlier : commands) {
    const std::string line = LineOfBoth(earlier.grammar, command.grammar);
    if (line.empty()) continue;
    return std::string("a line could mean two commands: ")
        .append(line)
        .append("\n  \"")
        .append(earlier.element->string)
        .append("\"\n  \"")
        .append(text)
        .append("\"");
  }
  commands.push_back(std::move(command));
  return "";
}

bool CommandTable::MayChange(const Command& command) const {
  const Grammar& grammar = command.grammar;
  return grammar.vertices.at(grammar.first.at(0)).token.text != "show" &&
         _read_only.count(command.element) == 0;
}

const std::vector<Command>& CommandTable::Commands(unsigned int node) const {
  static const std::vector<Command> kNone;
  const auto found = _commands.find(node);
  return found == _commands.end() ? kNone : found->second;
}

}  // namespace olt_host
