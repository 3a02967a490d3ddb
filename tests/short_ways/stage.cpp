#include "stage.h"

#include <algorithm>
#include <cstddef>

#include "onu_ability_common_global/short_ways.h"
#include "onu_ability_common_reg_extern_func.h"
#include "support/library_reset.h"
#include "support/scripted_hooks.h"
#include "texts.h"

namespace {

std::string Shown(const LogLine& line) {
  std::string text = "log [" + std::to_string(line.level) + "] module " +
                     std::to_string(line.module_id) + " " + Quoted(line.text);
  return text + " " + line.function + ":" + std::to_string(line.line);
}

std::string Shown(const HookCall& call) {
  return Words("hook ", call.id, " place ", call.place, " onu ", call.onu, " argument ",
               call.argument);
}

std::string Shown(const MemoryCall& call) {
  return Words(call.name, " ", call.count, " ", call.size, " ", call.file, ":", call.line);
}

}  // namespace

Stage::Stage(bool walks_only, bool records_handed_out) : records_handed_out_(records_handed_out) {
  onu_ability_set_log_level_mask(0);
  ResetLibrary(kAttributeIds);
  SetWalksOnly(walks_only);
  onu_ability_set_log_level_mask(0xFFFFFFFFU);
  profiles.resize(kSlots);
  Forget();
}

Stage::~Stage() {
  onu_ability_set_log_level_mask(0);
  SetWalksOnly(false);
}

void Stage::Say(const std::string& text) {
  trace_ += text + "\n";
  if (listener) {
    listener(text);
  }
}

void Stage::Note(const std::string& what, long long value) {
  trace_ += what + " = " + std::to_string(value) + "\n";
}

void Stage::Note(const std::string& what, const std::string& text) {
  trace_ += what + " = " + Quoted(text) + "\n";
}

void Stage::Note(const std::string& what, const OnuAbilityProfile& profile) {
  trace_ += what + " = " + Shown(profile) + "\n";
}

void Stage::Note(const std::string& what, const std::vector<OnuAbilityProfile>& many) {
  Note("number of " + what, static_cast<long long>(many.size()));
  for (const OnuAbilityProfile& profile : many) {
    Note(what, profile);
  }
}

unsigned int Stage::Key(HostileInput& random) const {
  const OnuAbilityProfile& profile = profiles[random.Slot()];
  const auto code = random.Pick<unsigned short>({1081, 1085, 1085});
  const unsigned int other = random.Key();
  const bool known = random.OneIn(2);
  if (!random.OneIn(4) && favourite.has_value()) {
    return *favourite;
  }
  const auto held = profile._common_ability.find(code);
  return known && held != profile._common_ability.end() ? held->second.ability_ushort_value : other;
}

std::vector<ONU_ABILITY_CODE_ATTR_INFO>* Stage::Records() {
  if (records_ == nullptr && records_handed_out_) {
    records_ = &OnuAbilityCodeInfo::GetInstance()->Get();
  }
  return records_;
}

// --- Events

std::string Stage::TakeTrace() {
  AppendEvents();
  if (!terminal.text.empty()) {
    Note("terminal", terminal.text);
  }
  for (const unsigned int preset : Hooks().presets) {
    Note("value that hook 6 finds", preset);
  }
  if (!Hooks().handed_over.empty()) {
    Note("profile handed over", Hooks().handed_over);
  }
  Forget();
  return std::exchange(trace_, std::string());
}

// The four records of the host, merged by their order.
void Stage::AppendEvents() {
  const RecordingHost& host = RecordingHost::Instance();
  const std::vector<HookCall>& hooks = Hooks().calls;
  size_t log = 0;
  size_t lock = 0;
  size_t memory = 0;
  size_t hook = 0;
  while (true) {
    unsigned long first = static_cast<unsigned long>(-1);
    const auto look = [&first](const auto& records, size_t next) {
      first = next < records.size() ? std::min(first, records[next].order) : first;
    };
    const auto is_next = [&first](const auto& records, size_t next) {
      return next < records.size() && records[next].order == first;
    };
    look(host.log_, log);
    look(host.mutex_calls_, lock);
    look(host.memory_calls_, memory);
    look(hooks, hook);
    if (is_next(host.log_, log)) {
      trace_ += Shown(host.log_[log++]) + "\n";
    } else if (is_next(host.mutex_calls_, lock)) {
      const MutexCall& call = host.mutex_calls_[lock++];
      trace_ += Words("mutex ", NumberOf(call), " call ", call.kind, " wait ", call.wait_limit,
                      call.file == nullptr ? " no file " : " file ", call.line, "\n");
    } else if (is_next(host.memory_calls_, memory)) {
      trace_ += Shown(host.memory_calls_[memory++]) + "\n";
    } else if (is_next(hooks, hook)) {
      trace_ += Shown(hooks[hook++]) + "\n";
    } else {
      return;
    }
  }
}

// Addresses differ from run to run, and one may be used again.
unsigned int Stage::NumberOf(const MutexCall& call) {
  if (call.kind == MutexCall::kConstruct) {
    mutexes_.push_back(call.mutex);
  }
  const auto found = std::find(mutexes_.rbegin(), mutexes_.rend(), call.mutex);
  return static_cast<unsigned int>(std::distance(found, mutexes_.rend()));
}

void Stage::Forget() {
  RecordingHost& host = RecordingHost::Instance();
  host.log_.clear();
  host.ForgetMutexCalls();
  host.ForgetMemoryCalls();
  host.elements_.clear();
  host.modules_.clear();
  host.FailAppend(0);
  host.FailFetch(0);
  host.FailAllocation(0);
  terminal.text.clear();
  Hooks() = ScriptedHooks();
  // Copies of profiles were just released, perhaps with a line each.
  host.log_.clear();
}

// --- State

void Stage::NoteState() {
  const unsigned int mask = onu_ability_get_log_level_mask();
  Note("log mask", mask);
  onu_ability_set_log_level_mask(0);
  NoteRegistries();
  NoteSettings();
  NoteTables();
  Note("profile", profiles);
  Note("locks held", RecordingHost::Instance().locks_held());
  Note("blocks in use", RecordingHost::Instance().blocks_in_use());
  onu_ability_set_log_level_mask(mask);
}

void Stage::NoteRegistries() {
  OnuAbilityAttrInfo::GetInstance()->Show(&terminal);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
  onu_ability_get_all_ability_attr_info(records);
  for (const auto& record : records) {
    trace_ += "code " + Shown(record) + "\n";
  }
  Note("key ability code", OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode());
}

void Stage::NoteSettings() {
  const OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  const OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  Note("common SFU type", settings._sfu_common_type);
  Note("common HGU type", settings._hgu_common_type);
  Note("module id", onu_ability_get_module_id());
  Note("command node", hooks.GetCmdNode());
  Note("all hooks registered", hooks.WhetherExternFuncRegistered() ? 1 : 0);
  if (settings._onu_ability_profile != nullptr) {
    Note("pending profile", *settings._onu_ability_profile);
  }
}

void Stage::NoteTables() {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  for (const auto& entry : manager._map_table) {
    Note("table in the map", entry.second == nullptr ? -entry.first : entry.first);
  }
  std::vector<OnuAbilityProfile> stored;
  manager.GetAll(ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_ALL, stored);
  Note("real profile", stored);
  manager.GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, stored);
  Note("match profile", stored);
  if (own_real != nullptr) {
    Note("real profile of the test's table", own_real->profiles());
  }
  if (own_match != nullptr) {
    Note("match profile of the test's table", own_match->profiles());
  }
}

OnuAbilityTableBase* TableOfType(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  const auto& tables = OnuAbilityTableManager::GetInstance()->_map_table;
  const auto table = tables.find(type);
  return table == tables.end() ? nullptr : table->second;
}
