// Ten scripted hooks: what an ONU answers, and what the library asked.
#ifndef TESTS_SUPPORT_SCRIPTED_HOOKS_H
#define TESTS_SUPPORT_SCRIPTED_HOOKS_H

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

struct HookCall {
  int id = 0;                 // 0 to 9
  unsigned short place = 0;   // A
  int onu = -1;               // B; -1 for hook 7, which gets none
  unsigned int argument = 0;  // stage, real type, report type, code, index, length, setting 3
  unsigned long order = 0;    // among the records of the host
};

// What the ONU of a test reports.
struct ScriptedOnu {
  unsigned int status[10] = {};    // results of the hooks but 1 and 8, whose results are answers
  std::string vendor_id = "ABCD";  // bytes written by hook 0, no terminator added
  unsigned int reported_type = 0;  // result of hook 1
  unsigned char private_capability = 0xFF;
  bool set_private_capability = false;            // hook 2 writes it only then
  std::string device_name;                        // bytes written by hook 9, no terminator added
  std::map<unsigned short, unsigned int> values;  // answers of hook 6; others stay as preset
  unsigned short settings[4] = {0, 0, 0, 0};      // hook 7
  unsigned int read_one_by_one = 1;               // result of hook 8
};

// The script of the running test, and the record of calls.
struct ScriptedHooks {
  ScriptedOnu onu;
  // What else the host does while it answers a hook; hook 3 hands its profile over.
  std::function<void(int id, ConfirmOnuType* profile)> meanwhile;
  std::vector<HookCall> calls;
  std::vector<OnuAbilityProfile> handed_over;  // copies of hook 3's profile, by call
  std::vector<unsigned int> presets;           // value hook 6 found, by call
};
ScriptedHooks& Hooks();

// Registers all ten, or all but one.
void RegisterHooks();
void RegisterHooksExcept(unsigned short id);
// The function registered for `id`, as the registry takes it.
void* HookFunction(unsigned short id);

#endif  // TESTS_SUPPORT_SCRIPTED_HOOKS_H
