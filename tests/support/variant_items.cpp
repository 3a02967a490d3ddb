#include "variant_items.h"

#include <gtest/gtest.h>

#include <cstring>
#include <utility>

#include "host_code.h"
#include "recording_host.h"

namespace {

// What a Variant's handle points to.
struct Buffer {
  std::vector<VariantItem> items;
  size_t cursor = 0;  // of the next item to fetch
};

// Variant keeps its handle to itself, so the buffers are found by their owner.
// Never destroyed, like the recording host.
std::vector<std::pair<const Variant*, Buffer*>>& Buffers() {
  static auto* buffers = new std::vector<std::pair<const Variant*, Buffer*>>;
  return *buffers;
}

Buffer& BufferOf(const Variant& variant) {
  for (const auto& [owner, buffer] : Buffers()) {
    if (owner == &variant) {
      return *buffer;
    }
  }
  static Buffer none;
  ADD_FAILURE() << "no such Variant";
  return none;
}

Buffer* NewBuffer() {
  const HostCode host_code;
  return new Buffer;
}

void ForgetBuffer(const Variant* variant) {
  auto& buffers = Buffers();
  for (auto entry = buffers.begin(); entry != buffers.end(); ++entry) {
    if (entry->first == variant) {
      buffers.erase(entry);
      return;
    }
  }
}

bool FailsNow(unsigned int& remaining) { return remaining != 0 && --remaining == 0; }

unsigned int AppendItem(void* handle, VariantItem item) {
  if (FailsNow(RecordingHost::Instance().fail_append_)) {
    return 1;
  }
  static_cast<Buffer*>(handle)->items.push_back(std::move(item));
  return 0;
}

// The item under the cursor when the fetch may have it, null otherwise; a
// refused fetch leaves the cursor.
const VariantItem* FetchItem(void* handle, VariantItem::Kind kind, unsigned int index) {
  auto* buffer = static_cast<Buffer*>(handle);
  EXPECT_EQ(0xFFFFU, index) << "Fetch of other than the next item in sequence";
  if (FailsNow(RecordingHost::Instance().fail_fetch_) || buffer->cursor >= buffer->items.size()) {
    return nullptr;
  }
  const VariantItem& item = buffer->items[buffer->cursor];
  return item.kind == kind ? &item : nullptr;
}

void Advance(void* handle) { ++static_cast<Buffer*>(handle)->cursor; }

const char* NameOf(VariantItem::Kind kind) {
  switch (kind) {
    case VariantItem::kShort:
      return "short ";
    case VariantItem::kInt:
      return "int ";
    case VariantItem::kBytes:
      return "bytes ";
  }
  return "unknown ";
}

}  // namespace

// --- variant.h

Variant::Variant() : _handle(NewBuffer()) {
  const HostCode host_code;
  Buffers().emplace_back(this, static_cast<Buffer*>(_handle));
}

Variant::~Variant() {
  ForgetBuffer(this);
  delete static_cast<Buffer*>(_handle);
}

unsigned int Variant::Append(unsigned short value, unsigned int index) {
  const HostCode host_code;
  return AppendItem(_handle, {VariantItem::kShort, value, "", index});
}

unsigned int Variant::Append(unsigned int value, unsigned int index) {
  const HostCode host_code;
  return AppendItem(_handle, {VariantItem::kInt, value, "", index});
}

unsigned int Variant::Append(char* bytes, unsigned int length, unsigned int index) {
  const HostCode host_code;
  return AppendItem(_handle, {VariantItem::kBytes, 0, std::string(bytes, length), index});
}

unsigned int Variant::Fetch(unsigned short& value, unsigned int index) const {
  const HostCode host_code;
  const VariantItem* item = FetchItem(_handle, VariantItem::kShort, index);
  if (item == nullptr) {
    return 1;
  }
  value = static_cast<unsigned short>(item->number);
  Advance(_handle);
  return 0;
}

unsigned int Variant::Fetch(unsigned int& value, unsigned int index) const {
  const HostCode host_code;
  const VariantItem* item = FetchItem(_handle, VariantItem::kInt, index);
  if (item == nullptr) {
    return 1;
  }
  value = item->number;
  Advance(_handle);
  return 0;
}

unsigned int Variant::Fetch(char* bytes, unsigned int length, unsigned int index) const {
  const HostCode host_code;
  const VariantItem* item = FetchItem(_handle, VariantItem::kBytes, index);
  if (item == nullptr || item->bytes.size() != length) {
    return 1;
  }
  std::memcpy(bytes, item->bytes.data(), length);
  Advance(_handle);
  return 0;
}

// --- The items, opened up.

VariantItem ShortItem(unsigned short number) { return {VariantItem::kShort, number, "", 0xFFFF}; }

VariantItem IntItem(unsigned int number) { return {VariantItem::kInt, number, "", 0xFFFF}; }

VariantItem BytesItem(std::string bytes) {
  return {VariantItem::kBytes, 0, std::move(bytes), 0xFFFF};
}

bool operator==(const VariantItem& a, const VariantItem& b) {
  return a.kind == b.kind && a.number == b.number && a.bytes == b.bytes && a.index == b.index;
}

std::ostream& operator<<(std::ostream& out, const VariantItem& item) {
  out << NameOf(item.kind);
  if (item.kind == VariantItem::kBytes) {
    out << ::testing::PrintToString(item.bytes);
  } else {
    out << item.number;
  }
  return item.index == 0xFFFF ? out : out << " at index " << item.index;
}

std::vector<VariantItem> ItemsOf(const Variant& variant) { return BufferOf(variant).items; }

void PutItems(Variant& variant, const std::vector<VariantItem>& items) {
  Buffer& buffer = BufferOf(variant);
  buffer.items.insert(buffer.items.end(), items.begin(), items.end());
}

unsigned int ItemsLeft(const Variant& variant) {
  const Buffer& buffer = BufferOf(variant);
  return static_cast<unsigned int>(buffer.items.size() - buffer.cursor);
}
