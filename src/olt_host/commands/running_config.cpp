#include "commands/running_config.h"

#include <set>
#include <utility>

#include "commands/rebuilt_table.h"
#include "commands/running_config_text.h"
#include "platform/log_levels.h"
#include "platform/log_sink.h"
#include "recognition/undisturbed_library.h"
#include "text/number.h"

namespace olt_host {

namespace {

constexpr std::size_t kMostAttributes = 8;
constexpr const char* kValueTypeName = "VALUE_TYPE";

class Writer {
 public:
  explicit Writer(const LibraryState& state) : _state(state) {}

  std::vector<std::string> Run() {
    _lines = {"! What operators made, as lines for an empty host. What no command can",
              "! express is a remark that says what becomes of it; save keeps that too."};
    WriteAttributes();
    for (const auto& code : _state.codes) _names.insert(code.ability_name);
    for (const auto& code : _state.codes) WriteCode(code);
    WriteSettings();
    WriteTable(ONU_ABILITY_PROFILE_TYPE_REAL, _state.real_profiles);
    WriteTable(ONU_ABILITY_PROFILE_TYPE_MATCH, _state.match_profiles);
    UseKeyAbilityCode(_state.key_ability_code);
    WriteLogMask();
    return std::move(_lines);
  }

 private:
  // The name, with '_' behind it for as long as it is taken.
  std::string Free(std::string name) {
    while (!_names.insert(name).second) name += "_";
    return name;
  }

  // A name that can be typed: its own, or one made of the number.
  std::string Typed(const std::string& what, unsigned int number, const std::string& name,
                    bool is_typable) {
    if (is_typable) return name;
    const std::string kind = what == "code" ? "CODE_" : "ATTRIBUTE_";
    std::string stand_in = Free(kind + std::to_string(number));
    _lines.push_back("! " + what + " " + std::to_string(number) + ": name " + InRemark(name) +
                     " becomes " + stand_in);
    return stand_in;
  }

  void WriteAttributes() {
    for (const auto& [id, name] : _state.attributes) _names.insert(name);
    for (const auto& [id, name] : _state.attributes) {
      const bool is_word = IsTypable(name) && !name.empty() && !IsAllDigits(name) &&
                           name.find(' ') == std::string::npos;
      WriteAttribute(id, Typed("attribute", id, name, is_word));
    }
    // Without it the library takes no code.
    if (!_state.codes.empty() && _state.attributes.count(ONU_ABILITY_ATTR_VALUE_TYPE) == 0) {
      const std::string name = Free(kValueTypeName);
      _lines.push_back("! attribute 5: absent becomes " + name);
      WriteAttribute(ONU_ABILITY_ATTR_VALUE_TYPE, name);
    }
    _names.clear();
  }

  void WriteAttribute(unsigned int id, const std::string& name) {
    _lines.push_back("register attribute " + std::to_string(id) + " " + AsWord(name));
  }

  void WriteCode(const ONU_ABILITY_CODE_ATTR_INFO& code) {
    const std::string name =
        Typed("code", code.ability_code, code.ability_name, IsTypable(code.ability_name));
    std::string line =
        "set ability_code " + std::to_string(code.ability_code) + " name " + AsWord(name);
    std::size_t written = 0;
    for (const auto& [id, value] : code.ability_attr) {
      const unsigned int unsaid =
          id == ONU_ABILITY_ATTR_VALUE_TYPE ? ONU_ABILITY_VALUE_TYPE_USHORT : 0;
      if (value == unsaid) continue;
      const bool is_known = id == ONU_ABILITY_ATTR_VALUE_TYPE ||
                            _state.attributes.count(static_cast<unsigned short>(id)) != 0;
      if (!is_known || written == kMostAttributes) {
        _lines.push_back("! code " + std::to_string(code.ability_code) + ": attribute " +
                         std::to_string(id) + " " + std::to_string(value) + " becomes 0");
        continue;
      }
      line += " " + std::to_string(id) + " " + std::to_string(value);
      ++written;
    }
    _lines.push_back(line);
  }

  void WriteSettings() {
    _lines.push_back("set onu_common_type sfu " + std::to_string(_state.sfu_common_type));
    _lines.push_back("set onu_common_type hgu " + std::to_string(_state.hgu_common_type));
  }

  void WriteLogMask() {
    const unsigned int mask = CurrentLogSettings().ring_mask;
    if (mask != kDefaultLogMask) _lines.push_back("log mask " + LogLevelsText(mask));
  }

  // A profile is stored under the key ability code of the moment it was begun.
  void UseKeyAbilityCode(unsigned short code) {
    if (code == _key_ability_code) return;
    _key_ability_code = code;
    _lines.push_back("set key_ability_code " + std::to_string(code));
  }

  void WriteTable(ONU_ABILITY_ENUM_PROFILE_TYPE type,
                  const std::vector<OnuAbilityProfile>& profiles) {
    RebuiltTable table(type);
    for (const OnuAbilityProfile& profile : profiles) {
      if (profile._profile_source != ONU_ABILITY_PROFILE_SOURCE_EXTERNAL) continue;
      UseKeyAbilityCode(profile._key_ability_code);
      table.Add(profile, _lines);
    }
  }

  const LibraryState& _state;
  std::vector<std::string> _lines;
  std::set<std::string> _names;  // of attributes, then of codes
  unsigned short _key_ability_code = ONU_ABILITY_CODE_DEFAULT_KEY;
};

}  // namespace

std::vector<std::string> RunningConfig(const LibraryState& state) {
  const UndisturbedLibrary undisturbed;
  return Writer(state).Run();
}

}  // namespace olt_host
