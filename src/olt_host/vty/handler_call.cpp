#include "vty/handler_call.h"

#include <exception>
#include <utility>
#include <vector>

#include "vty/command_table.h"
#include "vty/execute.h"
#include "vty/output_filter.h"

namespace olt_host {
namespace {

CommandObserver& Observer() {
  static CommandObserver observer;
  return observer;
}

// Handlers take writable text, as main does. An exception ends the command and not
// the host.
HandlerResult Call(struct vty& terminal, const Match& match) {
  std::vector<std::string> arguments = match.arguments;
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  HandlerResult result;
  try {
    result.status = static_cast<unsigned int>(match.command->element->func(
        match.command->element, &terminal, static_cast<int>(arguments.size()), argv.data()));
    result.refusal = terminal.TakeRefusal();
  } catch (const std::exception& failure) {
    terminal.TakeRefusal();
    result.refusal = std::string("Command failed: ") + failure.what();
  }
  return result;
}

HandlerResult CallFiltered(struct vty& terminal, const ParsedLine& line, OutputFile& file) {
  vty::Sink to_terminal;
  OutputFilters filters(line.filters, [&](const std::string& text) {
    if (file.created()) return file.WriteLine(text);
    return to_terminal(text.data(), text.size()) && to_terminal("\r\n", 2);
  });
  to_terminal = terminal.Redirect([&](const char* bytes, std::size_t length) {
    // A file that cannot be written is told of at the end; the operator is still there.
    return filters.Write(bytes, length) || file.created();
  });
  HandlerResult result = Call(terminal, line.match);
  filters.Finish();
  terminal.Redirect(to_terminal);
  return result;
}

}  // namespace

HandlerResult CallHandler(struct vty& terminal, const ParsedLine& line, OutputFile& file) {
  const bool may_change = CommandTable::Instance().MayChange(*line.match.command);
  if (Observer().before) Observer().before(terminal);
  terminal.TakeRefusal();  // nobody's any more
  HandlerResult result =
      line.filters.empty() ? Call(terminal, line.match) : CallFiltered(terminal, line, file);
  if (Observer().after) Observer().after(terminal, may_change);
  const std::string refusal = terminal.TakeRefusal();
  if (!refusal.empty()) result.refusal += (result.refusal.empty() ? "" : "; ") + refusal;
  return result;
}

void ObserveCommands(CommandObserver observer) { Observer() = std::move(observer); }

}  // namespace olt_host
