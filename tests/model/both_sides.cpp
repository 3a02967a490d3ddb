#include "both_sides.h"

#include <cstring>

#include "onu_ability_common_reg_extern_func.h"
#include "support/library_reset.h"
#include "support/scripted_hooks.h"
#include "tables.h"

namespace {

void ResetTheLibrary() {
  std::vector<ONU_ABILITY_ENUM_ABILITY_ATTR_ID> attribute_ids;
  attribute_ids.reserve(kAttributeIds.size());
  for (const int id : kAttributeIds) {
    attribute_ids.push_back(AsAttribute(id));
  }
  ResetLibrary(attribute_ids);
}

void ResetModel() {
  model::TheSettings() = model::Settings();
  model::Attributes() = model::AttributeRegistry();
  model::Codes() = model::CodeRegistry();
  model::Manager().tables.clear();
}

// Lines whose number or text depends on how often a profile is copied, or that
// only mark that a function was entered or left.
bool IsPlainTrace(const LogLine& line) {
  return line.level == 10 && (line.text == "function start!" || line.text == "function end!" ||
                              line.text == "OnuAbilityProfile start!\r\n" ||
                              line.text == "release OnuAbilityProfile!" ||
                              line.text.rfind("(OnuAbilityTableBase)function", 0) == 0);
}

std::string Shown(const LogLine& line) {
  return "[" + std::to_string(line.level) + "] " + Quoted(line.text);
}

std::string Shown(const model::LogLine& line) {
  return "[" + std::to_string(line.level) + "] " + Quoted(line.text);
}

}  // namespace

BothSides::BothSides() {
  onu_ability_set_log_level_mask(0);
  ResetTheLibrary();
  onu_ability_set_log_level_mask(0xFFFFFFFFU);
  ResetModel();
  library.resize(kSlots);
  model.resize(kSlots);
  Hooks() = ScriptedHooks();
  Forget();
}

BothSides::~BothSides() {
  onu_ability_set_log_level_mask(0);
  ResetTheLibrary();
  ResetModel();
  Forget();
}

unsigned int BothSides::Key(RandomInput& random) const {
  const model::Profile& profile = model[random.Below(kSlots)];
  const auto key = profile.abilities.find(model::Codes().key_code);
  const unsigned int other = random.Key();
  return key == profile.abilities.end() || random.OneIn(2) ? other : key->second.number;
}

void BothSides::Forget() {
  RecordingHost& host = RecordingHost::Instance();
  host.ForgetLog();
  host.ForgetMutexCalls();
  host.ForgetMemoryCalls();
  host.elements_.clear();
  host.modules_.clear();
  host.FailAppend(0);
  host.FailFetch(0);
  host.FailAllocation(0);
  Hooks().calls.clear();
  Hooks().handed_over.clear();
  Hooks().presets.clear();
  terminal.text.clear();
  model::TheRecord() = model::Record();
}

void BothSides::Differ(const std::string& what, const std::string& library_text,
                       const std::string& model_text) {
  if (difference_.empty()) {
    difference_ = what + "\n    library: " + library_text + "\n    model:   " + model_text;
  }
}

void BothSides::Same(const std::string& what, long long library_value, long long model_value) {
  if (library_value != model_value) {
    Differ(what, std::to_string(library_value), std::to_string(model_value));
  }
}

void BothSides::Same(const std::string& what, const std::string& library_text,
                     const std::string& model_text) {
  if (library_text != model_text) {
    size_t at = 0;
    while (at < library_text.size() && at < model_text.size() &&
           library_text[at] == model_text[at]) {
      ++at;
    }
    const size_t from = at < 60 ? 0 : at - 60;
    Differ(what + ", from byte " + std::to_string(from), Quoted(library_text.substr(from)),
           Quoted(model_text.substr(from)));
  }
}

void BothSides::Same(const std::string& what, const OnuAbilityProfile& one,
                     const model::Profile& other) {
  Same(what + "._id", one._id, other.id);
  Same(what + "._bind_count", one._bind_count, other.bind_count);
  Same(what + "._flag_match_type", one._flag_match_type, other.match_type);
  Same(what + "._profile_type", one._profile_type, other.type);
  Same(what + "._profile_source", one._profile_source, other.source);
  Same(what + "._ability_default_value", one._ability_default_value, other.default_value);
  Same(what + "._common_ability_num", one._common_ability_num, other.count);
  Same(what + "._key_ability_code", one._key_ability_code, other.key_code);
  Same(what + "._age_count", one._age_count, other.age_count);
  Same(what + "._reserved", std::memcmp(one._reserved, other.reserved, sizeof(other.reserved)), 0);
  std::string abilities;
  for (const auto& entry : one._common_ability) {
    const ONU_ABILITY_COMMON_ABILITY_VALUE& value = entry.second;
    abilities += std::to_string(entry.first) + ":" + std::to_string(value.ability_value_type) +
                 "/" + std::to_string(value.ability_ushort_value) + "/" +
                 value.ability_string_value + " ";
  }
  std::string expected;
  for (const auto& entry : other.abilities) {
    const model::Value& value = entry.second;
    expected += std::to_string(entry.first) + ":" + std::to_string(value.tag) + "/" +
                std::to_string(value.number) + "/" + value.text + " ";
  }
  Same(what + "._common_ability", abilities, expected);
}

void BothSides::Same(const std::string& what, const std::vector<OnuAbilityProfile>& ones,
                     const std::vector<model::Profile>& others) {
  Same("number of " + what, static_cast<long long>(ones.size()),
       static_cast<long long>(others.size()));
  for (size_t i = 0; i < ones.size() && i < others.size(); ++i) {
    Same(what + "[" + std::to_string(i) + "]", ones[i], others[i]);
  }
}

// --- Records

void BothSides::CompareRecords() {
  Same("terminal", terminal.text, model::TheRecord().terminal);
  CompareLogs();
  CompareLocks();
  CompareHooks();
  CompareMemory();
  Forget();
}

void BothSides::CompareLogs() {
  const std::vector<LogLine> lines = RecordingHost::Instance().TakeLog();
  const std::vector<model::LogLine>& expected = model::TheRecord().log;
  size_t next = 0;
  std::string before = "the first";
  for (const LogLine& line : lines) {
    const bool same = next < expected.size() && line.level == expected[next].level &&
                      line.text == expected[next].text;
    if (!same && IsPlainTrace(line)) {
      continue;
    }
    if (!same) {
      Differ("log line " + std::to_string(next) + ", after " + before, Shown(line),
             next < expected.size() ? Shown(expected[next]) : "nothing");
      return;
    }
    Same("module id of " + Shown(line), line.module_id, expected[next].module_id);
    Same("tail of " + Shown(line), line.function.empty() ? 0 : 1, expected[next].has_tail ? 1 : 0);
    before = Shown(line);
    ++next;
  }
  if (next < expected.size()) {
    Differ("log line " + std::to_string(next) + ", after " + before, "nothing",
           Shown(expected[next]));
  }
}

void BothSides::CompareLocks() {
  const std::vector<MutexCall>& calls = RecordingHost::Instance().mutex_calls();
  const std::vector<model::LockCall>& expected = model::TheRecord().locks;
  Same("number of mutex calls", static_cast<long long>(calls.size()),
       static_cast<long long>(expected.size()));
  for (size_t i = 0; i < calls.size() && i < expected.size(); ++i) {
    const MutexCall& call = calls[i];
    Same("kind of mutex call", call.kind, static_cast<int>(expected[i].kind));
    if (call.kind == MutexCall::kConstruct) {
      mutexes_.emplace_back(call.mutex, expected[i].mutex);
      continue;
    }
    int number = -1;
    for (const auto& mutex : mutexes_) {
      number = mutex.first == call.mutex ? mutex.second : number;
    }
    Same("mutex called", number, expected[i].mutex);
    Same("file of mutex call", call.file == nullptr ? 0 : 1, 0);
    Same("line of mutex call", call.line, 0);
    if (call.kind == MutexCall::kLock) {
      Same("wait limit of Lock", call.wait_limit, -1);
    }
  }
  Same("locks held", RecordingHost::Instance().locks_held(), 0);
}

void BothSides::CompareHooks() {
  const std::vector<HookCall>& calls = Hooks().calls;
  const std::vector<model::HookCall>& expected = model::TheRecord().hooks;
  Same("number of hook calls", static_cast<long long>(calls.size()),
       static_cast<long long>(expected.size()));
  for (size_t i = 0; i < calls.size() && i < expected.size(); ++i) {
    const std::string what = "hook call " + std::to_string(i);
    Same(what + ", hook", calls[i].id, expected[i].id);
    Same(what + ", place", calls[i].place, expected[i].place);
    Same(what + ", ONU", calls[i].onu, expected[i].onu);
    Same(what + ", argument", calls[i].argument, expected[i].argument);
  }
  for (const unsigned int preset : Hooks().presets) {
    Same("value that hook 6 finds", preset, 0xFFFFFFFFU);
  }
}

void BothSides::CompareMemory() {
  const std::vector<model::MemoryCall>& expected = model::TheRecord().memory;
  size_t next = 0;
  for (const MemoryCall& call : RecordingHost::Instance().memory_calls()) {
    if (call.name != "bep_callocEx" && call.name != "bep_freeEx") {
      continue;
    }
    if (next == expected.size()) {
      Differ("memory calls", call.name, "nothing");
      return;
    }
    Same("memory call", call.name, expected[next].name);
    Same("bytes of " + call.name, call.count, expected[next].count);
    Same("element size of " + call.name, call.size, 1);
    Same("file of " + call.name, call.file, "onu_ability_common/onu_ability_common_table");
    ++next;
  }
  Same("number of memory calls", static_cast<long long>(next),
       static_cast<long long>(expected.size()));
  Same("blocks in use", RecordingHost::Instance().blocks_in_use(), 0);
}

// --- State

void BothSides::CompareState() {
  const unsigned int mask = onu_ability_get_log_level_mask();
  Same("log mask", mask, model::TheSettings().log_mask);
  onu_ability_set_log_level_mask(0);
  CompareRegistries();
  CompareSettings();
  CompareTables();
  Same("profile", library, model);
  Forget();
  onu_ability_set_log_level_mask(mask);
}

void BothSides::CompareRegistries() {
  OnuAbilityAttrInfo::GetInstance()->Show(&terminal);
  model::Attributes().Show(true);
  Same("attribute registry", terminal.text, model::TheRecord().terminal);
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  const std::vector<model::CodeRecord>& expected = model::Codes().records;
  Same("number of codes", static_cast<long long>(codes.size()),
       static_cast<long long>(expected.size()));
  for (size_t i = 0; i < codes.size() && i < expected.size(); ++i) {
    const std::string what = "code record " + std::to_string(i);
    Same(what + ", code", codes[i].ability_code, expected[i].code);
    Same(what + ", name", codes[i].ability_name, expected[i].name);
    std::string attributes;
    for (const auto& entry : codes[i].ability_attr) {
      attributes += std::to_string(entry.first) + "=" + std::to_string(entry.second) + " ";
    }
    std::string expected_attributes;
    for (const auto& entry : expected[i].attributes) {
      expected_attributes += std::to_string(entry.first) + "=" + std::to_string(entry.second) + " ";
    }
    Same(what + ", attributes", attributes, expected_attributes);
  }
  Same("key ability code", OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(),
       model::Codes().key_code);
}

void BothSides::CompareSettings() {
  const OnuAbilityGlobalVar& settings = *OnuAbilityGlobalVar::GetInstance();
  const OnuAbilityRegExternFunc& hooks = *OnuAbilityRegExternFunc::GetInstance();
  const model::Settings& expected = model::TheSettings();
  Same("common SFU type", settings._sfu_common_type, expected.sfu_common_type);
  Same("common HGU type", settings._hgu_common_type, expected.hgu_common_type);
  Same("module id", hooks.GetModuleId(), expected.module_id);
  Same("module id asked by function", onu_ability_get_module_id(), expected.module_id);
  Same("command node", hooks.GetCmdNode(), expected.cmd_node);
  Same("all hooks registered", hooks.WhetherExternFuncRegistered() ? 1 : 0,
       model::AllHooksRegistered() ? 1 : 0);
  const bool pending = settings._onu_ability_profile != nullptr;
  Same("pending profile exists", pending ? 1 : 0, expected.pending != nullptr ? 1 : 0);
  if (pending && expected.pending != nullptr) {
    Same("pending profile", *settings._onu_ability_profile, *expected.pending);
  }
}

void BothSides::CompareTables() {
  OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
  std::string entries;
  for (const auto& entry : manager._map_table) {
    entries += std::to_string(entry.first) + (entry.second == nullptr ? " empty " : " table ");
  }
  std::string expected;
  for (const auto& entry : model::Manager().tables) {
    expected += std::to_string(entry.first) + (entry.second == nullptr ? " empty " : " table ");
  }
  Same("map of tables", entries, expected);
  for (const int type : {1, 2}) {
    std::vector<OnuAbilityProfile> profiles;
    manager.GetAll(AsType(type), ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
    model::Table* table = model::Manager().Find(type);
    Same(type == 1 ? "real profiles" : "match profiles", profiles,
         table == nullptr ? model::Profiles() : table->profiles);
  }
}

// --- Conversions

ONU_ABILITY_COMMON_ABILITY_VALUE ToLibrary(const model::Value& value) {
  ONU_ABILITY_COMMON_ABILITY_VALUE result;
  result.ability_value_type = value.tag;
  result.ability_ushort_value = value.number;
  result.ability_string_value = value.text;
  return result;
}

ONU_ABILITY_PHYSICAL_SN ToLibrary(const model::SerialNumber& number) {
  ONU_ABILITY_PHYSICAL_SN result;
  result.pon_no = number.pon_no;
  result.onu_id = number.onu_id;
  result.vendor_id = number.vendor;
  std::memcpy(result.serial, number.serial, sizeof(result.serial));
  return result;
}

std::string Text(const model::Value& value) {
  return std::to_string(value.tag) + "/" + std::to_string(value.number) + "/" + Quoted(value.text);
}

std::string Quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text.substr(0, 200)) {
    if (c >= ' ' && c <= '~') {
      result += c;
    } else {
      result += model::Format("\\x%02x", static_cast<unsigned char>(c));
    }
  }
  return result + (text.size() > 200 ? "\"..." : "\"");
}
