#include "random_input.h"

const std::vector<int> kAttributeIds = {-1, 0, 1, 2, 3, 4, 5, 7};

int RandomInput::AttributeId() {
  if (OneIn(4)) {
    return kAttributeIds[Below(static_cast<unsigned int>(kAttributeIds.size()))];
  }
  return Pick({1, 3, 4, 5});
}

std::string RandomInput::AttributeName() {
  return Pick<const char*>({"CONFIRM", "LAMP", "PORT", "VALUE", "lamp", "X", ""});
}

unsigned short RandomInput::AttributeValue() {
  return Pick<unsigned short>({0, 0, 1, 2, 3, 3, 3, 7, 7, 4, 65535});
}

unsigned short RandomInput::Code() {
  if (OneIn(8)) {
    return Pick<unsigned short>({0, 7, 1093, 65533, 65534, 65535});
  }
  return Pick<unsigned short>(
      {48, 1001, 1002, 1010, 1011, 1012, 1023, 1080, 1081, 1082, 1083, 1085, 1085});
}

std::string RandomInput::CodeName() {
  return Pick<const char*>({"ALL_LAN", "ONU_CAPA", "LAN", "REAL_TYPE", "KEY", "VENDOR_ID",
                            "TYPE_NAME", "all_lan", "A NAME OF MORE THAN TWELVE", "12", ""});
}

unsigned int RandomInput::Number() {
  if (OneIn(4)) {
    return Pick<unsigned int>(
        {7, 255, 256, 0x1234, 0xFFFF, 0x10001, 0x7FFFFFFF, 0x80000000U, 0xFFFFFFFEU});
  }
  return Pick<unsigned int>({0, 0, 1, 2, 3, 4, 0xFFFFFFFFU});
}

unsigned int RandomInput::Key() {
  if (OneIn(8)) {
    return Pick<unsigned int>({0, 65535, 65536, 65541, 0xFFFFFFFFU});
  }
  return Pick<unsigned int>({1, 2, 3, 5, 30001});
}

unsigned short RandomInput::Short() { return static_cast<unsigned short>(Key()); }

std::string RandomInput::Text() {
  switch (Below(12)) {
    case 0:
      return "";
    case 1:
      return std::string(30, 'L');
    case 2:
      return std::string(256, 'x') + Pick<const char*>({"", "y", "ABCDE"});
    case 3:
      return std::string("A\0B", 3);
    default:
      return Pick<const char*>({"A", "AB", "ABC", "ZKWM", "ABCD", "ABCDEFGHIJ", "a", "null"});
  }
}

model::Value RandomInput::AnyValue() {
  model::Value value;
  value.tag = Pick<unsigned int>({2, 2, 2, 3, 3, 0, 1, 65535});
  value.number = Number();
  value.text = value.tag == 3 || OneIn(6) ? Text() : "";
  return value;
}

int RandomInput::Source() { return OneIn(24) ? Pick({3, -1}) : Pick({0, 1, 0, 1, 2}); }

int RandomInput::Type() { return OneIn(16) ? Pick({0, 3, -1}) : Pick({1, 2}); }

int RandomInput::MatchType() { return OneIn(8) ? Pick({0, 3, -1}) : Pick({1, 2}); }

unsigned int RandomInput::LogMask() {
  switch (Below(4)) {
    case 0:
      return 0xFFFFFFFFU;
    case 1:
      return 0;
    case 2:
      return static_cast<unsigned int>(Next());
    default:
      return ~(1U << Pick({0U, 1U, 4U, 5U, 6U, 9U, 10U, 13U}));
  }
}
