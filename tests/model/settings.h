// The model's process-wide settings, and its text and serial-number utilities.
#ifndef TESTS_MODEL_SETTINGS_H
#define TESTS_MODEL_SETTINGS_H

#include <memory>
#include <string>

#include "record.h"

namespace model {

class Profile;

struct Settings {
  u32 log_mask = 0xFFFFFFFFU;
  u32 module_id = 19;
  u32 cmd_node = 26;
  bool hooks[10] = {};
  u16 sfu_common_type = 857;
  u16 hgu_common_type = 762;
  std::shared_ptr<Profile> pending;
};

Settings& TheSettings();

// `registered`: whether the function is other than null.
void RegisterHook(u16 id, bool registered);
bool AllHooksRegistered();

constexpr u32 kNullPointer = 0x80000001U;
constexpr u32 kInvalidParameter = 0x80000002U;
constexpr u32 kOperateFailed = 0x80000003U;
constexpr u32 kNotFound = 0x80000004U;

std::string ToUpper(const std::string& text);
std::string ToLower(const std::string& text);
std::string OnlyHex(const std::string& text);

// Writes to `bytes`, which has one byte more than `room`, and `console`.
u32 HexToBytes(std::string& text, std::string& bytes, u16 room, std::string& console);

// The bytes that char_to_string copies.
std::string CutText(const std::string& text, u32 maximum);
int IsDigit(const std::string& text);

struct SerialNumber {
  u16 pon_no = 0xFFFF;
  u8 onu_id = 0xFF;
  std::string vendor;
  u8 serial[6] = {};
};
void Assign(SerialNumber& number, const u8 (&report)[8]);
bool Less(const SerialNumber& a, const SerialNumber& b);

}  // namespace model

#endif  // TESTS_MODEL_SETTINGS_H
