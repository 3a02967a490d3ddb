#include "state/byte_stream.h"

#include "state/state_file.h"

namespace olt_host {

void ByteWriter::Number(std::uint64_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) {
    _bytes += static_cast<char>((value >> (8 * i)) & 0xFFU);
  }
}

void ByteWriter::Text(std::string_view text) {
  if (text.size() > UINT32_MAX) throw StateError("a text is too long for a state file");
  Number32(static_cast<std::uint32_t>(text.size()));
  Bytes(text);
}

std::uint64_t ByteReader::Number(std::size_t width) {
  const std::string_view bytes = Bytes(width);
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < width; ++i) {
    value |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
  }
  return value;
}

bool ByteReader::Flag() {
  const std::uint8_t value = Number8();
  if (value > 1) Fail("holds " + std::to_string(value) + "; expected 0 or 1");
  return value == 1;
}

std::string_view ByteReader::Bytes(std::uint64_t length) {
  if (length > _bytes.size()) {
    Fail("ends too early; expected " + std::to_string(length) + " bytes more where " +
         std::to_string(_bytes.size()) + " are left");
  }
  const std::string_view bytes = _bytes.substr(0, static_cast<std::size_t>(length));
  _bytes.remove_prefix(bytes.size());
  return bytes;
}

void ByteReader::RequireEnd() const {
  if (!_bytes.empty()) {
    Fail("has " + std::to_string(_bytes.size()) + " bytes too many; expected its end");
  }
}

void ByteReader::Fail(const std::string& problem) const { throw StateError(_what + " " + problem); }

}  // namespace olt_host
