#include "commands.h"

#include <cstdlib>

#include "tables.h"

namespace model {

namespace {

int Number(const std::string& text) { return std::atoi(text.c_str()); }
u16 Code(const std::string& text) { return static_cast<u16>(Number(text)); }
u32 Key(const std::string& text) {
  return static_cast<u32>(std::strtoul(text.c_str(), nullptr, 10));
}

// An operator's text, cut; "null" is none.
std::string Text(const std::string& text, u32 maximum) {
  return text == "null" ? "" : CutText(text, maximum);
}

u32 PendingKey() {
  u32 key = 0;
  TheSettings().pending->GetKeyValue(key);
  return key;
}

}  // namespace

int ShowTable(const Arguments& arguments) {
  const int type = arguments[0] == "match" ? 2 : 1;
  const int source = Number(arguments[1]);
  const int flag = Number(arguments[2]);
  if (arguments.size() >= 4) {
    ShowItem(type, source, flag, Code(arguments[4]), true);
  } else {
    ShowAll(type, source, flag, true);
  }
  Print("\r\n");
  return 0;
}

int AddProfile(const Arguments& arguments) {
  const u32 key = Key(arguments[0]);
  if (TheSettings().pending == nullptr) {
    TheSettings().pending = std::make_shared<Profile>();
  }
  Profile& pending = *TheSettings().pending;
  pending.Init(Number(arguments[1]), 1, 2);
  pending.AddKey(key);
  pending.AddNumber(1080, static_cast<u32>(Number(arguments[2])));
  pending.AddNumber(1081, static_cast<u32>(Number(arguments[3])));
  pending.AddText(1082, Text(arguments[4], 4));
  pending.AddText(1083, Text(arguments[5], 20));
  Print(Format("onu ability item set ok!key_ability_value:%u\r\n", key));
  return 0;
}

int SetProfile(const Arguments& arguments) {
  const u32 key = Key(arguments[1]);
  if (TheSettings().pending == nullptr) {
    return 0;
  }
  Profile& pending = *TheSettings().pending;
  if (pending.HasKey(key) == 0) {
    Print(
        Format("key_ability_value invalid,invalid key_ability_value:%u, "
               "valid key_ability_value:%u\r\n",
               key, PendingKey()));
    return 0;
  }
  for (size_t i = 2; i + 1 < arguments.size(); i += 2) {
    const u16 code = Code(arguments[i]);
    const u32 value = AbilityNumber(arguments[i + 1]);
    pending.AddNumber(code, value);
  }
  Print("set onu_ability_profile ok!\r\n");
  return 0;
}

u32 AbilityNumber(const std::string& text) {
  if (text == "null") {
    MODEL_LOG(4, "ch_temp is null!");
    return 0xFFFFFFFFU;
  }
  MODEL_LOG(4, "atoi:%d", Number(text));
  return static_cast<u32>(Number(text));
}

int ApplyProfile(const Arguments& arguments) {
  const u32 key = Key(arguments[0]);
  if (TheSettings().pending == nullptr) {
    return 0;
  }
  Profile& pending = *TheSettings().pending;
  if (pending.HasKey(key) == 0) {
    Print(
        Format("key_ability_value is not exist!invalid key_ability_value:%u,"
               "valid key_ability_value:%u\r\n",
               key, PendingKey()));
    return static_cast<int>(kInvalidParameter);
  }
  if (Manager().Add(pending) != 0) {
    Print("ONU_ABILITY_INSTANCE_TABLE_MGR.Add failed\r\n");
    return static_cast<int>(kOperateFailed);
  }
  Print(Format("add ability profile successfully,key_ability_value:%u\r\n", key));
  return 0;
}

int ShowPending(const Arguments& arguments) {
  if (TheSettings().pending != nullptr) {
    TheSettings().pending->Show(true, 1, static_cast<u32>(Number(arguments[0])), SerialNumber(),
                                255);
  }
  Print("\r\n");
  return 0;
}

int DelProfile(const Arguments& arguments) {
  const u32 ret = Manager().DelByKey(Number(arguments[2]), Number(arguments[1]), Key(arguments[0]));
  Print(ret != 0 ? "ONU_ABILITY_INSTANCE_TABLE_MGR.Del failed\r\n"
                 : "ONU_ABILITY_INSTANCE_TABLE_MGR.Del successfully\r\n");
  return 0;
}

int ShowCodes(const Arguments& arguments) {
  if (arguments.empty()) {
    Codes().Show(true);
  } else if (IsDigit(arguments[0]) != 0) {
    Codes().ShowCode(true, Code(arguments[0]));
  } else {
    Codes().ShowText(true, arguments[0]);
  }
  return 0;
}

int SetCode(const Arguments& arguments) {
  CodeRecord record;
  record.code = Code(arguments[0]);
  record.name = arguments[1];
  for (size_t i = 2; i + 1 < arguments.size(); i += 2) {
    const int id = Number(arguments[i]);
    if (record.attributes.count(id) != 0) {
      record.attributes[id] = static_cast<u16>(Number(arguments[i + 1]));
    }
  }
  Codes().Update(record);
  Print("set ability code ok!\r\n");
  return 0;
}

int DelCode(const Arguments& arguments) {
  Print(Codes().Del(Code(arguments[0])) != 0 ? "del ability code failed!\r\n"
                                             : "del ability code ok!\r\n");
  return 0;
}

int UpdateNumberValue(const Arguments& arguments) {
  const u32 ret = Manager().AddNumber(Number(arguments[1]), Number(arguments[2]), Key(arguments[0]),
                                      Code(arguments[3]), static_cast<u32>(Number(arguments[4])));
  Print(ret != 0 ? "Add ability value failed!\r\n" : "Add ability value ok!\r\n");
  return 0;
}

int UpdateTextValue(const Arguments& arguments) {
  const u32 ret =
      Manager().AddText(Number(arguments[1]), Number(arguments[2]),
                        static_cast<u32>(Number(arguments[0])), Code(arguments[3]), arguments[4]);
  Print(ret != 0 ? "Add ability value failed!\r\n" : "Add ability value ok!\r\n");
  return 0;
}

int SetCommonType(const Arguments& arguments) {
  const int value = Number(arguments[1]);
  if (arguments[0] == "sfu") {
    TheSettings().sfu_common_type = static_cast<u16>(value);
  } else {
    TheSettings().hgu_common_type = static_cast<u16>(value);
  }
  Print(Format("set onu common type ok!common_type:%d\r\n", value));
  return 0;
}

int ShowCommonTypes(const Arguments&) {
  Print(Format("common_sfu_type:%10d\r\n", TheSettings().sfu_common_type));
  Print(Format("common_hgu_type:%10d\r\n", TheSettings().hgu_common_type));
  return 0;
}

int SetKeyCode(const Arguments& arguments) {
  const u16 code = Code(arguments[0]);
  Codes().key_code = code;
  Print(Format("set key_ability_code ok!key_ability_code:%d, ability_name:%s\r\n", code,
               MODEL_NAME(code)));
  return 0;
}

int ShowKeyCode(const Arguments&) {
  const u16 code = Codes().key_code;
  Print(Format("key_ability_code:%10d\r\nability_name: %10s\r\n", code, MODEL_NAME(code)));
  return 0;
}

int TestAbility(const Arguments&) { return 0; }

}  // namespace model
