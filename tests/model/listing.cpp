#include "commands.h"
#include "profile.h"
#include "queries.h"
#include "tables.h"

namespace model {

void Profile::Show(bool terminal, int wanted, u32 flag, const SerialNumber& number,
                   u8 omci_mode) const {
  if (!terminal) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  if (wanted != 2 && wanted != source) {
    MODEL_LOG(0, "profile source don't match!_profile_source:%d, profile_source:%d", source,
              wanted);
    return;
  }
  ShowHeader(number, omci_mode);
  ShowAbilities(flag);
  Print("\r\n********************************************\r\n\r\n\r\n");
}

void Profile::ShowHeader(const SerialNumber& number, u8 omci_mode) const {
  Print("********************************************\r\n");
  Print(Format("id:                    %-30d\r\n", id));
  const u8* serial = number.serial;
  Print(Format("onu_sn:%s%02x%02x%02x%02x%02x%02x\r\n", number.vendor.c_str(), serial[0], serial[1],
               serial[2], serial[3], serial[4], serial[5]));
  if (number.pon_no != 0xFFFF) {
    Print(Format("pon_no:                %-30d\r\n", number.pon_no));
  }
  if (number.onu_id != 0xFF) {
    Print(Format("onu_id:                %-30d\r\n", number.onu_id));
  }
  if (omci_mode != 255) {
    Print(Format("omci_mode:             %-30d\r\n", omci_mode));
  }
  Value value;
  GetValue(1080, value);
  Print(Format("reporttype:            %-30d\r\n", static_cast<int>(value.number)));
  GetValue(1081, value);
  const u16 real_type = static_cast<u16>(value.number);
  GetValue(1082, value);
  Print(Format("vendor id:             %-30s\r\n", value.text.c_str()));
  GetValue(1093, value);
  Print(Format("ability profile name:  %-30s\r\n", value.text.c_str()));
  Print(Format("default value:         %-30d\r\n", static_cast<int>(default_value)));
  Print(Format("flag_match_type:       %-30d\r\n", match_type));
  Print(Format("profile_type:          %-30d\r\n", type));
  Print(Format("profile_source:        %-30d\r\n", source));
  GetValue(65533, value);
  Print(Format("data uni total num:    %-30d\r\n", static_cast<int>(value.number)));
  GetValue(65533, value);
  Print(
      Format("total lamp num:        %-30d\r\n", static_cast<int>(LampTotalByRealType(real_type))));
  Print(Format("bind count:            %-30d\r\n", static_cast<int>(bind_count)));
  Print(Format("age_count:             %-30d\r\n", static_cast<int>(age_count)));
  Print(Format("size:                  %-30d\r\n", static_cast<int>(GetSize())));
  Print(Format("common_ability_num:    %-30d\r\n", static_cast<int>(count)));
  Print("--------------common ability----------------\r\n");
  Print("ability \tvalue   \tability \tvalue   \tability \tvalue   \r\n");
}

void Profile::ShowAbilities(u32 flag) const {
  int cells = 0;
  for (const auto& entry : abilities) {
    const u16 code = entry.first;
    const Value& value = entry.second;
    if (flag == 0 && value.tag == 2 && value.number == default_value) {
      continue;
    }
    if (value.tag == 2) {
      // The attribute decides the cell's form before the name is asked.
      const u16 lamp = Codes().Attribute(code, 3);
      const std::string name = Codes().NameOf(code);
      if (lamp != 0 && lamp != 65535) {
        Print(Format("%-12.12s\t0x%-6.04x\t", name.c_str(), value.number));
      } else {
        Print(Format("%-12.12s\t0x%-8x\t", name.c_str(), value.number));
      }
    } else if (value.tag == 3) {
      const std::string name = Codes().NameOf(code);
      Print(Format("%-12.12s\t%-8s\t", name.c_str(), value.text.c_str()));
    } else {
      Print(Format("%-12.12d\t%-8d\t", static_cast<int>(value.tag), code));
    }
    if (++cells % 3 == 0) {
      Print("\r\n");
    }
  }
}

void ShowAll(int type, int source, int flag, bool terminal) {
  if (!terminal) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  if (type != 1 && type != 2) {
    MODEL_LOG(0, "flag_match_or_real is invalid,flag_match_or_real:%d", type);
    return;
  }
  Table* table = Manager().Find(type);
  if (table == nullptr) {
    return;
  }
  table->Lock();
  const std::vector<Profile> profiles = table->profiles;
  table->Unlock();
  for (const Profile& profile : profiles) {
    profile.Show(true, source, static_cast<u32>(flag), SerialNumber(), 255);
  }
}

void ShowItem(int type, int source, int flag, u16 real_type, bool terminal) {
  if (!terminal) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  if (type != 1 && type != 2) {
    MODEL_LOG(0, "profile_type is invalid,flag_match_or_real:%d", type);
    return;
  }
  std::vector<Profile> profiles;
  if (Manager().GetAllByRealType(type, source, real_type, profiles) != 0) {
    Print(Format("GetOnuAllAbilityValue failed!onu_real_type:%u\r\n", real_type));
    return;
  }
  for (const Profile& profile : profiles) {
    profile.Show(true, source, static_cast<u32>(flag), SerialNumber(), 255);
  }
}

}  // namespace model
