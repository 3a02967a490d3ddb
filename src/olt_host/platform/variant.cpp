#include "variant.h"

#include <cstring>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "platform/variant_bytes.h"

namespace {

constexpr unsigned int kOk = 0;
constexpr unsigned int kFailed = 1;
constexpr unsigned int kNextItem = 0xFFFF;  // the only position that this host offers

constexpr std::size_t kTagSize = 1;
constexpr std::size_t kLengthSize = 4;

struct Buffer {
  std::vector<unsigned char> bytes;
  std::size_t cursor = 0;

  std::size_t unread() const { return bytes.size() - cursor; }
};

void PutNumber(std::vector<unsigned char>& bytes, unsigned int value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) {
    bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
  }
}

unsigned int NumberAt(const Buffer& buffer, std::size_t offset, std::size_t width) {
  unsigned int value = 0;
  for (std::size_t i = 0; i < width; ++i) {
    value |= static_cast<unsigned int>(buffer.bytes[buffer.cursor + offset + i]) << (8 * i);
  }
  return value;
}

// Adds a whole item or, without memory for it, nothing.
unsigned int Put(Buffer& buffer, olt_host::ItemTag tag, unsigned int value, std::size_t width,
                 const char* data, std::size_t length) {
  const std::size_t before = buffer.bytes.size();
  try {
    buffer.bytes.push_back(tag);
    PutNumber(buffer.bytes, value, width);
    buffer.bytes.insert(buffer.bytes.end(), data, data + length);
  } catch (const std::bad_alloc&) {
    buffer.bytes.resize(before);
    return kFailed;
  } catch (const std::length_error&) {
    buffer.bytes.resize(before);
    return kFailed;
  }
  return kOk;
}

// The next item as a number of `width` bytes; false when it is none.
bool TakeNumber(Buffer& buffer, olt_host::ItemTag tag, std::size_t width, unsigned int& value) {
  if (buffer.unread() < kTagSize + width || buffer.bytes[buffer.cursor] != tag) return false;
  value = NumberAt(buffer, kTagSize, width);
  buffer.cursor += kTagSize + width;
  return true;
}

Buffer& BufferIn(void* handle) { return *static_cast<Buffer*>(handle); }

// The class keeps its handle to itself, but a standard-layout object begins with
// its first member.
static_assert(std::is_standard_layout_v<Variant> && sizeof(Variant) == sizeof(void*));
Buffer& BufferOf(const Variant& variant) {
  return BufferIn(*reinterpret_cast<void* const*>(&variant));
}

}  // namespace

Variant::Variant() : _handle(new Buffer) {}

Variant::~Variant() { delete static_cast<Buffer*>(_handle); }

unsigned int Variant::Append(unsigned short value, unsigned int index) {
  if (index != kNextItem) return kFailed;
  return Put(BufferIn(_handle), olt_host::kShortItem, value, 2, nullptr, 0);
}

unsigned int Variant::Append(unsigned int value, unsigned int index) {
  if (index != kNextItem) return kFailed;
  return Put(BufferIn(_handle), olt_host::kIntItem, value, 4, nullptr, 0);
}

unsigned int Variant::Append(char* bytes, unsigned int length, unsigned int index) {
  if (index != kNextItem || (bytes == nullptr && length > 0)) return kFailed;
  return Put(BufferIn(_handle), olt_host::kBytesItem, length, kLengthSize, bytes, length);
}

unsigned int Variant::Fetch(unsigned short& value, unsigned int index) const {
  unsigned int number = 0;
  if (index != kNextItem || !TakeNumber(BufferIn(_handle), olt_host::kShortItem, 2, number))
    return kFailed;
  value = static_cast<unsigned short>(number);
  return kOk;
}

unsigned int Variant::Fetch(unsigned int& value, unsigned int index) const {
  if (index != kNextItem || !TakeNumber(BufferIn(_handle), olt_host::kIntItem, 4, value))
    return kFailed;
  return kOk;
}

unsigned int Variant::Fetch(char* bytes, unsigned int length, unsigned int index) const {
  Buffer& buffer = BufferIn(_handle);
  constexpr std::size_t kHeader = kTagSize + kLengthSize;
  if (index != kNextItem || (bytes == nullptr && length > 0)) return kFailed;
  if (buffer.unread() < kHeader || buffer.bytes[buffer.cursor] != olt_host::kBytesItem)
    return kFailed;
  if (NumberAt(buffer, kTagSize, kLengthSize) != length) return kFailed;
  if (buffer.unread() - kHeader < length) return kFailed;
  if (length > 0) std::memcpy(bytes, buffer.bytes.data() + buffer.cursor + kHeader, length);
  buffer.cursor += kHeader + length;
  return kOk;
}

namespace olt_host {

const std::vector<unsigned char>& VariantBytes(const Variant& variant) {
  return BufferOf(variant).bytes;
}

void SetVariantBytes(Variant& variant, std::vector<unsigned char> bytes) {
  Buffer& buffer = BufferOf(variant);
  buffer.bytes = std::move(bytes);
  buffer.cursor = 0;
}

bool IsReadToEnd(const Variant& variant) { return BufferOf(variant).unread() == 0; }

}  // namespace olt_host
