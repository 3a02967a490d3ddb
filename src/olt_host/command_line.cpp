#include "command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "capture_command_line.h"
#include "command_options.h"
#include "diff_command_line.h"
#include "exit_status.h"
#include "explain_command_line.h"
#include "generate_command_line.h"
#include "lint_command_line.h"
#include "network_command_line.h"
#include "types_command_line.h"
#include "unknown_command_line.h"

namespace olt_host {

namespace {

void AddServingOptions(CLI::App& command, CommandLine& result) {
  ServingOptions& serving = result.serving;
  command.add_option("--socket", serving.socket, "Take operators on a Unix socket, see attach")
      ->type_name("PATH");
  command
      .add_option("--listen", serving.listen, "Take operators by telnet, on 127.0.0.1 unless told")
      ->type_name("[HOST:]PORT");
  command
      .add_option("--passwords", serving.passwords,
                  "Who may log in by telnet; a must beyond loopback")
      ->type_name("FILE");
  command
      .add_option("--metrics", serving.metrics,
                  "Answer GET /metrics on a Unix socket, for monitoring")
      ->type_name("PATH");
  command.add_option("--sessions", serving.limits.sessions, "Most sessions at once (default 16)")
      ->check(CLI::Range(1, 1000))
      ->type_name("N");
  command
      .add_option_function<unsigned int>(
          "--exec-timeout",
          [&serving](unsigned int minutes) {
            serving.limits.exec_timeout = std::chrono::minutes(minutes);
          },
          "End idle sessions after so long, 0 never (default 10)")
      ->check(CLI::Range(0, 35791))
      ->type_name("MINUTES");
}

CLI::App* AddConfirm(CLI::App& app, CommandLine& result) {
  CLI::App* confirm = app.add_subcommand("confirm", "Confirm the types of a population of ONUs");
  AddCatalogue(*confirm, result, true);
  AddReports(*confirm, result, true);
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
  AddCatalogueOptions(*confirm, result);
  AddShardOption(*confirm, result);
  AddWorkerOptions(*confirm, result);
  AddLogOptions(*confirm, result);
  confirm->callback([confirm, &result] {
    // A line for each of very many ONUs is not what anybody waits for.
    if (!IsJsonLines(result.reports) || !result.olt.empty()) return;
    if (confirm->count("--log") == 0 && confirm->count("--log-levels") == 0) result.log.mask = 0;
  });
  confirm->footer(
      "Columns of the table: the ONU, its vendor identifier, the type it reported and\n"
      "what the identify mode makes of that, its real type and type name, what it\n"
      "was recognised by (its reported type or its abilities), whether that is as\n"
      "expected.\n\n"
      "REPORTS that end in .jsonl, or - for standard input, are JSON lines: an ONU a\n"
      "line, of a network of any size. Of these, the summary is printed, or with --csv\n"
      "the ONUs alone; --json prints what merge adds up.\n\n"
      "Exit status:\n"
      "  0  every report that states an expectation got it\n"
      "  1  some did not\n"
      "  2  bad usage or bad input; one message on standard error says where; or lines\n"
      "     of JSON that were left out\n");
  return confirm;
}

CLI::App* AddConsole(CLI::App& app, CommandLine& result) {
  CLI::App* console = app.add_subcommand("console", "Open the operator's command line");
  AddLoadingOptions(*console, result);
  AddServingOptions(*console, result);
  LogOnlyWhenAsked(*console, result);
  console->footer(
      "Commands come from standard input: with line editing, history, help and\n"
      "completion on a terminal, else a command a line. Type \"help\" for the\n"
      "commands, \"exit\" to leave. The ONUs of REPORTS are confirmed first.\n\n"
      "Exit status:\n"
      "  0  done\n"
      "  1  a command of a piped input failed\n"
      "  2  bad usage or bad input; one message on standard error says where\n");
  return console;
}

CLI::App* AddServe(CLI::App& app, CommandLine& result) {
  CLI::App* serve = app.add_subcommand("serve", "Let operators in by socket and telnet only");
  AddLoadingOptions(*serve, result);
  AddServingOptions(*serve, result);
  serve->footer("Runs until it is told to stop: SIGINT, SIGTERM or SIGHUP.");
  return serve;
}

CLI::App* AddRun(CLI::App& app, CommandLine& result) {
  CLI::App* run = app.add_subcommand("run", "Run operator commands and end");
  AddLoadingOptions(*run, result);
  CLI::Option* commands = run->add_option("-c", result.commands, "A command; repeatable")
                              ->type_name("COMMAND")
                              ->allow_extra_args(false);
  CLI::Option* files = run->add_option("-f", result.command_files,
                                       "A file of commands, - for standard input; repeatable")
                           ->type_name("FILE")
                           ->allow_extra_args(false);
  commands->excludes(files);
  files->excludes(commands);
  run->add_flag("--check", result.check_only, "Only say which lines are wrong; run nothing");
  LogOnlyWhenAsked(*run, result);
  run->footer(
      "Errors stand behind \"line N:\". The lines after a wrong one are run all the same.\n"
      "The ONUs of REPORTS are confirmed first.\n\n"
      "Exit status:\n"
      "  0  every command succeeded\n"
      "  1  some did not\n"
      "  2  bad usage or bad input; one message on standard error says where\n");
  return run;
}

CLI::App* AddAttach(CLI::App& app, CommandLine& result) {
  CLI::App* attach = app.add_subcommand("attach", "Open the command line of a serving olt_host");
  attach->add_option("SOCKET", result.attach_socket, "Its --socket")->required()->type_name("PATH");
  return attach;
}

CLI::App* AddPassword(CLI::App& app, CommandLine& result) {
  CLI::App* password =
      app.add_subcommand("password", "Ask for a password, print a line for a password file");
  password->add_option("USER", result.user, "Name to log in with")->required()->type_name("NAME");
  password->add_flag_callback(
      "--read-only", [&result] { result.access = Access::kReadOnly; },
      "The user may look, not change");
  return password;
}

// "confirm, console or run": the commands that there are.
std::string JobNames(const CLI::App& app) {
  const std::vector<const CLI::App*> jobs =
      app.get_subcommands([](const CLI::App*) { return true; });
  std::string names;
  for (const CLI::App* job : jobs) {
    const bool is_last = job == jobs.back();
    names += (names.empty() ? "" : is_last ? " or " : ", ") + job->get_name();
  }
  return names;
}

// What is wrong, in words; CLI11 does not look at a word that is no command.
std::string Problem(const CLI::App& app, const CLI::ParseError& error, int argc,
                    const char* const* argv) {
  if (!app.get_subcommands().empty() || error.get_name() != "RequiredError") {
    return error.what();
  }
  return (argc < 2 ? "a command is missing" : "\"" + std::string(argv[1]) + "\" is no command") +
         "; expected " + JobNames(app);
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
  const std::vector<std::pair<Job, const CLI::App*>> jobs = {
      {Job::kConfirm, AddConfirm(app, result)},   {Job::kConsole, AddConsole(app, result)},
      {Job::kServe, AddServe(app, result)},       {Job::kRun, AddRun(app, result)},
      {Job::kAttach, AddAttach(app, result)},     {Job::kPassword, AddPassword(app, result)},
      {Job::kTypes, AddTypes(app, result)},       {Job::kCompare, AddCompare(app, result)},
      {Job::kGenerate, AddGenerate(app, result)}, {Job::kExplain, AddExplain(app, result)},
      {Job::kUnknown, AddUnknown(app, result)},   {Job::kCapture, AddCapture(app, result)},
      {Job::kReplay, AddReplay(app, result)},     {Job::kLint, AddLint(app, result)},
      {Job::kDiff, AddDiff(app, result)},         {Job::kMerge, AddMerge(app, result)},
  };
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return {std::nullopt, ReportParseResult(app, error, argc, argv)};
  }
  for (const auto& [job, command] : jobs) {
    if (command->parsed()) result.job = job;
  }
  return {result, kExitOk};
}

}  // namespace olt_host
