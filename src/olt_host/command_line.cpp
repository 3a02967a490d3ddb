#include "command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

#include "exit_status.h"

namespace olt_host {

namespace {

const char* const kExitStatusHelp =
    "Exit status:\n"
    "  0  every report that states an expectation got it\n"
    "  1  some did not\n"
    "  2  bad usage or bad input; one message on standard error says where\n";

// One level, 0 to 31.
std::optional<unsigned int> ParseLevel(const std::string& text) {
  if (text.empty() || text.size() > 2 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    return std::nullopt;
  }
  const auto level = static_cast<unsigned int>(std::stoul(text));
  return level < 32 ? std::optional(level) : std::nullopt;
}

void AddLogOptions(CLI::App& command, CommandLine& result) {
  command.add_option("--log", result.log.file, "Add log lines to FILE, not to standard error")
      ->type_name("FILE");
  command
      .add_option_function<std::string>(
          "--log-levels",
          [&result](const std::string& text) {
            const auto mask = ParseLogLevels(text);
            if (!mask) {
              throw CLI::ValidationError(
                  "--log-levels", "\"" + text + "\" is no list of levels; expected 0,1,13 or all");
            }
            result.log.mask = *mask;
          },
          "Levels to log, 0 to 31: a list or all (default 0,13)")
      ->type_name("LEVELS");
}

void AddCatalogue(CLI::App& command, CommandLine& result) {
  command.add_option("CATALOGUE", result.catalogue, "Catalogue of ONU models (YAML)")
      ->required()
      ->type_name("FILE");
}

CLI::App* AddConfirm(CLI::App& app, CommandLine& result) {
  CLI::App* confirm = app.add_subcommand("confirm", "Confirm the types of a population of ONUs");
  AddCatalogue(*confirm, result);
  confirm->add_option("REPORTS", result.reports, "What the ONUs report (YAML)")
      ->required()
      ->type_name("FILE");
  CLI::Option* json = confirm->add_flag_callback(
      "--json", [&result] { result.format = OutputFormat::kJson; }, "Print one JSON document");
  CLI::Option* csv = confirm->add_flag_callback(
      "--csv", [&result] { result.format = OutputFormat::kCsv; },
      "Print comma-separated values, an ONU a line");
  CLI::Option* summary = confirm->add_flag("--summary", result.summary_only,
                                           "Print the summary only, without the ONUs");
  json->excludes(csv);
  csv->excludes(json);
  csv->excludes(summary);
  summary->excludes(csv);
  AddLogOptions(*confirm, result);
  confirm->footer(std::string("Columns of the table: the ONU, its vendor identifier, the type it "
                              "reported and\nwhat the identify mode makes of that, its real type "
                              "and type name, what it\nwas recognised by (its reported type or its "
                              "abilities), whether that is as\nexpected.\n\n") +
                  kExitStatusHelp);
  return confirm;
}

CLI::App* AddConsole(CLI::App& app, CommandLine& result) {
  CLI::App* console =
      app.add_subcommand("console", "Open the operator's command line on a catalogue");
  AddCatalogue(*console, result);
  console->add_option("REPORTS", result.reports, "What the ONUs report (YAML): confirmed first")
      ->type_name("FILE");
  AddLogOptions(*console, result);
  // A listing alone refuses every profile of another source with a line of level
  // 0: unasked for, such lines would drown what the operator's command printed.
  console->callback([console, &result] {
    if (console->count("--log") == 0 && console->count("--log-levels") == 0) {
      result.log.mask = 0;
    }
  });
  console->footer(
      "Commands come from standard input: with line editing, history and completion\n"
      "on a terminal, else a command a line. Type \"help\" for the commands, \"exit\"\n"
      "to leave. Nothing is logged unless --log or --log-levels asks for it.\n\n"
      "Exit status:\n"
      "  0  done\n"
      "  1  a command of a piped input failed\n"
      "  2  bad usage or bad input; one message on standard error says where\n");
  return console;
}

// What is wrong, in words; CLI11 does not look at a word that is no command.
std::string Problem(const CLI::App& app, const CLI::ParseError& error, int argc,
                    const char* const* argv) {
  if (!app.get_subcommands().empty() || error.get_name() != "RequiredError") {
    return error.what();
  }
  return argc < 2 ? "a command is missing; expected confirm or console"
                  : "\"" + std::string(argv[1]) + "\" is no command; expected confirm or console";
}

// CLI11 has a status for each kind of error; here every bad usage has one.
int ReportParseResult(const CLI::App& app, const CLI::ParseError& error, int argc,
                      const char* const* argv) {
  if (error.get_exit_code() == 0) {
    return app.exit(error);
  }
  std::cerr << "olt_host: " << Problem(app, error, argc, argv) << " (see olt_host --help)\n";
  return kExitBadInput;
}

}  // namespace

std::optional<unsigned int> ParseLogLevels(const std::string& text) {
  if (text == "all") {
    return 0xFFFFFFFFU;
  }
  unsigned int mask = 0;
  std::istringstream list(text);
  for (std::string item; std::getline(list, item, ',');) {
    const auto level = ParseLevel(item);
    if (!level) {
      return std::nullopt;
    }
    mask |= 1U << *level;
  }
  const bool complete = !text.empty() && text.back() != ',';
  return complete ? std::optional(mask) : std::nullopt;
}

ParsedCommandLine ParseCommandLine(int argc, const char* const* argv) {
  CommandLine result;
  CLI::App app(
      "olt_host confirms the types of ONUs from what they report, and lets an operator\n"
      "inspect and edit the catalogue of ONU models that this rests on.",
      "olt_host");
  app.set_version_flag("--version", "olt_host " OLT_HOST_VERSION);
  app.require_subcommand(1);
  app.get_formatter()->column_width(26);
  app.footer("\"olt_host COMMAND --help\" tells more about a command.");
  AddConfirm(app, result);
  const CLI::App* console = AddConsole(app, result);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return {std::nullopt, ReportParseResult(app, error, argc, argv)};
  }
  result.job = console->parsed() ? Job::kConsole : Job::kConfirm;
  return {result, kExitOk};
}

}  // namespace olt_host
