#include "session/key_reader.h"

namespace olt_host {
namespace {

// Longer than any process lives, and still a time that can be added to.
constexpr std::chrono::hours kForEver(24 * 365 * 10);
constexpr char32_t kLargest = 0x10FFFF;

bool IsSurrogate(char32_t character) { return character >= 0xD800 && character <= 0xDFFF; }

}  // namespace

KeyReader::KeyReader(Channel& channel)
    : _channel(channel), _last_byte(Channel::Clock::now().time_since_epoch().count()) {}

KeyReader::Result KeyReader::Read(char32_t& key, Channel::Clock::time_point deadline) {
  while (true) {
    unsigned char byte = 0;
    if (_waiting >= 0) {
      byte = static_cast<unsigned char>(_waiting);
      _waiting = -1;
    } else {
      const Channel::ReadResult result = _channel.Read(byte, deadline);
      if (result == Channel::ReadResult::kClosed) return Result::kClosed;
      if (result == Channel::ReadResult::kTimedOut) return Result::kTimedOut;
      _last_byte = Channel::Clock::now().time_since_epoch().count();
    }
    if (Add(byte, key)) return Result::kKey;
  }
}

KeyReader::Result KeyReader::Read(char32_t& key) {
  const std::chrono::seconds longest = kForEver;
  const bool limited = _idle_limit.count() > 0 && _idle_limit < longest;
  return Read(key, Channel::Clock::now() + (limited ? _idle_limit : longest));
}

bool KeyReader::Add(unsigned char byte, char32_t& key) {
  if (_missing == 0) return Begin(byte, key);
  if ((byte & 0xC0U) != 0x80U) {
    _missing = 0;
    _waiting = byte;
    key = kReplacement;
    return true;
  }
  _character = (_character << 6U) | (byte & 0x3FU);
  if (--_missing > 0) return false;
  const bool valid = _character >= _smallest && _character <= kLargest && !IsSurrogate(_character);
  key = valid ? _character : kReplacement;
  return key >= 0xA0;
}

bool KeyReader::Begin(unsigned char byte, char32_t& key) {
  const bool behind_cr = _behind_cr;
  _behind_cr = byte == '\r';
  if (byte < 0x80) {
    if (byte == '\0' || (byte == '\n' && behind_cr)) return false;
    key = byte == '\n' ? kEnter : byte;
    return true;
  }
  if (byte >= 0xC2 && byte <= 0xDF) {
    _missing = 1;
    _character = byte & 0x1FU;
    _smallest = 0x80;
  } else if ((byte & 0xF0U) == 0xE0U) {
    _missing = 2;
    _character = byte & 0x0FU;
    _smallest = 0x800;
  } else if (byte >= 0xF0 && byte <= 0xF4) {
    _missing = 3;
    _character = byte & 0x07U;
    _smallest = 0x10000;
  } else {
    key = kReplacement;
    return true;
  }
  return false;
}

std::chrono::seconds KeyReader::idle() const {
  const Channel::Clock::time_point last{Channel::Clock::duration(_last_byte.load())};
  return std::chrono::duration_cast<std::chrono::seconds>(Channel::Clock::now() - last);
}

std::string Utf8(char32_t character) {
  const auto tail = [character](unsigned int shift) {
    return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) return {static_cast<char>(character)};
  if (character < 0x800) return {static_cast<char>(0xC0U | (character >> 6U)), tail(0)};
  if (character < 0x10000) return {static_cast<char>(0xE0U | (character >> 12U)), tail(6), tail(0)};
  return {static_cast<char>(0xF0U | (character >> 18U)), tail(12), tail(6), tail(0)};
}

}  // namespace olt_host
