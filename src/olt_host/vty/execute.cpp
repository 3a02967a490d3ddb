#include "vty/execute.h"

#include <cstdio>
#include <optional>

#include "onu_ability_common_global.h"
#include "text/columns.h"
#include "text/wrapping.h"
#include "vty/command_table.h"
#include "vty/handler_call.h"
#include "vty/json_output.h"
#include "vty/match_message.h"
#include "vty/parsed_line.h"
#include "vty/place.h"

namespace olt_host {
namespace {

using Json = nlohmann::ordered_json;

// What is wrong with a line, and where; a command that was run and failed has no
// place.
struct Problem {
  std::string message;
  std::optional<std::size_t> column;  // in bytes from 0
};

const char* Meaning(unsigned int status) {
  switch (status) {
    case ONU_ABILITY_RET_NULL_PTR:
      return " (missing pointer or callback)";
    case ONU_ABILITY_RET_INVALID_PARAM:
      return " (invalid parameter)";
    case ONU_ABILITY_RET_OPERATE_FAILED:
      return " (operation refused)";
    case ONU_ABILITY_RET_NOT_FOUND:
      return " (not found)";
    default:
      return "";
  }
}

std::string FailureMessage(unsigned int status) {
  char number[16];
  std::snprintf(number, sizeof number, "0x%08x", status);
  return std::string("Command failed: ") + number + Meaning(status);
}

// The line as far as it has to be shown, with the caret.
std::string Place(const LineEcho& echo, const std::string& line, const Problem& problem) {
  if (!problem.column) return echo.on_screen ? "" : echo.before + Printable(line) + "\r\n";
  // A line that wrapped has no row under which a caret could stand.
  const bool caret_fits =
      echo.on_screen && DisplayWidth(echo.before) + DisplayWidth(line) < kScreenColumns;
  if (caret_fits) return CaretUnder(echo.before, line, *problem.column);
  return LineWithCaret(echo.on_screen ? "  " : echo.before, line, *problem.column);
}

// One operator's line on its way.
class LineRun {
 public:
  LineRun(struct vty& terminal, unsigned int node, const std::string& line, const LineEcho& echo)
      : _terminal(terminal), _line(line), _echo(echo), _parsed(ParseLine(node, line)) {}

  CommandResult Check() {
    if (_parsed.blank) return {CommandResult::kBlank, 0};
    Problem problem{_parsed.error, _parsed.error_column};
    if (problem.message.empty()) problem = AccessProblem();
    return problem.message.empty() ? CommandResult{CommandResult::kDone, 0} : Refuse(problem);
  }

  // REQUIRES: Check was kDone.
  CommandResult Run() {
    OutputFile file;
    if (Saves()) {
      const Filter& save = _parsed.filters.back();
      const std::string reason = file.Create(save.text);
      if (!reason.empty()) return Refuse({CannotSave(save.text, reason), save.text_column});
    }
    const HandlerResult result = CallHandler(_terminal, _parsed, file);
    if (!result.refusal.empty()) return Fail(result.refusal, result.status);
    if (result.status != 0) return Fail(FailureMessage(result.status), result.status);
    return file.created() ? Complete(file) : CommandResult{CommandResult::kDone, 0};
  }

 private:
  static std::string CannotSave(const std::string& file, const std::string& reason) {
    return "Cannot save to " + QuoteWord(file) + ": " + reason;
  }

  bool Saves() const {
    return !_parsed.filters.empty() && _parsed.filters.back().kind == FilterKind::kSave;
  }

  Problem AccessProblem() const {
    if (_terminal.settings().access == Access::kFull) return {};
    if (CommandTable::Instance().MayChange(*_parsed.match.command)) {
      return {"Read-only session: this command may change something", _parsed.column};
    }
    if (!Saves()) return {};
    return {"Read-only session: save writes a file", _parsed.filters.back().name_column};
  }

  CommandResult Complete(OutputFile& file) {
    const std::string reason = file.Complete();
    if (!reason.empty()) return Fail(CannotSave(file.name(), reason), 0);
    if (_parsed.wants_json) {
      WriteJson(_terminal, Json{{"saved", {{"file", file.name()}, {"bytes", file.bytes()}}}});
    } else {
      Show(Wrap("", std::to_string(file.bytes()) + " bytes written to " + Printable(file.name()),
                2));
    }
    return {CommandResult::kDone, 0};
  }

  CommandResult Refuse(const Problem& problem) {
    ShowProblem(problem);
    return {CommandResult::kRefused, 0};
  }

  CommandResult Fail(const std::string& message, unsigned int status) {
    ShowProblem({message, std::nullopt});
    return {CommandResult::kFailed, status};
  }

  void ShowProblem(const Problem& problem) {
    if (_parsed.wants_json) {
      Json error = {{"message", problem.message}};
      if (problem.column) error["column"] = CaretUnder("", _line, *problem.column).find('^') + 1;
      WriteJson(_terminal, Json{{"error", error}});
      return;
    }
    // Broken between words on a screen; elsewhere one line, for programs to look for.
    const std::string message = "% " + Printable(problem.message);
    Show(Place(_echo, _line, problem) +
         (_echo.on_screen ? Wrap("", message, 2) : message + "\r\n"));
  }

  void Show(const std::string& text) { _terminal.Write(text.data(), text.size()); }

  struct vty& _terminal;
  const std::string& _line;
  const LineEcho& _echo;
  const ParsedLine _parsed;
};

}  // namespace

CommandResult ExecuteLine(struct vty& terminal, unsigned int node, const std::string& line,
                          const LineEcho& echo) {
  LineRun run(terminal, node, line, echo);
  const CommandResult checked = run.Check();
  return checked.kind == CommandResult::kDone ? run.Run() : checked;
}

CommandResult CheckLine(struct vty& terminal, unsigned int node, const std::string& line,
                        const LineEcho& echo) {
  return LineRun(terminal, node, line, echo).Check();
}

}  // namespace olt_host
