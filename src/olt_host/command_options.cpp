#include "command_options.h"

#include "onu_name.h"
#include "platform/log_levels.h"

namespace olt_host {

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
                  "--log-levels",
                  "\"" + text + "\" is no list of levels; expected 0,1,13, all or none");
            }
            result.log.mask = *mask;
          },
          "Levels to log: a list, all or none (default 0,13)")
      ->type_name("LEVELS");
}

void AddCatalogue(CLI::App& command, CommandLine& result, bool required) {
  command
      .add_option_function<std::string>(
          "CATALOGUE", [&result](const std::string& path) { result.catalogue.shipped = {path}; },
          "Catalogue of ONU models: a YAML file, or a folder")
      ->required(required)
      ->type_name("PATH");
}

void AddReports(CLI::App& command, CommandLine& result, bool required) {
  command.add_option("REPORTS", result.reports, "What the ONUs report (YAML, or JSON lines)")
      ->required(required)
      ->type_name("FILE");
  command.add_option("--olt", result.olt, "Of REPORTS that are JSON lines, those of this OLT")
      ->type_name("NAME");
}

CLI::Option* AddOnuOption(CLI::App& command, const std::string& description,
                          const std::function<void(std::uint16_t, std::uint8_t)>& take) {
  return command
      .add_option_function<std::string>(
          "--onu",
          [take](const std::string& text) {
            std::uint16_t place = 0;
            std::uint8_t onu = 0;
            if (!ReadOnuName(text, place, onu)) {
              throw CLI::ValidationError(
                  "--onu", "\"" + text + "\" is no ONU; expected its place and number, as in 1/2");
            }
            take(place, onu);
          },
          description)
      ->type_name("A/B");
}

void AddCatalogueOptions(CLI::App& command, CommandLine& result) {
  command.add_option("--local", result.catalogue.local, "Overrides CATALOGUE by key; repeatable")
      ->type_name("PATH")
      ->allow_extra_args(false);
  command.add_flag("--keep-going", result.catalogue.keep_going,
                   "Leave out what is refused instead of taking nothing");
}

static void AddStateOption(CLI::App& command, CommandLine& result) {
  command
      .add_option("--state", result.state_file,
                  "Restore operators' changes from FILE, keep them there")
      ->type_name("FILE");
}

// Of every job for operators.
void AddLoadingOptions(CLI::App& command, CommandLine& result) {
  AddCatalogue(command, result, false);
  AddReports(command, result, false);
  AddCatalogueOptions(command, result);
  AddStateOption(command, result);
  AddLogOptions(command, result);
}

// A listing alone refuses every profile of another source with a line of level 0:
// unasked for, such lines would drown what the operator's command printed.
void LogOnlyWhenAsked(CLI::App& command, CommandLine& result) {
  command.callback([&command, &result] {
    if (command.count("--log") == 0 && command.count("--log-levels") == 0) {
      result.log.mask = 0;
    }
  });
}

}  // namespace olt_host
