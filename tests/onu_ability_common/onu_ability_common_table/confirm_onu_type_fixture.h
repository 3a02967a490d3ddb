// What the tests of type confirmation share: the codes that confirmation knows,
// the ten scripted hooks, and the lines that confirmation itself logs.
#ifndef TESTS_CONFIRM_ONU_TYPE_FIXTURE_H
#define TESTS_CONFIRM_ONU_TYPE_FIXTURE_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "onu_ability_common_global.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_table.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"
#include "support/scripted_hooks.h"

class ConfirmOnuTypeTest : public LibraryTest {
 protected:
  static constexpr unsigned short kPlace = 0x0201;
  static constexpr unsigned char kOnu = 9;

  // Three codes are asked from an ONU: 1020, 1002 and 1010, which is registry
  // order and not the order of their numbers.
  void SetUp() override {
    RegisterAttributes();
    DefineCode(1085, "KEY_VALUE");
    DefineCode(1080, "REPORT_TYPE");
    DefineCode(1081, "REAL_TYPE");
    DefineCode(1082, "VENDOR_ID", {{1, 1}, {5, 3}});
    DefineCode(1083, "TYPE_NAME", {{5, 3}});
    DefineCode(1020, "POTS_PORTS", {{1, 3}});
    DefineCode(1002, "ONU_CAPA", {{1, 3}});
    DefineCode(1010, "FE_PORTS", {{1, 3}});
    DefineCode(1023, "TRANS_TYPE");
    DefineCode(48, "CAPABILITY_KNOWN");
    InitTables();
    RegisterHooks();
    host.ForgetLog();
  }

  // Registers a hook of the test's own in place of the scripted one.
  template <typename Function>
  static void ReplaceHook(unsigned short id, Function* function) {
    onu_ability_register_extern_func(id, reinterpret_cast<void*>(function));
  }

  // The scripted hooks' calls as "hook place [onu] argument".
  static std::vector<std::string> Calls() {
    std::vector<std::string> calls;
    for (const HookCall& call : Hooks().calls) {
      std::string text = std::to_string(call.id) + ":" + std::to_string(call.place);
      if (call.onu >= 0) {
        text += "," + std::to_string(call.onu);
      }
      calls.push_back(text + "," + std::to_string(call.argument));
    }
    return calls;
  }

  static unsigned int CallsOf(int id) {
    unsigned int count = 0;
    for (const HookCall& call : Hooks().calls) {
      count += call.id == id ? 1U : 0U;
    }
    return count;
  }

  // The argument of the last call of hook `id`.
  static unsigned int LastArgument(int id) {
    unsigned int argument = 0xDEADBEEF;
    for (const HookCall& call : Hooks().calls) {
      argument = call.id == id ? call.argument : argument;
    }
    return argument;
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

  // A pattern that carries the type it stands for under code 1080, too.
  static OnuAbilityProfile Pattern(unsigned int key, unsigned short real_type) {
    OnuAbilityProfile profile = MakeMatchProfile(key, real_type);
    profile.Add(1080, key);
    return profile;
  }

  // Takes the recorded lines of level 4 that confirmation itself writes.
  std::vector<LogLine> TakeConfirmationLog() {
    static const char* const kBeginnings[] = {"type_from_onu_report:",
                                              "confirm_type_attr_value:",
                                              "ability_code:",
                                              "onu_capa_private:",
                                              "onu_device_name:",
                                              "get match profile failed!",
                                              "IsValidOnuType failed!",
                                              "ConfirmOnuTypeByAbilities failed!",
                                              "onu_match_ability.",
                                              "SearchForAuth failed!",
                                              "GetOnucapa failed!",
                                              "onu_capa:",
                                              "(before trans type)",
                                              "(after trans type)",
                                              "get onu type name failed!"};
    std::vector<LogLine> picked;
    for (const LogLine& line : host.TakeLog({4})) {
      for (const char* beginning : kBeginnings) {
        if (line.text.rfind(beginning, 0) == 0) {
          picked.push_back(line);
          break;
        }
      }
    }
    return picked;
  }
};

#endif  // TESTS_CONFIRM_ONU_TYPE_FIXTURE_H
