// Calls every symbol and every hook of a port and says of each whether it does what the
// library expects, as far as that shows from here. Ends with 0 when all of them do.
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <thread>

#include "bep.h"
#include "mutex_lock.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_table.h"
#include "port.h"
#include "ulog.h"
#include "variant.h"
#include "vty.h"

namespace {

constexpr unsigned int kNext = 0xFFFF;

struct NotPortedError {};

bool WritesALine() {
  ulogPrintf(19, 10, "port_check: %s, %u\r\n\r\n", "a line", 1U);
  return true;
}

// Two threads count; a lock that lets both in loses some.
bool LetsOneInAtATime() {
  constexpr unsigned int kTimes = 20000;
  CMutexLock mutex;
  unsigned int count = 0;
  bool refused = false;
  const auto work = [&] {
    for (unsigned int i = 0; i < kTimes; ++i) {
      const unsigned int locked = mutex.Lock(-1, nullptr, 0);
      const unsigned int before = count;
      refused = refused || locked != 0;
      if (i % 64 == 0) std::this_thread::yield();
      count = before + 1;
      refused = mutex.Unlock(nullptr, 0) != 0 || refused;
    }
  };
  mutex.Lock(-1, nullptr, 0);  // here already, where the check sees that it is not ported
  mutex.Unlock(nullptr, 0);
  std::thread other(work);
  work();
  other.join();
  return count == 2 * kTimes && !refused;
}

bool GivesItemsBack() {
  Variant items;
  char name[] = {'N', 'A', 'M', 'E'};
  bool taken = items.Append(static_cast<unsigned short>(0xABCD), kNext) == 0;
  taken = items.Append(0x12345678U, kNext) == 0 && taken;
  taken = items.Append(name, sizeof(name), kNext) == 0 && taken;
  taken = items.Append(name, 0, kNext) == 0 && taken;
  unsigned short small = 0;
  unsigned int large = 0;
  char text[4] = {};
  const bool given = items.Fetch(small, kNext) == 0 && items.Fetch(large, kNext) == 0 &&
                     items.Fetch(text, sizeof(text), kNext) == 0 &&
                     items.Fetch(text, 0, kNext) == 0;
  return taken && given && small == 0xABCD && large == 0x12345678U &&
         std::memcmp(text, name, sizeof(name)) == 0 && items.Fetch(large, kNext) != 0;
}

bool ComparesTexts() {
  return bep_StrCmp("a", "a") == 0 && bep_StrCmp("a", "b") < 0 && bep_StrCmp("b", "ab") > 0;
}
bool CountsBytes() { return bep_StrLen("") == 0 && bep_StrLen("ONU") == 3; }

bool GivesZeroedBytes() {
  auto* bytes = static_cast<unsigned char*>(bep_callocEx(3, 5, __FILE__, __LINE__));
  bool zeroed = bytes != nullptr;
  for (int i = 0; zeroed && i < 15; ++i) zeroed = bytes[i] == 0;
  bep_freeEx(bytes, __FILE__, __LINE__);
  return zeroed;
}
bool TakesBlocksBack() {
  bep_freeEx(nullptr, __FILE__, __LINE__);
  bep_freeEx(bep_callocEx(1, 1, __FILE__, __LINE__), __FILE__, __LINE__);
  return true;
}

bool CopiesAllOrNothing() {
  char bytes[] = "....";
  bep_memCpyEx(bytes, 4, "ab", 2);
  const bool copied = std::strcmp(bytes, "ab..") == 0;
  bep_memCpyEx(bytes, 1, "xyz", 3);
  return copied && (std::strcmp(bytes, "ab..") == 0 || std::strcmp(bytes, "xyz.") == 0);
}
bool FillsAllOrNothing() {
  char bytes[] = "....";
  bep_memSetEx(bytes, 4, 0x100 + 'f', 2);
  const bool filled = std::strcmp(bytes, "ff..") == 0;
  bep_memSetEx(bytes, 1, 'x', 3);
  return filled && (std::strcmp(bytes, "ff..") == 0 || std::strcmp(bytes, "xxx.") == 0);
}

bool WritesToATerminal() {
  vty_out(PortTerminal(), "%s %u\r\n", "port_check writes", 1U);
  return true;
}
bool TakesACommand() {
  static cmd_element command = {"port_check", [](cmd_element*, vty*, int, char**) { return 0; },
                                "Nothing\n"};
  install_element(26, &command);
  return true;
}
bool InstallsTheModule() {
  static bool installed = false;
  cl_install_module(
      "port_check", [] { return installed = true, 0; }, [] { return 0; });
  return installed;
}

// --- The hooks, for an ONU that need not be there: what they must never do.

OnuAbilityRegExternFunc& Hooks() { return *OnuAbilityRegExternFunc::GetInstance(); }

bool NamesAVendor() {
  char text[5] = {};
  return Hooks()._get_vendor_id(1, 1, text) != 0 || std::memchr(text, 0, sizeof(text)) != nullptr;
}
bool NamesADevice() {
  char text[21] = {};
  return Hooks()._get_device_name(1, 1, 20, text) != 0 ||
         std::memchr(text, 0, sizeof(text)) != nullptr;
}
bool TellsAType() { return Hooks()._get_report_type(1, 1), true; }
bool TellsACapability() {
  unsigned char capability = 0xFF;
  Hooks()._get_private_capability(1, 1, 0, &capability);
  return capability == 0 || capability == 1 || capability == 0xFF;
}
bool TakesAProfile() {
  ConfirmOnuType profile(1, 1);
  return Hooks()._hand_over_profile(1, 1, 0, &profile), true;
}
bool TakesARealType() { return Hooks()._set_real_type(1, 1, 857), true; }
bool TakesAReportType() { return Hooks()._set_report_type(1, 1, 857), true; }
bool TellsAnAbility() {
  unsigned int value = 0xFFFFFFFFU;
  return Hooks()._get_ability_value(1, 1, 1002, &value), true;
}
bool TellsSettings() {
  unsigned short setting = 0;
  for (unsigned int index = 0; index < 4; ++index)
    Hooks()._get_identify_setting(index, 1, &setting);
  return true;
}
bool SaysWhetherToAsk() { return Hooks()._read_one_by_one(1, 1), true; }

struct Check {
  const char* subject;
  bool (*holds)();
};
constexpr Check kChecks[] = {
    {"ulogPrintf", WritesALine},
    {"CMutexLock", LetsOneInAtATime},
    {"Variant", GivesItemsBack},
    {"bep_StrCmp", ComparesTexts},
    {"bep_StrLen", CountsBytes},
    {"bep_callocEx", GivesZeroedBytes},
    {"bep_freeEx", TakesBlocksBack},
    {"bep_memCpyEx", CopiesAllOrNothing},
    {"bep_memSetEx", FillsAllOrNothing},
    {"vty_out", WritesToATerminal},
    {"install_element", TakesACommand},
    {"cl_install_module", InstallsTheModule},
    {"hook 0, vendor identifier", NamesAVendor},
    {"hook 1, reported type", TellsAType},
    {"hook 2, private capability", TellsACapability},
    {"hook 3, profile", TakesAProfile},
    {"hook 4, real type", TakesARealType},
    {"hook 5, translated type", TakesAReportType},
    {"hook 6, ability", TellsAnAbility},
    {"hook 7, identify setting", TellsSettings},
    {"hook 8, one by one", SaysWhetherToAsk},
    {"hook 9, device name", NamesADevice},
};

const char* Verdict(const Check& check) {
  try {
    return check.holds() ? "as expected" : "WRONG";
  } catch (const NotPortedError&) {
    return "to be ported";
  }
}

}  // namespace

void NotPorted() { throw NotPortedError(); }

int main() {
  onu_ability_set_log_level_mask(0);  // the library calls no ulogPrintf that is not there yet
  RegisterHooks();
  int wanting = 0;
  for (const Check& check : kChecks) {
    const char* const verdict = Verdict(check);
    std::printf("%-27s %s\n", check.subject, verdict);
    wanting += std::strcmp(verdict, "as expected") == 0 ? 0 : 1;
  }
  if (!Hooks().WhetherExternFuncRegistered()) {
    std::puts("some hook is not registered");
    return 1;
  }
  return wanting == 0 ? 0 : 1;
}
