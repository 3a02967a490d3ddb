#include "vty/execute.h"

#include <algorithm>
#include <vector>

#include "onu_ability_common_global.h"
#include "vty/command_table.h"
#include "vty/place.h"

namespace olt_host {
namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kMostExpected = 8;
constexpr std::size_t kScreenWidth = 80;

// A word of the operator inside a message.
std::string Quote(const std::string& word) {
  const std::string shown =
      word.size() > kLongestQuote ? word.substr(0, kLongestQuote) + "..." : word;
  return "\"" + Printable(shown) + "\"";
}

std::string List(const std::vector<std::string>& texts) {
  std::string list;
  for (std::size_t i = 0; i < texts.size() && i < kMostExpected; ++i) {
    list += (i == 0 ? "" : ", ") + texts[i];
  }
  return texts.size() > kMostExpected ? list + ", ..." : list;
}

// <value> and <onutype_code> as the figures they stand for.
std::string Ranges(const std::vector<std::string>& texts) {
  std::vector<std::string> ranges;
  for (const std::string& text : texts) {
    if (text == "<value>") {
      ranges.push_back("<0-4294967295>");
    } else {
      ranges.push_back(text == "<onutype_code>" ? "<0-65535>" : text);
    }
  }
  return List(ranges);
}

std::string Message(const Match& match, const std::vector<Word>& words) {
  const std::string word = match.word < words.size() ? Quote(words[match.word].text) : "the line";
  switch (match.outcome) {
    case MatchOutcome::kIncomplete:
      return "Command incomplete: expected " + List(match.expected);
    case MatchOutcome::kAmbiguous:
      return "Ambiguous command: " + word + " may be " + List(match.expected);
    case MatchOutcome::kNotANumber:
      return "Not a number: " + word + ", expected " + List(match.expected);
    case MatchOutcome::kOutOfRange:
      return "Number out of range: " + words[match.word].text.substr(0, kLongestQuote) +
             " is not in " + Ranges(match.expected);
    case MatchOutcome::kTooMany:
      return "Too many arguments";
    case MatchOutcome::kUnknown:
    case MatchOutcome::kMatched:
      break;
  }
  return match.word == 0 ? "Unknown command" : "Unknown command: expected " + List(match.expected);
}

void ShowError(struct vty& terminal, const LineEcho& echo, const std::string& line,
               std::size_t column, const std::string& message) {
  // A line that wrapped has no row under which a caret could stand.
  const bool caret_fits =
      echo.on_screen && DisplayWidth(echo.before) + DisplayWidth(line) < kScreenWidth;
  const std::string before = echo.on_screen && !caret_fits ? "  " : echo.before;
  const std::string text =
      (caret_fits ? CaretUnder(before, line, column) : LineWithCaret(before, line, column)) + "% " +
      message + "\r\n";
  terminal.Write(text.data(), text.size());
}

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

// Handlers take writable text, as main does.
unsigned int CallHandler(const Command& command, struct vty& terminal,
                         std::vector<std::string>& arguments) {
  std::vector<char*> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  return static_cast<unsigned int>(command.element->func(
      command.element, &terminal, static_cast<int>(arguments.size()), argv.data()));
}

}  // namespace

CommandResult ExecuteLine(struct vty& terminal, unsigned int node, const std::string& line,
                          const LineEcho& echo) {
  const LexedLine lexed = LexLine(line);
  if (!lexed.error.empty()) {
    ShowError(terminal, echo, line, lexed.error_column, lexed.error);
    return {CommandResult::kRefused, 0};
  }
  if (lexed.words.empty()) return {CommandResult::kBlank, 0};
  Match match = MatchWords(CommandTable::Instance().Commands(node), lexed.words);
  if (match.outcome != MatchOutcome::kMatched) {
    const bool at_end = match.word == lexed.words.size();
    // The end is one blank behind the last word, where more was expected.
    const std::size_t column = at_end ? lexed.words.back().end + 1 : lexed.words[match.word].column;
    ShowError(terminal, echo, line, column, Message(match, lexed.words));
    return {CommandResult::kRefused, 0};
  }
  const unsigned int status = CallHandler(*match.command, terminal, match.arguments);
  if (status == 0) return {CommandResult::kDone, 0};
  if (!echo.on_screen) {
    const std::string shown = echo.before + Printable(line) + "\r\n";
    terminal.Write(shown.data(), shown.size());
  }
  vty_out(&terminal, "%% Command failed: 0x%08x%s\r\n", status, Meaning(status));
  return {CommandResult::kFailed, status};
}

}  // namespace olt_host
