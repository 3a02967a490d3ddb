// Numbers and texts as the bytes of a state file: little-endian on every machine, a
// text behind its length of 32 bits.
#ifndef OLT_HOST_STATE_BYTE_STREAM_H
#define OLT_HOST_STATE_BYTE_STREAM_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace olt_host {

class ByteWriter {
 public:
  void Number8(std::uint8_t value) { Number(value, 1); }
  void Number16(std::uint16_t value) { Number(value, 2); }
  void Number32(std::uint32_t value) { Number(value, 4); }
  void Number64(std::uint64_t value) { Number(value, 8); }
  void Bytes(std::string_view bytes) { _bytes += bytes; }
  // Throws StateError for a text of 4 GiB or more.
  void Text(std::string_view text);

  const std::string& bytes() const { return _bytes; }

 private:
  void Number(std::uint64_t value, std::size_t width);

  std::string _bytes;
};

// Reads what a writer wrote, never behind the end: throws StateError there, and for
// everything else that does not fit. `what` names the bytes in messages.
class ByteReader {
 public:
  ByteReader(std::string_view bytes, std::string what) : _bytes(bytes), _what(std::move(what)) {}

  std::uint8_t Number8() { return static_cast<std::uint8_t>(Number(1)); }
  std::uint16_t Number16() { return static_cast<std::uint16_t>(Number(2)); }
  std::uint32_t Number32() { return static_cast<std::uint32_t>(Number(4)); }
  std::uint64_t Number64() { return Number(8); }
  // 0 or 1.
  bool Flag();
  std::string_view Bytes(std::uint64_t length);
  std::string Text() { return std::string(Bytes(Number32())); }

  std::size_t unread() const { return _bytes.size(); }
  // Throws when bytes are left.
  void RequireEnd() const;
  [[noreturn]] void Fail(const std::string& problem) const;

 private:
  std::uint64_t Number(std::size_t width);

  std::string_view _bytes;
  std::string _what;
};

}  // namespace olt_host

#endif  // OLT_HOST_STATE_BYTE_STREAM_H
