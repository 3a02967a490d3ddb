// Runs the commands' handlers as the command framework does, on a terminal that
// keeps the bytes.
#ifndef TESTS_COMMAND_FIXTURE_H
#define TESTS_COMMAND_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

class CommandTest : public LibraryTest {
 protected:
  // Calls the handler of `command`; `output` then holds what it printed. The
  // argument vector ends with the last argument: a handler that reads past it
  // reads foreign memory.
  unsigned int Run(cmd_element& command, std::vector<std::string> arguments) {
    std::vector<char*> argv;
    argv.reserve(arguments.size());
    for (std::string& argument : arguments) {
      argv.push_back(argument.data());
    }
    return RunVector(command, argv);
  }

  // The same with any vector, null texts included.
  unsigned int RunVector(cmd_element& command, std::vector<char*> argv) {
    vty terminal;
    const int result =
        command.func(&command, &terminal, static_cast<int>(argv.size()), argv.data());
    output = terminal.text;
    return static_cast<unsigned int>(result);
  }

  static OnuAbilityProfile* Pending() {
    return OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
  }

  static unsigned int Number(const OnuAbilityProfile& profile, unsigned short code) {
    unsigned int value = 0xDEADBEEF;
    profile.Get(code, value);
    return value;
  }

  static std::string Text(const OnuAbilityProfile& profile, unsigned short code) {
    std::string value = "untouched";
    profile.Get(code, value);
    return value;
  }

  static bool Holds(const OnuAbilityProfile& profile, unsigned short code) {
    return profile._common_ability.count(code) != 0;
  }

  std::string output;
};

// With the usual codes and both tables.
class CommandOnTablesTest : public CommandTest {
 protected:
  void SetUp() override {
    DefineUsualCodes();
    InitTables();
    host.ForgetLog();
  }
};

#endif  // TESTS_COMMAND_FIXTURE_H
