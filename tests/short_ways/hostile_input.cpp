#include "hostile_input.h"

#include "onu_ability_common_global/short_ways.h"

namespace {

ONU_ABILITY_ENUM_ABILITY_ATTR_ID AsAttribute(int id) {
  return static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id);
}

}  // namespace

const std::vector<ONU_ABILITY_ENUM_ABILITY_ATTR_ID> kAttributeIds = {
    AsAttribute(-1), AsAttribute(0), AsAttribute(1), AsAttribute(2),
    AsAttribute(3),  AsAttribute(4), AsAttribute(5), AsAttribute(7)};

const std::vector<unsigned short> kCatalogueCodes = {48,   1001, 1002, 1010, 1011, 1012,
                                                     1020, 1023, 1030, 1031, 1080, 1081,
                                                     1082, 1083, 1085, 1093, 65533};

ONU_ABILITY_ENUM_PROFILE_TYPE HostileInput::Type() {
  return static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(OneIn(24) ? Pick({0, 3, -1}) : Pick({1, 2}));
}

ONU_ABILITY_ENUM_PROFILE_SOURCE HostileInput::Source() {
  return static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(OneIn(24) ? Pick({3, -1})
                                                                : Pick({0, 1, 0, 1, 2}));
}

ONU_ABILITY_ENUM_MATCH_TYPE HostileInput::MatchType() {
  return static_cast<ONU_ABILITY_ENUM_MATCH_TYPE>(OneIn(8) ? Pick({0, 3, -1}) : Pick({1, 2}));
}

ONU_ABILITY_ENUM_ABILITY_ATTR_ID HostileInput::AttributeId() {
  if (OneIn(6)) {
    return kAttributeIds[Below(static_cast<unsigned int>(kAttributeIds.size()))];
  }
  return AsAttribute(Pick({1, 3, 4, 5}));
}

std::string HostileInput::AttributeName() {
  return Pick<const char*>({"CONFIRM", "LAMP", "PORT", "VALUE", "lamp", "X", ""});
}

unsigned short HostileInput::AttributeValue() {
  return Pick<unsigned short>({0, 0, 1, 2, 3, 3, 3, 7, 4, 256, 65535});
}

unsigned short HostileInput::Code() {
  if (OneIn(10)) {
    return Pick<unsigned short>({0, 7, 2000, 65534, 65535});
  }
  if (OneIn(3)) {
    return Pick<unsigned short>({1081, 1082, 1083, 1085});
  }
  return kCatalogueCodes[Below(static_cast<unsigned int>(kCatalogueCodes.size()))];
}

unsigned short HostileInput::KeyCode() {
  return Pick<unsigned short>(
      {1085, 1085, 1085, 1085, 1081, 1081, 1082, 1010, 1001, 65533, 1080, 1083, 7});
}

std::string HostileInput::CodeName() {
  if (OneIn(3)) {
    return Pick<const char*>({"LAN", "REAL_TYPE", "A NAME OF MORE THAN TWELVE", "12", ""});
  }
  return "CODE_" + std::to_string(Code());
}

ONU_ABILITY_CODE_ATTR_INFO HostileInput::Record() {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = Code();
  record.ability_name = OneIn(4) ? CodeName() : "CODE_" + std::to_string(record.ability_code);
  for (auto& attribute : record.ability_attr) {
    if (attribute.first != ONU_ABILITY_ATTR_VALUE_TYPE) {
      attribute.second = AttributeValue();
    } else if (OneIn(3)) {
      attribute.second = Pick<unsigned short>({2, 2, 3, 0, 1, 65535});
    }
  }
  if (OneIn(3)) {
    record.ability_attr.erase(AttributeId());
  }
  if (OneIn(10)) {
    record.ability_attr[AttributeId()] = AttributeValue();
  }
  return record;
}

unsigned int HostileInput::Key() {
  if (OneIn(8)) {
    return Pick<unsigned int>({0, 4, 65535, 65536, 65537, 65538, 0xFFFFFFFFU});
  }
  return Pick<unsigned int>({1, 2, 3, 5});
}

unsigned int HostileInput::Number() {
  if (OneIn(5)) {
    return Pick<unsigned int>({7, 255, 256, 257, 0xFFFF, 0x10001, 0x80000000U, 0xFFFFFFFEU});
  }
  return Pick<unsigned int>({0, 0, 1, 2, 3, 0xFFFFFFFFU});
}

std::string HostileInput::Text() {
  switch (Below(16)) {
    case 0:
      return std::string(30, 'L');
    case 1:
      return std::string(256, 'x') + "y";
    case 2:
      return std::string("A\0B", 3);
    case 3:
      return "";
    default:
      return Pick<const char*>({"A", "AB", "ABC", "ZKWM", "ABCD", "a", "null"});
  }
}

std::string HostileInput::Vendor() { return Pick<const char*>({"", "ZKWM", "ABCD", "ABC"}); }

unsigned short HostileInput::Id() {
  return Pick<unsigned short>({0, 1, 2, 5, 30001, 30002, 30003, 65533, 65534, 65535});
}

ONU_ABILITY_COMMON_ABILITY_VALUE HostileInput::Value() {
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
  value.ability_value_type = Pick<unsigned int>({2, 2, 2, 3, 3, 0, 1, 65535});
  value.ability_ushort_value = OneIn(2) ? Number() : Key();
  if (value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING || OneIn(6)) {
    value.ability_string_value = Text();
  }
  return value;
}

unsigned int HostileInput::QuietMask() {
  constexpr unsigned int kProduction = LogLevels(0, 1, 13);
  return Pick<unsigned int>({kProduction, kProduction, kProduction, kProduction, 0, 0, LogLevels(0),
                             LogLevels(1), LogLevels(13), LogLevels(0, 13)});
}

unsigned int HostileInput::LoudMask() {
  constexpr unsigned int kLevels[] = {0, 1, 4, 5, 6, 9, 10, 13};
  const unsigned int one = kLevels[Below(8)];
  const unsigned int other = kLevels[Below(8)];
  switch (Below(8)) {
    case 0:
      return 0xFFFFFFFFU;
    case 1:
      return ~LogLevels(one);
    case 2:
      return ~LogLevels(one, other);
    case 3:
      return ~LogLevels(one, other, 10);
    case 4:
      return LogLevels(one, other);
    default:
      return LogLevels(one);
  }
}
