// An operator who types at random: lines of the sixteen commands and of "register
// attribute", from pools small enough that they often meet, and now and then what no
// line does, such as a comparison or a binding.
#ifndef TESTS_OLT_HOST_STATE_RANDOM_OPERATOR_H
#define TESTS_OLT_HOST_STATE_RANDOM_OPERATOR_H

#include <random>
#include <string>
#include <vector>

#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "vty/execute.h"

namespace olt_host_test {

inline int RegisterAttribute(cmd_element* /*element*/, struct vty* /*vty*/, int /*argc*/,
                             char** argv) {
  OnuAbilityAttrInfo::GetInstance()->Add(
      static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(std::stoi(argv[0])), argv[1]);
  return 0;
}

constexpr unsigned int kOperatorNode = 26;

// The library's commands, once a process.
inline void InstallLibraryCommands() {
  static const bool installed = [] {
    OnuAbilityRegExternFunc::GetInstance()->SetCmdNode(kOperatorNode);
    return onu_ability_service_cbb_cli_init() == 0;
  }();
  (void)installed;
}

// "register attribute" where the host's own is not linked.
inline void InstallRegisterAttribute() {
  static cmd_element element = {"register attribute <1-65535> <string>", RegisterAttribute, ""};
  static const bool installed = install_element(kOperatorNode, &element) == 0;
  (void)installed;
}

class RandomOperator {
 public:
  explicit RandomOperator(unsigned int seed)
      : _random(seed), _terminal(kOperatorNode, [](const char*, std::size_t) { return true; }) {}
  // The profile that the commands left behind is the operator's.
  ~RandomOperator() {
    OnuAbilityProfile*& pending = OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile;
    delete pending;
    pending = nullptr;
  }
  RandomOperator(const RandomOperator&) = delete;
  RandomOperator& operator=(const RandomOperator&) = delete;

  // The attributes without which an empty library takes no code.
  void RegisterUsualAttributes() {
    for (const char* line : {"register attribute 1 CONFIRM_TYPE", "register attribute 4 PORT_TYPE",
                             "register attribute 5 VALUE_TYPE"}) {
      Type(line);
    }
  }

  // What no command does may be left out, see Compare and Bind.
  void Act(unsigned int actions, bool by_commands_alone = false) {
    for (unsigned int i = 0; i < actions; ++i) {
      const unsigned int choice = Below(by_commands_alone ? 20 : 22);
      if (choice == 21) {
        Compare();
      } else if (choice == 20) {
        Bind();
      } else {
        Type(Line(choice));
      }
    }
  }

  void Type(const std::string& line) {
    _typed.push_back(line);
    olt_host::ExecuteLine(_terminal, kOperatorNode, line);
  }
  const std::vector<std::string>& typed() const { return _typed; }

 private:
  unsigned int Below(unsigned int limit) {
    return std::uniform_int_distribution<unsigned int>(0, limit - 1)(_random);
  }
  std::string OneOf(const std::vector<const char*>& texts) {
    return texts[Below(static_cast<unsigned int>(texts.size()))];
  }

  std::string Key() {
    return OneOf({"1", "2", "3", "4", "5", "0", "70000", "4294967295", "1003", "1001"});
  }
  std::string Code() {
    return OneOf({"24", "32", "47", "1001", "1002", "1012", "1080", "1081", "1082", "1083", "1085",
                  "2000", "2001", "2002", "65533", "65535"});
  }
  std::string Number() { return OneOf({"0", "1", "2", "3", "4", "255", "65535"}); }
  std::string WideNumber() {
    return OneOf({"0", "1", "7", "65535", "65536", "2147483648", "4294967294", "4294967295"});
  }
  std::string Name() {
    return OneOf({"ALPHA", "BETA", "GAMMA", "\"two words\"", "\"a \\\"quote\\\" and \\\\\"", "null",
                  "\"null\"", "\"\"", "1234", "\"!\"", "\"|\"", "gr\xc3\xbc\xc3\x9f", "FE_PORTS",
                  "KEY", "a-name-that-is-longer-than-twenty-bytes"});
  }
  std::string Table() { return "profile_type " + OneOf({"1", "2"}); }
  std::string Place() {
    return Key() + " " + Table() + " profile_source " + OneOf({"1", "1", "0"});
  }
  std::string Pairs() {
    std::string pairs;
    for (unsigned int i = Below(5); i > 0; --i) {
      pairs += " " + Code() + " " + (Below(5) == 0 ? "null" : Number());
    }
    return pairs;
  }
  std::string Attributes() {
    std::string pairs;
    for (unsigned int i = Below(4); i > 0; --i) {
      pairs += " " + OneOf({"1", "3", "4", "5", "7", "4", "5"}) + " " +
               OneOf({"0", "1", "2", "3", "7", "65535"});
    }
    return pairs;
  }

  std::string Line(unsigned int choice) {
    switch (choice) {
      case 0:
      case 1:
      case 2:
      case 3:
        _key = Key();
        return "add onu_ability_profile key " + _key + " " + Table() + " reporttype " + Number() +
               " realtype " + Number() + " vendorid " + Name() + " onu_type_name " + Name();
      case 4:
      case 5:
      case 6:
        return "set onu_ability_profile key " + _key + Pairs();
      case 7:
      case 8:
      case 9:
      case 10:
      case 11:
        return "apply onu_ability_profile key " + _key;
      case 12:
      case 13:
        return "update onu_ability_profile key " + Place() + " ability_code " + Code() +
               " uint_ability_value " + WideNumber();
      case 14:
        return "update onu_ability_profile id " + Place() + " ability_code " + Code() +
               " string_ability_value " + Name();
      case 15:
        return "del onu_ability_profile key " + Place();
      case 16:
      case 17:
        return "set ability_code " + Code() + " name " + Name() + Attributes();
      case 18:
        return "del ability code " + Code();
      default:
        return Setting();
    }
  }

  std::string Setting() {
    switch (Below(4)) {
      case 0:
        return "set key_ability_code " + OneOf({"1085", "1085", "1085", "2000", "1083", "9"});
      case 1:
        return "set onu_common_type " + OneOf({"sfu ", "hgu "}) + WideNumber();
      default:
        return "register attribute " + OneOf({"1", "3", "4", "5", "7"}) + " " + Name();
    }
  }

  // As a confirmation does: patterns that lack the key ability code acquire it unset.
  static void Compare() {
    OnuAbilityProfile report;
    report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
                ONU_ABILITY_MATCH_TYPE_PATTERN);
    report.Add(ONU_ABILITY_PROFILE_TYPE_MATCH, 1);
    report.UpdateInit(47, 250U);
    (void)(*OnuAbilityTableManager::GetInstance() == report);
  }

  void Bind() {
    OnuAbilityTableManager::GetInstance()->AddBindCount(
        ONU_ABILITY_PROFILE_TYPE_REAL, static_cast<unsigned int>(std::stoul(_key)));
  }

  std::mt19937 _random;
  struct vty _terminal;
  std::string _key = "1";
  std::vector<std::string> _typed;
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_STATE_RANDOM_OPERATOR_H
