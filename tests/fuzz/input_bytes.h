// The bytes of an input, taken one after the other as what a target needs. Behind their
// end all numbers are 0 and all texts empty.
#ifndef TESTS_FUZZ_INPUT_BYTES_H
#define TESTS_FUZZ_INPUT_BYTES_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class InputBytes {
 public:
  InputBytes(const std::uint8_t* data, std::size_t size)
      : _unread(reinterpret_cast<const char*>(data), size) {}

  bool empty() const { return _unread.empty(); }

  unsigned char Byte();
  // The low byte first.
  unsigned short Number16();
  unsigned int Number32();
  // As many bytes as a length of one byte before them says, or fewer at the end.
  std::string_view Text();
  // So many bytes, or fewer at the end.
  std::string_view Take(std::size_t length);
  std::string_view Rest();

 private:
  std::string_view _unread;
};

// The parts of a text between separators, the empty ones included.
std::vector<std::string> SplitText(std::string_view text, char separator);

#endif  // TESTS_FUZZ_INPUT_BYTES_H
