// The text and hex utilities, on blocks of exactly the size that callers must give,
// against plain readings of what they say of themselves.
#include <algorithm>
#include <memory>
#include <string>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "onu_ability_common_global.h"

namespace {

constexpr unsigned int kLengthsOf16Bits = 0x10000;

// A terminated text in a block of its own size.
class CText {
 public:
  explicit CText(const std::string& text) : _block(new char[text.size() + 1]) {
    std::copy(text.begin(), text.end(), _block.get());
    _block[text.size()] = '\0';
  }
  char* get() { return _block.get(); }

 private:
  std::unique_ptr<char[]> _block;
};

std::string UpToNul(const std::string& text) { return text.substr(0, text.find('\0')); }

bool IsHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

std::string Upper(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

std::string Lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

// The whole block afterwards, but its last terminator.
std::string Filtered(const std::string& text) {
  const std::size_t length = text.size() % kLengthsOf16Bits;
  std::string kept;
  std::copy_if(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length),
               std::back_inserter(kept), IsHexDigit);
  return kept + std::string(length - kept.size(), '\0') + text.substr(length);
}

void AttackCase(const std::string& text) {
  CText upper(text);
  Hold(onu_ability_trans_str_lower_to_upper(upper.get()) == 0, "status of upper case");
  HoldSame("upper case", Upper(text), upper.get());
  CText lower(text);
  Hold(onu_ability_trans_str_upper_to_lower(lower.get()) == 0, "status of lower case");
  HoldSame("lower case", Lower(text), lower.get());
}

void AttackFilter(const std::string& text) {
  CText filtered(text);
  Hold(filter_nohexchar(filtered.get()) == 0, "status of the filter");
  HoldSame("filtered", Filtered(text), std::string(filtered.get(), text.size()));
}

// What `room` bytes hold after the conversion of `digits`.
std::string Converted(const std::string& digits, std::size_t room) {
  std::string bytes(room, '\0');
  for (std::size_t i = 0; i < digits.size(); ++i) {
    const auto value = static_cast<unsigned int>(std::stoi(digits.substr(i, 1), nullptr, 16));
    const auto byte = static_cast<unsigned char>(bytes[i / 2]);
    bytes[i / 2] = static_cast<char>(byte | (i % 2 == 0 ? value << 4U : value));
  }
  return bytes;
}

void AttackHex(const std::string& text, unsigned short dst_len) {
  const std::string filtered = UpToNul(Filtered(text));
  const std::string digits = filtered.substr(0, filtered.size() % kLengthsOf16Bits);
  const std::size_t length = digits.size();
  const bool is_refused = dst_len == 0 || dst_len < length / 2 || length > 255;
  // The room that callers must give: one byte more when the number of digits may be odd.
  const std::size_t room = is_refused ? dst_len : std::max<std::size_t>(dst_len, (length + 1) / 2);
  const std::unique_ptr<unsigned char[]> dst(new unsigned char[room]);
  std::fill_n(dst.get(), room, static_cast<unsigned char>(0xEE));
  CText src(text);
  const unsigned int status = char_to_hex(dst.get(), src.get(), dst_len);
  Hold(status == (is_refused ? ONU_ABILITY_RET_INVALID_PARAM : ONU_ABILITY_RET_OK),
       "status of char_to_hex for " + std::to_string(length) + " digits and " +
           std::to_string(dst_len) + " bytes");
  const std::string was(reinterpret_cast<const char*>(dst.get()), room);
  HoldSame("hex bytes", is_refused ? std::string(room, '\0') : Converted(digits, room), was);
}

void AttackCharToString(const std::string& text, unsigned int maximum) {
  const std::unique_ptr<char[]> dst(new char[maximum]);
  std::fill_n(dst.get(), maximum, '\0');
  CText src(text);
  Hold(OnuAbilityGlobalVar::char_to_string(src.get(), dst.get(), maximum) == 0,
       "status of char_to_string");
  const std::size_t count = std::min<std::size_t>(text.size() % 256, maximum) % 256;
  HoldSame("char_to_string", text.substr(0, count) + std::string(maximum - count, '\0'),
           std::string(dst.get(), maximum));
}

void AttackBufferCopy(const std::string& text, unsigned int size) {
  const std::unique_ptr<unsigned char[]> dst(new unsigned char[size]);
  std::fill_n(dst.get(), size, static_cast<unsigned char>('-'));
  OnuAbilityGlobalVar::BufferCopy(dst.get(), text, size);
  const std::string copied = text.substr(0, size);
  HoldSame("BufferCopy", copied + std::string(size - copied.size(), '-'),
           std::string(reinterpret_cast<const char*>(dst.get()), size));
}

void AttackWidths(unsigned char value) {
  unsigned short wide = 1;
  Hold(all_1_onetype_to_twotype(value, &wide) == 0, "status of the 16-bit width");
  Hold(wide == (value == 255 ? 65535U : value), "16-bit width of " + std::to_string(value));
  Hold(trans_1_type_to_4_type(value) == (value == 255 ? 0xFFFFFFFFU : value),
       "32-bit width of " + std::to_string(value));
}

// Every function that takes pointers says that there is none, and touches nothing.
void AttackNulls(const std::string& text) {
  Hold(onu_ability_trans_str_lower_to_upper(nullptr) == ONU_ABILITY_RET_NULL_PTR, "upper of null");
  Hold(onu_ability_trans_str_upper_to_lower(nullptr) == ONU_ABILITY_RET_NULL_PTR, "lower of null");
  Hold(filter_nohexchar(nullptr) == ONU_ABILITY_RET_INVALID_PARAM, "filter of null");
  Hold(all_1_onetype_to_twotype(1, nullptr) == ONU_ABILITY_RET_NULL_PTR, "width into null");
  unsigned char byte = 7;
  CText src(text);
  Hold(char_to_hex(nullptr, src.get(), 1) == ONU_ABILITY_RET_INVALID_PARAM, "hex into null");
  Hold(char_to_hex(&byte, nullptr, 1) == ONU_ABILITY_RET_INVALID_PARAM, "hex of null");
  Hold(byte == 7, "the byte beside a null");
  OnuAbilityGlobalVar::BufferCopy(nullptr, text, 1);
}

}  // namespace

// A length of 16 bits, a number of repetitions, and the text that is repeated.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const unsigned short length = input.Number16();
  const unsigned int repetitions = input.Byte();
  const std::string piece(input.Rest());
  std::string bytes = piece;
  for (unsigned int i = 0; i < repetitions; ++i) bytes += piece;
  const std::string text = UpToNul(bytes);
  AttackNulls(text);
  AttackCase(text);
  AttackFilter(text);
  AttackHex(text, length);
  AttackCharToString(text, length);
  AttackBufferCopy(bytes, length);
  Hold(OnuAbilityGlobalVar::IsDigit(bytes) ==
           (bytes.find_first_not_of("0123456789") == std::string::npos ? 1 : 0),
       "IsDigit");
  AttackWidths(static_cast<unsigned char>(length));
  return 0;
}
