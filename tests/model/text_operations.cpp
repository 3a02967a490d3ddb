#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "both_sides.h"
#include "settings.h"

namespace {

using model::Format;

// Runs `act` with standard output caught, and returns what it wrote.
template <typename Act>
std::string Console(Act act) {
  std::fflush(stdout);
  std::FILE* caught = std::tmpfile();
  const int console = dup(STDOUT_FILENO);
  dup2(fileno(caught), STDOUT_FILENO);
  act();
  std::fflush(stdout);
  dup2(console, STDOUT_FILENO);
  close(console);
  std::rewind(caught);
  std::string text(200, '\0');
  text.resize(std::fread(text.data(), 1, text.size(), caught));
  std::fclose(caught);
  return text;
}

std::string HexText(RandomInput& random) {
  static const char kCharacters[] = "0123456789abcdefABCDEFxG-z ";
  std::string text;
  const unsigned int length = random.OneIn(10) ? random.Below(200) : random.Below(10);
  for (unsigned int i = 0; i < length; ++i) {
    text += kCharacters[random.Below(sizeof(kCharacters) - 1)];
  }
  return text;
}

void Cases(BothSides& both, RandomInput& random) {
  std::string text = HexText(random);
  both.Describe("case of " + Quoted(text));
  std::string upper = text;
  both.Same("upper", onu_ability_trans_str_lower_to_upper(upper.data()), 0);
  both.Same("upper text", upper, model::ToUpper(text));
  std::string lower = text;
  both.Same("lower", onu_ability_trans_str_upper_to_lower(lower.data()), 0);
  both.Same("lower text", lower, model::ToLower(text));
  both.Same("upper null", onu_ability_trans_str_lower_to_upper(nullptr), model::kNullPointer);
  both.Same("lower null", onu_ability_trans_str_upper_to_lower(nullptr), model::kNullPointer);
}

// What a C caller sees of a text that was shortened in place.
std::string UpToTerminator(const std::string& text) { return text.substr(0, text.find('\0')); }

void Hex(BothSides& both, RandomInput& random) {
  std::string text = HexText(random);
  const auto room = static_cast<unsigned short>(random.Below(text.size() > 20 ? 100 : 7));
  both.Describe(Format("char_to_hex(%s, %d)", Quoted(text).c_str(), room));
  std::string filtered = text;
  both.Same("filter", filter_nohexchar(filtered.data()), 0);
  both.Same("filtered", UpToTerminator(filtered), model::OnlyHex(text));

  std::string library_text = text;
  std::string library(room + 1U, '?');
  unsigned int library_ret = 0;
  const std::string console = Console([&] {
    library_ret =
        char_to_hex(reinterpret_cast<unsigned char*>(library.data()), library_text.data(), room);
  });
  std::string bytes(room + 1U, '?');
  std::string expected_console;
  both.Same("result", library_ret, model::HexToBytes(text, bytes, room, expected_console));
  both.Same("bytes", library, bytes);
  both.Same("text", UpToTerminator(library_text), text);
  // The framing of console lines is the host's matter, their presence is not.
  both.Same("console line", console.empty() ? 0 : 1, expected_console.empty() ? 0 : 1);
}

void Widen(BothSides& both, RandomInput& random) {
  const auto value = random.Pick<unsigned char>({0, 1, 254, 255});
  both.Describe(Format("widen %d", value));
  unsigned short out = 77;
  both.Same("result", all_1_onetype_to_twotype(value, &out), 0);
  both.Same("16 bits", out, value == 255 ? 0xFFFF : value);
  both.Same("null", all_1_onetype_to_twotype(value, nullptr), model::kNullPointer);
  MODEL_LOG(13, "there is null pointer!");
  both.Same("32 bits", trans_1_type_to_4_type(value), value == 255 ? 0xFFFFFFFFLL : value);
}

void Copies(BothSides& both, RandomInput& random) {
  std::string text = random.Text();
  const unsigned int maximum = random.Pick<unsigned int>({0, 1, 4, 20, 255, 256, 260});
  both.Describe(Format("copies of %s, at most %u", Quoted(text).c_str(), maximum));
  std::string library(300, '?');
  both.Same("BufferCopy", 0, 0);
  OnuAbilityGlobalVar::BufferCopy(reinterpret_cast<unsigned char*>(library.data()), text, maximum);
  std::string expected(300, '?');
  const std::string part = text.substr(0, maximum);
  expected.replace(0, part.size(), part);
  both.Same("BufferCopy", library, expected);
  OnuAbilityGlobalVar::BufferCopy(nullptr, text, maximum);
  MODEL_LOG(13, "there is null point!");

  text = text.substr(0, text.find('\0'));
  library.assign(300, '?');
  expected.assign(300, '?');
  const std::string cut = model::CutText(text, maximum);
  expected.replace(0, cut.size(), cut);
  both.Same("char_to_string result",
            OnuAbilityGlobalVar::char_to_string(text.data(), library.data(), maximum), 0);
  both.Same("char_to_string", library, expected);
  both.Same("IsDigit", OnuAbilityGlobalVar::IsDigit(text), model::IsDigit(text));
  const std::string digits = random.Pick<const char*>({"", "0", "123", "12a", "-1"});
  both.Same("IsDigit of digits", OnuAbilityGlobalVar::IsDigit(digits), model::IsDigit(digits));
}

model::SerialNumber RandomNumber(RandomInput& random) {
  model::SerialNumber number;
  number.vendor = random.Pick<const char*>({"", "AB", "ABCD", "ABCE", "\377BCD"});
  for (unsigned char& byte : number.serial) {
    byte = random.Pick<unsigned char>({0, 0, 1, 2, 200});
  }
  return number;
}

void SerialNumbers(BothSides& both, RandomInput& random) {
  model::SerialNumber a = RandomNumber(random);
  const model::SerialNumber b = RandomNumber(random);
  both.Describe("serial numbers " + Quoted(a.vendor) + " and " + Quoted(b.vendor));
  ONU_ABILITY_PHYSICAL_SN library_a = ToLibrary(a);
  const ONU_ABILITY_PHYSICAL_SN library_b = ToLibrary(b);
  both.Same("a < b", library_a < library_b ? 1 : 0, model::Less(a, b) ? 1 : 0);
  both.Same("b < a", library_b < library_a ? 1 : 0, model::Less(b, a) ? 1 : 0);
  unsigned char report[8];
  for (unsigned char& byte : report) {
    byte = random.Pick<unsigned char>({0, 'A', 'B', 'C', 200});
  }
  _OMCI_PHYSICAL_SN_ omci;
  std::memcpy(omci.vendor_id, report, 4);
  std::memcpy(omci.serial, report + 4, 4);
  library_a = omci;
  model::Assign(a, report);
  both.Same("vendor", library_a.vendor_id, a.vendor);
  both.Same("serial", std::string(reinterpret_cast<const char*>(library_a.serial), 6),
            std::string(reinterpret_cast<const char*>(a.serial), 6));
  both.Same("PON number", library_a.pon_no, a.pon_no);
  both.Same("ONU id", library_a.onu_id, a.onu_id);
}

}  // namespace

std::vector<Operation> TextOperations() {
  return {
      {"text case", 1, Cases},
      {"text hex", 2, Hex},
      {"text widening", 1, Widen},
      {"text copies", 2, Copies},
      {"serial numbers", 1, SerialNumbers},
  };
}
