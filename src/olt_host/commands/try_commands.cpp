// try, try commit, try drop, and try before every command that changes the library.
#include <algorithm>
#include <deque>
#include <sstream>
#include <string>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/onu_argument.h"
#include "commands/text_table.h"
#include "commands/trial_output.h"
#include "commands/tried_change.h"
#include "session/command_thread.h"
#include "vty/command_table.h"
#include "vty/json_output.h"
#include "vty/syntax.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

// A command that changes the library, offered with "try" before it. The framework keeps
// pointers to the record.
struct TriedCommand {
  cmd_element element;
  cmd_element* original;
  std::string syntax;
  std::string help;
  int fixed_arguments = 0;  // those that are always there
};

std::deque<TriedCommand>& TriedCommands() {
  static std::deque<TriedCommand> commands;
  return commands;
}

std::string Refused(const std::string& reason) { return "Nothing is tried: " + reason; }

// Why nothing can be tried now; empty when it can.
std::string Obstacle(const TriedChange* tried) {
  if (Host().population == nullptr) return NoOnus();
  if (Host().unconfirmed.Waits()) {
    return Refused(WaitingText() + "; confirm it, or \"try drop\" takes it back");
  }
  if (tried != nullptr && !tried->StillFits()) {
    return Refused(
        "the library or your pending profile changed since you tried the first line; "
        "\"try drop\" forgets the " +
        LinesText(tried->lines) + " tried before");
  }
  return "";
}

// What one tried command did, beside its change.
struct Answer {
  std::string text;
  std::string refusal;
  int status = 0;
};

const TriedCommand& TriedCommandOf(const cmd_element* element) {
  return *std::find_if(TriedCommands().begin(), TriedCommands().end(),
                       [element](const TriedCommand& tried) { return &tried.element == element; });
}

bool RunOriginal(cmd_element* original, struct vty& terminal, int argc, char** argv,
                 Answer& answer) {
  // Put back also when the command throws.
  struct Redirection {
    struct vty& terminal;
    vty::Sink sink;
    ~Redirection() { terminal.Redirect(sink); }
  } redirection{terminal, terminal.Redirect([&answer](const char* bytes, std::size_t length) {
                  answer.text.append(bytes, length);
                  return true;
                })};
  answer.status = original->func(original, &terminal, argc, argv);
  answer.refusal = terminal.TakeRefusal();
  return answer.status == 0 && answer.refusal.empty();
}

int TryCommand(cmd_element* element, struct vty* vty, int argc, char** argv) {
  std::shared_ptr<TriedChange>& tried = vty->settings().tried_change;
  const std::string obstacle = Obstacle(tried.get());
  if (!obstacle.empty()) return vty->Refuse(obstacle);
  const TriedCommand& command = TriedCommandOf(element);
  // A last argument that is always there may be a name "json".
  const bool wants_json = argc > command.fixed_arguments && WantsJson(argc, argv);
  const int arguments = wants_json ? argc - 1 : argc;
  Answer answer;
  const auto next = Try(tried.get(), {Host().population}, [&] {
    return RunOriginal(command.original, *vty, arguments, argv, answer);
  });
  if (!wants_json) vty->Write(answer.text.data(), answer.text.size());
  if (next == nullptr) {
    if (!answer.refusal.empty()) vty->Refuse(answer.refusal);
    return answer.status;
  }
  tried = next;
  if (wants_json) {
    WriteTrialJson(*vty, *tried, answer.text);
  } else {
    WriteTrial(*vty, *tried);
  }
  return 0;
}

int ShowTrial(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const TriedChange* const tried = vty->settings().tried_change.get();
  (WantsJson(argc, argv) ? WriteTrialStateJson : WriteTrialState)(*vty, tried);
  return 0;
}

std::string MakerOf(const struct vty& terminal) {
  const SessionSettings& settings = terminal.settings();
  const std::string user = settings.user.empty() ? "an operator" : settings.user;
  return settings.number == 0 ? user : user + " (session " + std::to_string(settings.number) + ")";
}

UnconfirmedChange::Time DeadlineIn(unsigned int minutes) {
  return Host().clock() + std::chrono::minutes(minutes);
}

void Schedule() {
  if (Host().commands != nullptr) {
    Host().commands->CallAt(Host().unconfirmed.deadline(), GoBackWhenDue);
  }
}

// `minutes` is 0 for good.
int CommitWaiting(struct vty& terminal, unsigned int minutes) {
  UnconfirmedChange& unconfirmed = Host().unconfirmed;
  if (minutes == 0) {
    unconfirmed.Confirm();
    WriteLines(terminal, "Confirmed: " + unconfirmed.end() + "\n");
    return 0;
  }
  unconfirmed.Extend(DeadlineIn(minutes));
  Schedule();
  WriteLines(terminal, "Now " + WaitingText() + "\n");
  return 0;
}

int CommitTried(struct vty& terminal, unsigned int minutes) {
  std::shared_ptr<TriedChange>& tried = terminal.settings().tried_change;
  if (tried == nullptr) {
    const std::string end = Host().unconfirmed.end();
    return terminal.Refuse("Nothing is tried that could be committed" +
                           (end.empty() ? "" : "; last, " + end));
  }
  if (!tried->StillFits()) {
    return terminal.Refuse(
        "Nothing is committed: the library or your pending profile changed since you tried the "
        "first line; \"try drop\" forgets what was tried, then try again");
  }
  UnconfirmedChange before = Host().unconfirmed;
  if (minutes != 0) before.Begin(MakerOf(terminal), DeadlineIn(minutes));
  Make(*tried);
  Host().unconfirmed = before;
  WriteLines(terminal,
             "Committed " + LinesText(tried->lines) + "; \"confirm all\" lets the ONUs follow\n");
  tried.reset();
  if (minutes == 0) return 0;
  Schedule();
  WriteLines(terminal, "Now " + WaitingText() + "\n");
  return 0;
}

int Commit(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const unsigned int minutes = argc == 0 ? 0 : static_cast<unsigned int>(std::stoul(argv[0]));
  return Host().unconfirmed.Waits() ? CommitWaiting(*vty, minutes) : CommitTried(*vty, minutes);
}

int Drop(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** /*argv*/) {
  std::shared_ptr<TriedChange>& tried = vty->settings().tried_change;
  UnconfirmedChange& unconfirmed = Host().unconfirmed;
  if (tried == nullptr && !unconfirmed.Waits()) {
    return vty->Refuse("Nothing is tried, and no change waits to be confirmed");
  }
  if (tried != nullptr) {
    WriteLines(*vty, "Forgot " + LinesText(tried->lines) + "\n");
    tried.reset();
  } else {
    unconfirmed.GoBack();
    WriteLines(*vty, "Gone back: " + unconfirmed.end() + "\n");
  }
  return 0;
}

std::size_t CountTokens(const std::vector<SyntaxNode>& nodes) {
  std::size_t count = 0;
  for (const SyntaxNode& node : nodes) {
    count += node.kind == SyntaxNode::kToken ? 1 : CountTokens(node.children);
  }
  return count;
}

int CountFixedArguments(const std::vector<SyntaxNode>& nodes) {
  return static_cast<int>(std::count_if(nodes.begin(), nodes.end(), [](const SyntaxNode& node) {
    return node.kind == SyntaxNode::kChoice ||
           (node.kind == SyntaxNode::kToken && node.token.is_argument);
  }));
}

// The help of the original, a line for each of its tokens, between those of "try" and
// "json".
std::string HelpFor(const cmd_element& original, const Syntax& syntax) {
  std::string help = "what a change would do to the live ONUs\r\n";
  std::istringstream lines(original.doc);
  for (std::size_t token = CountTokens(syntax.items); token > 0; --token) {
    std::string line;
    std::getline(lines, line);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    help += line + "\r\n";
  }
  return help + "as a JSON document\r\n";
}

bool ChangesLibrary(const cmd_element& command) {
  const std::string syntax = command.string;
  const std::string word = syntax.substr(0, syntax.find(' '));
  return word == "add" || word == "set" || word == "apply" || word == "del" || word == "update";
}

void InstallTried(cmd_element* original) {
  TriedCommand& tried = TriedCommands().emplace_back();
  tried.original = original;
  tried.syntax = "try " + std::string(original->string);
  tried.syntax.erase(tried.syntax.find_last_not_of(' ') + 1);
  tried.syntax += " {[json]}*1";
  const Syntax syntax = ParseSyntax(original->string, original->doc);
  tried.help = HelpFor(*original, syntax);
  tried.fixed_arguments = CountFixedArguments(syntax.items);
  tried.element = {tried.syntax.c_str(), TryCommand, tried.help.c_str()};
  install_element(kCommandNode, &tried.element);
}

cmd_element try_cmd = {"try {[json]}*1", ShowTrial,
                       "what a change would do to the live ONUs\r\n"
                       "as a JSON document\r\n"};

cmd_element try_commit_cmd = {"try commit", Commit,
                              "what a change would do to the live ONUs\r\n"
                              "make what was tried, or confirm what waits for it\r\n"};

cmd_element try_commit_confirmed_cmd = {
    "try commit confirmed <1-1440>", Commit,
    "what a change would do to the live ONUs\r\n"
    "make what was tried, or confirm what waits for it\r\n"
    "make it for a while: it goes back unless committed again\r\n"
    "minutes\r\n"};

cmd_element try_drop_cmd = {"try drop", Drop,
                            "what a change would do to the live ONUs\r\n"
                            "forget what was tried, or take back what waits\r\n"};

}  // namespace

void InstallTryCommands() {
  std::vector<cmd_element*> originals;
  for (const Command& command : CommandTable::Instance().Commands(kCommandNode)) {
    if (ChangesLibrary(*command.element)) originals.push_back(command.element);
  }
  for (cmd_element* original : originals) InstallTried(original);
  for (cmd_element* command :
       {&try_cmd, &try_commit_cmd, &try_commit_confirmed_cmd, &try_drop_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
