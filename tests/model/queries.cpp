#include "queries.h"

#include <algorithm>

#include "settings.h"
#include "tables.h"

namespace model {

namespace {

// The terminated name at the start of the caller's buffer.
u32 WriteName(const std::string& name, std::string& buffer, u32 size) {
  const u32 room = size - 1;
  const u32 length = std::min(room, static_cast<u32>(name.size()));
  buffer.replace(0, length + 1, name.substr(0, length) + '\0');
  MODEL_LOG(5, "onu_type_name:%s", buffer.c_str());
  return 0;
}

}  // namespace

u32 KeyValueExists(u32 key) { return Manager().IsExist(1, 2, key); }

u32 SearchByRealType(u16 real_type) {
  if (Manager().IsEqual(1, 2, 1081, real_type) != 0) {
    return 0;
  }
  MODEL_LOG(1, "this onu real type is not exist!onu_real_type:%hu", real_type);
  return kInvalidParameter;
}

u32 AbilityByKey(u32 key, u16 code) {
  u32 value = 0;
  const u32 ret = Manager().GetNumberByKey(1, key, code, value);
  if (ret != 0) {
    MODEL_LOG(1, "get ability value failed!real_type:%d, ability_code:%d, ret:0x%x",
              static_cast<int>(key), code, ret);
    return 0;
  }
  return value;
}

u32 TypeNameByKey(u32 key, std::string* buffer, u32 size) {
  if (buffer == nullptr) {
    MODEL_LOG(13, "p_onu_type_name is null!");
    return kNullPointer;
  }
  std::string name;
  if (Manager().GetTextByKey(1, key, 1083, name) != 0) {
    MODEL_LOG(1, "onu_ability_get_onu_type_name failed!key_ability_value:%hu",
              static_cast<u16>(key));
    return kNotFound;
  }
  return WriteName(name, *buffer, size);
}

u32 TypeNameByRealType(u16 real_type, std::string* buffer, u32 size) {
  if (buffer == nullptr) {
    MODEL_LOG(13, "p_onu_type_name is null!");
    return kNullPointer;
  }
  std::string name;
  if (Manager().GetTextByRealType(1, real_type, 1083, name) != 0) {
    MODEL_LOG(1, "onu_ability_get_onu_type_name failed!onu_real_type:%hu", real_type);
    return kNotFound;
  }
  return WriteName(name, *buffer, size);
}

u32 LampTotalByRealType(u16 real_type) {
  Table* table = Manager().tables[1].get();
  if (table == nullptr) {
    MODEL_LOG(13, "there is null pointer!");
    return 0;
  }
  return table->LampTotalByRealType(real_type);
}

u32 LampTotalByKey(u32 key) {
  Table* table = Manager().tables[1].get();
  if (table == nullptr) {
    MODEL_LOG(13, "there is null pointer!");
    return 0;
  }
  return table->LampTotalByKey(key);
}

}  // namespace model
