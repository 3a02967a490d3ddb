#include "settings.h"

#include <algorithm>
#include <cstdlib>

namespace model {

Settings& TheSettings() {
  static Settings settings;
  return settings;
}

void RegisterHook(u16 id, bool registered) {
  if (!registered) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  if (id <= 9) {
    TheSettings().hooks[id] = true;
  }
}

bool AllHooksRegistered() {
  for (const bool hook : TheSettings().hooks) {
    if (!hook) {
      return false;
    }
  }
  return true;
}

std::string ToUpper(const std::string& text) {
  std::string result;
  for (const char c : text) {
    result += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return result;
}

std::string ToLower(const std::string& text) {
  std::string result;
  for (const char c : text) {
    result += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return result;
}

std::string OnlyHex(const std::string& text) {
  static const std::string kDigits = "0123456789ABCDEFabcdef";
  std::string result;
  for (const char c : text) {
    if (kDigits.find(c) != std::string::npos) {
      result += c;
    }
  }
  return result;
}

u32 HexToBytes(std::string& text, std::string& bytes, u16 room, std::string& console) {
  text = OnlyHex(text);
  bytes.replace(0, room, std::string(room, '\0'));
  if (room == 0 || room < text.size() / 2) {
    console += "src_len is greater than dst_len !\r\n";
    return kInvalidParameter;
  }
  for (size_t i = 0; i < text.size(); i += 2) {
    std::string pair = text.substr(i, 2);
    pair.resize(2, '0');
    bytes[i / 2] = static_cast<char>(std::strtoul(pair.c_str(), nullptr, 16));
  }
  return 0;
}

std::string CutText(const std::string& text, u32 maximum) {
  const u32 length = static_cast<u32>(text.size()) % 256;
  return text.substr(0, std::min(length, maximum) % 256);
}

int IsDigit(const std::string& text) {
  for (const char c : text) {
    if (c < '0' || c > '9') {
      return 0;
    }
  }
  return 1;
}

void Assign(SerialNumber& number, const u8 (&report)[8]) {
  number.vendor.clear();
  for (int i = 0; i < 4 && report[i] != 0; ++i) {
    number.vendor += static_cast<char>(report[i]);
  }
  for (int i = 0; i < 4; ++i) {
    number.serial[i] = report[7 - i];
  }
}

bool Less(const SerialNumber& a, const SerialNumber& b) {
  std::string vendor_a = a.vendor;
  std::string vendor_b = b.vendor;
  vendor_a.resize(4, '\0');
  vendor_b.resize(4, '\0');
  for (size_t i = 0; i < 4; ++i) {
    if (static_cast<u8>(vendor_a[i]) < static_cast<u8>(vendor_b[i])) {
      return true;
    }
  }
  for (size_t i = 0; i < 6; ++i) {
    if (a.serial[i] < b.serial[i]) {
      return true;
    }
  }
  return false;
}

}  // namespace model
