#include "vty/builtin_commands.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "text/columns.h"
#include "text/number.h"
#include "text/wrapping.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/line_help.h"
#include "vty/match_message.h"
#include "vty/terminal.h"

namespace olt_host {
namespace {

void Show(struct vty& terminal, const std::string& text) {
  terminal.Write(text.data(), text.size());
}

std::string Listed(const Command& command) { return Wrap("  ", command.element->string, 6); }

int ListCommands(struct cmd_element*, struct vty* terminal, int, char**) {
  for (const Command& command : CommandTable::Instance().Commands(terminal->node())) {
    Show(*terminal, Listed(command));
  }
  return 0;
}

std::string InLowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// As much of a help line as fits `room` columns, with the place of `text` in it.
std::string Excerpt(const std::string& help, const std::string& text, std::size_t room) {
  if (DisplayWidth(help) <= room) return help;
  room -= 6;  // for the marks of the cuts
  const std::size_t found = InLowerCase(help).find(text);
  const std::size_t place = found == std::string::npos ? 0 : found;
  std::size_t start = place > room / 2 ? place - room / 2 : 0;
  const auto within = [&help](std::size_t at) {
    return at < help.size() && !StartsCharacter(help[at]);
  };
  while (within(start)) ++start;
  std::size_t end = std::min(help.size(), start + room);
  while (within(end)) --end;
  return (start > 0 ? "..." : "") + help.substr(start, end - start) +
         (end < help.size() ? "..." : "");
}

void CollectHelp(const std::vector<SyntaxNode>& items, std::vector<HelpLine>& lines) {
  for (const SyntaxNode& item : items) {
    if (item.kind == SyntaxNode::kToken) {
      lines.push_back({"      " + item.token.text, item.token.help});
    } else {
      CollectHelp(item.children, lines);
    }
  }
}

// The help of a command, a line a token.
std::string TokenHelp(const std::string& syntax, const std::string& doc, const std::string& text) {
  constexpr std::size_t kLeastRoom = 36;
  constexpr std::size_t kBesideToken = 5;  // the margins and the last column
  std::vector<HelpLine> lines;
  CollectHelp(ParseSyntax(syntax, doc).items, lines);
  std::size_t widest = 0;
  for (const HelpLine& line : lines) widest = std::max(widest, line.token.size());
  const std::size_t room =
      std::max(kLeastRoom, kScreenColumns - std::min(kScreenColumns, widest + kBesideToken));
  for (HelpLine& line : lines) line.help = Excerpt(line.help, text, room);
  return RenderHelp(lines);
}

// Letters count alike in both cases: help lines write names as they please.
int FindCommands(struct cmd_element*, struct vty* terminal, int, char** argv) {
  const std::string text = InLowerCase(argv[0]);
  bool found = false;
  for (const Command& command : CommandTable::Instance().Commands(terminal->node())) {
    const std::string doc = command.element->doc == nullptr ? "" : command.element->doc;
    const std::string syntax = command.element->string;
    if (InLowerCase(syntax).find(text) == std::string::npos &&
        InLowerCase(doc).find(text) == std::string::npos) {
      continue;
    }
    found = true;
    Show(*terminal, Listed(command) + TokenHelp(syntax, doc, text));
  }
  return found ? 0 : terminal->Refuse("No command mentions " + QuoteWord(argv[0]));
}

int ShowHelp(struct cmd_element* element, struct vty* terminal, int argc, char** argv) {
  Show(*terminal,
       "Keywords may be abbreviated as far as they stay unambiguous. On a terminal, ?\r\n"
       "tells what may stand at the cursor, TAB completes it, and the arrow keys\r\n"
       "recall earlier lines.\r\n"
       "\r\n"
       "  <value> <1-2>   a number, or one within the range\r\n"
       "  <string>        a word, or \"several words\" in double quotes\r\n"
       "  [a|b]           one of these\r\n"
       "  {...}*8         none to eight times\r\n"
       "  ! text          a remark\r\n"
       "\r\n"
       "Behind a command, its output may be filtered, several times over:\r\n"
       "\r\n"
       "  | include TEXT  only the lines that hold TEXT\r\n"
       "  | exclude TEXT  only the lines that do not\r\n"
       "  | begin TEXT    from the first line on that does\r\n"
       "  | section TEXT  only the sections that do\r\n"
       "  | count TEXT    the number of lines that do\r\n"
       "  | save FILE     into a new file\r\n"
       "\r\n"
       "The commands; \"find TEXT\" looks for a text in them and in their help:\r\n"
       "\r\n");
  return ListCommands(element, terminal, argc, argv);
}

int EndSession(struct cmd_element*, struct vty* terminal, int, char**) {
  terminal->Close();
  return 0;
}

unsigned int NumberOf(const char* argument) {
  unsigned int number = 0;
  ReadNumber(argument, number);
  return number;
}

int SetTerminalLength(struct cmd_element*, struct vty* terminal, int, char** argv) {
  terminal->settings().screen_length = NumberOf(argv[0]);
  return 0;
}

int SetExecTimeout(struct cmd_element*, struct vty* terminal, int argc, char** argv) {
  const unsigned int seconds = argc > 1 ? NumberOf(argv[1]) : 0;
  terminal->settings().exec_timeout =
      std::chrono::minutes(NumberOf(argv[0])) + std::chrono::seconds(seconds);
  return 0;
}

int ShowHistory(struct cmd_element*, struct vty* terminal, int argc, char** argv) {
  const std::deque<std::string>& history = terminal->settings().history;
  if (WantsJson(argc, argv)) {
    WriteJson(*terminal, {{"history", history}});
    return 0;
  }
  std::size_t number = 0;
  for (const std::string& line : history) {
    vty_out(terminal, "%5zu  %s\r\n", ++number, Printable(line).c_str());
  }
  return 0;
}

cmd_element commands[] = {
    {"list", ListCommands, "list the commands\r\n"},
    {"find <string>", FindCommands,
     "find commands by a text in their syntax or help\r\n"
     "the text, in capitals or not\r\n"},
    {"help", ShowHelp, "how to type commands, and their list\r\n"},
    {"exit", EndSession, "end the session\r\n"},
    {"quit", EndSession, "end the session\r\n"},
    {"terminal length <0-512>", SetTerminalLength,
     "settings of this session's terminal\r\n"
     "lines of output before the session waits for a key\r\n"
     "lines of the screen; 0: never wait\r\n"},
    {"exec-timeout <0-35791> {<0-59>}*1", SetExecTimeout,
     "how long this session may be idle before it is ended\r\n"
     "minutes; 0 without seconds: for ever\r\n"
     "seconds, besides the minutes\r\n"},
    {"show history {[json]}*1", ShowHistory,
     "show history\r\n"
     "lines that were typed in this session\r\n"
     "as a JSON document\r\n"},
};

}  // namespace

void InstallBuiltinCommands(unsigned int node) {
  CommandTable& table = CommandTable::Instance();
  for (const Command& command : table.Commands(node)) {
    if (command.element == &commands[0]) return;
  }
  for (cmd_element& element : commands) {
    install_element(node, &element);
    table.AllowReadOnly(&element);
  }
}

}  // namespace olt_host
