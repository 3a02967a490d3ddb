#include "serialisation.h"

#include "profile.h"

namespace model {

namespace {

bool FailsNow(u32& remaining) { return remaining != 0 && --remaining == 0; }

std::string Terminated(const std::string& text) { return text.substr(0, text.find('\0')); }

bool Pack(Buffer& buffer, const Item& item, const char* field) {
  if (buffer.Append(item)) {
    return true;
  }
  MODEL_LOG(13, "pack %s failed\r\n", field);
  return false;
}

bool Unpack(Buffer& buffer, u32& number, const char* field) {
  Item item = {};
  if (buffer.Fetch(Item::kInt, item)) {
    number = item.number;
    return true;
  }
  MODEL_LOG(13, "unpack %s failed\r\n", field);
  return false;
}

bool UnpackEnum(Buffer& buffer, int& member, const char* field) {
  u32 number = 0;
  if (!Unpack(buffer, number, field)) {
    return false;
  }
  member = static_cast<int>(number);
  return true;
}

// False when the bytes cannot be fetched; a failed allocation skips them.
bool UnpackText(Buffer& buffer, u32 length, std::string& text) {
  // One byte more than 32 bits can count: no buffer of that length, so nothing to fetch.
  if (length == 0xFFFFFFFFU) {
    MODEL_LOG(13, "unpack ability_string_value failed\r\n");
    return false;
  }
  TheRecord().memory.push_back({"bep_callocEx", length + 1});
  if (FailsNow(buffer.fail_allocation)) {
    return true;
  }
  std::string bytes;
  const bool fetched = buffer.FetchBytes(length, bytes);
  if (fetched) {
    text = Terminated(bytes);
  } else {
    MODEL_LOG(13, "unpack ability_string_value failed\r\n");
  }
  TheRecord().memory.push_back({"bep_freeEx", length + 1});
  return fetched;
}

bool UnpackRecord(Buffer& buffer, u32& code, Value& value) {
  u32 length = 0;
  if (!Unpack(buffer, code, "ability_code") || !Unpack(buffer, value.tag, "ability_value_type") ||
      !Unpack(buffer, value.number, "ability_ushort_value") ||
      !Unpack(buffer, length, "ability_string_len")) {
    return false;
  }
  return length == 0 || UnpackText(buffer, length, value.text);
}

}  // namespace

bool Buffer::Append(const Item& item) {
  if (FailsNow(fail_append)) {
    return false;
  }
  items.push_back(item);
  return true;
}

bool Buffer::Fetch(Item::Kind kind, Item& item) {
  if (FailsNow(fail_fetch) || cursor >= items.size() || items[cursor].kind != kind) {
    return false;
  }
  item = items[cursor++];
  return true;
}

bool Buffer::FetchBytes(u32 length, std::string& bytes) {
  if (FailsNow(fail_fetch) || cursor >= items.size() || items[cursor].kind != Item::kBytes ||
      items[cursor].bytes.size() != length) {
    return false;
  }
  bytes = items[cursor++].bytes;
  return true;
}

void Profile::Serialize(Buffer& buffer) const {
  if (!Pack(buffer, {Item::kShort, id, ""}, "_id") ||
      !Pack(buffer, {Item::kInt, bind_count, ""}, "_bind_count") ||
      !Pack(buffer, {Item::kInt, static_cast<u32>(match_type), ""}, "_flag_match_type") ||
      !Pack(buffer, {Item::kInt, static_cast<u32>(type), ""}, "_profile_type") ||
      !Pack(buffer, {Item::kInt, static_cast<u32>(source), ""}, "_profile_source") ||
      !Pack(buffer, {Item::kInt, default_value, ""}, "_ability_default_value") ||
      !Pack(buffer, {Item::kInt, count, ""}, "_common_ability_num")) {
    return;
  }
  for (const auto& entry : abilities) {
    const Value& value = entry.second;
    const std::string text = Terminated(value.text);
    const u32 length = static_cast<u32>(text.size());
    if (!Pack(buffer, {Item::kInt, entry.first, ""}, "ability_code") ||
        !Pack(buffer, {Item::kInt, value.tag, ""}, "ability_value_type") ||
        !Pack(buffer, {Item::kInt, value.number, ""}, "ability_ushort_value") ||
        !Pack(buffer, {Item::kInt, length, ""}, "ability_string_len")) {
      return;
    }
    if (length != 0 && !Pack(buffer, {Item::kBytes, 0, text}, "ability_string_value")) {
      return;
    }
  }
}

void Profile::UnSerialize(Buffer& buffer) {
  Item header = {};
  if (!buffer.Fetch(Item::kShort, header)) {
    MODEL_LOG(13, "unpack _id failed\r\n");
    return;
  }
  id = static_cast<u16>(header.number);
  u32 stored = 0;
  if (!Unpack(buffer, bind_count, "_bind_count") ||
      !UnpackEnum(buffer, match_type, "_flag_match_type") ||
      !UnpackEnum(buffer, type, "_profile_type") ||
      !UnpackEnum(buffer, source, "_profile_source") ||
      !Unpack(buffer, default_value, "_ability_default_value") ||
      !Unpack(buffer, stored, "_common_ability_num")) {
    return;
  }
  if (stored == 0) {
    count = 0;
    return;
  }
  // Meant: the counter wraps at 65536, so larger counts read until the end.
  for (u16 i = 0; i < stored; ++i) {
    u32 code = 0;
    Value value;
    if (!UnpackRecord(buffer, code, value)) {
      return;
    }
    AddValue(static_cast<u16>(code), value);
  }
  count = stored;
}

}  // namespace model
