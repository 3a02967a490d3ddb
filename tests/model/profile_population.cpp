#include "profile.h"

namespace model {

namespace {

Value Number(u32 number) {
  Value value;
  value.tag = 2;
  value.number = number;
  return value;
}

bool IsCounted(u32 number) { return number >= 1 && number <= 0xFFFFFFFEU; }

bool IsRegistered(u16 code) {
  if (Codes().IsExist(code) != 0) {
    return true;
  }
  MODEL_LOG(1, "ability_code don't exist,ability_code:%d", code);
  return false;
}

}  // namespace

void Profile::AddValue(u16 code, const Value& value) {
  if (!IsRegistered(code)) {
    return;
  }
  if (IsExist(code)) {
    UpdateValue(code, value);
    return;
  }
  if (value.tag == 2) {
    if (value.number == default_value) {
      MODEL_LOG(4,
                "ability value is equal to default value,profile type:%d, value type:%d, "
                "ability_code:%d, ability name:%s, ability_value:%d, default value:%d",
                type, static_cast<int>(value.tag), code, MODEL_NAME(code),
                static_cast<int>(value.number), static_cast<int>(default_value));
      return;
    }
  } else if (value.tag == 3) {
    if (value.text.empty()) {
      MODEL_LOG(4,
                "ability value is equal to default value,profile type:%d, value type:%d, "
                "ability_code:%d, ability_value:%s",
                type, static_cast<int>(value.tag), code, value.text.c_str());
      return;
    }
  } else {
    MODEL_LOG(4, "ability value type is invalid,profile type:%d, value type:%d, ability_code:%d",
              type, static_cast<int>(value.tag), code);
    return;
  }
  abilities[code] = value;
  Update();
  count = static_cast<u32>(abilities.size());
}

void Profile::AddNumber(u16 code, u32 value) {
  if (!IsRegistered(code)) {
    return;
  }
  if (IsExist(code)) {
    UpdateNumber(code, value);
    return;
  }
  if (value == default_value) {
    MODEL_LOG(4,
              "ability value is equal to default value,profile type:%d, ability_code:%d, "
              "ability_name:%s, ability_value:%d, default value:%d",
              type, code, MODEL_NAME(code), static_cast<int>(value),
              static_cast<int>(default_value));
    return;
  }
  abilities[code] = Number(value);
  Update();
  count = static_cast<u32>(abilities.size());
}

void Profile::AddText(u16 code, const std::string& value) {
  if (!IsRegistered(code)) {
    return;
  }
  if (IsExist(code)) {
    abilities[code].text = value;
    return;
  }
  if (value.empty()) {
    MODEL_LOG(4,
              "ability value is equal to default value,profile type:%d, ability_code:%d, "
              "ability name:%s, ability_value:%s",
              type, code, MODEL_NAME(code), value.c_str());
    return;
  }
  Value stored;
  stored.tag = 3;
  stored.number = default_value;
  stored.text = value;
  abilities[code] = stored;
  count = static_cast<u32>(abilities.size());
}

void Profile::AddKey(u32 value) {
  if (IsExist(key_code)) {
    UpdateNumber(key_code, value);
    return;
  }
  if (value == default_value) {
    MODEL_LOG(4,
              "ability value is equal to default value,profile type:%d, key_ability_code:%d, "
              "ability_name:%s, key_ability_value:%d, default value:%d",
              type, key_code, MODEL_NAME(key_code), static_cast<int>(value),
              static_cast<int>(default_value));
    return;
  }
  abilities[key_code] = Number(value);
  Update();
  count = static_cast<u32>(abilities.size());
}

void Profile::AddAllCodes(int wanted_type, u32 value) {
  for (CodeRecord& record : Codes().records) {
    if (IsExist(record.code)) {
      continue;
    }
    if (wanted_type == 2 && (record.attributes[1] & 2U) == 0) {
      continue;
    }
    const u16 tag = Codes().Attribute(record.code, 5);
    Value stored;
    stored.tag = tag;
    if (tag == 2) {
      stored.number = value;
    }
    abilities[record.code] = stored;
  }
  Update();
}

void Profile::UpdateValue(u16 code, const Value& value) {
  if (abilities.count(code) != 0) {
    abilities[code] = value;
  }
  Update();
}

void Profile::UpdateNumber(u16 code, u32 value) {
  if (abilities.count(code) == 0) {
    Update();
    return;
  }
  if (abilities[code].tag != 2) {
    MODEL_LOG(0, "value_type invalid!value_type:%d", static_cast<int>(abilities[code].tag));
    return;
  }
  abilities[code].number = type == 1 && value == 0xFFFFFFFFU ? 0 : value;
  Update();
}

void Profile::UpdateText(u16 code, const std::string& value) {
  if (abilities.count(code) == 0) {
    return;
  }
  if (abilities[code].tag != 3) {
    MODEL_LOG(0, "value_type invalid!value_type:%d", static_cast<int>(abilities[code].tag));
    return;
  }
  abilities[code].text = value;
}

void Profile::UpdateInitNumber(u16 code, u32 value) { abilities[code] = Number(value); }

void Profile::UpdateInitText(u16 code, const std::string& value) {
  Value stored;
  stored.tag = 3;
  stored.number = default_value;
  stored.text = value;
  abilities[code] = stored;
}

void Profile::Update() {
  UpdateLan();
  UpdateDataUni();
}

void Profile::UpdateLan() {
  u32 sum = 0;
  bool found = false;
  for (const auto& entry : abilities) {
    if (Codes().Attribute(entry.first, 4) == 3 && IsCounted(entry.second.number)) {
      sum += entry.second.number;
      found = true;
    }
  }
  if (found) {
    abilities[1001] = Number(sum);
    count = static_cast<u32>(abilities.size());
  }
  MODEL_LOG(6, "all_lan_num:%d", static_cast<int>(sum));
}

void Profile::UpdateDataUni() {
  u32 sum = 0;
  bool found = false;
  for (const auto& entry : abilities) {
    const u16 code = entry.first;
    const u32 number = entry.second.number;
    const u16 value_type = Codes().Attribute(code, 5);
    MODEL_LOG(6, "ability_code:%d, ability_attr_value:%d", code, value_type);
    if (value_type != 2) {
      continue;
    }
    const u16 port_type = Codes().Attribute(code, 4);
    MODEL_LOG(6, "ability_code:%d, ability_value:%u, ability_attr_value:%d", code, number,
              port_type);
    if ((port_type & ~4U) == 3 && IsCounted(number)) {
      sum += number;
      found = true;
    }
  }
  if (found) {
    abilities[65533] = Number(sum);
    count = static_cast<u32>(abilities.size());
  }
  MODEL_LOG(6, "data_uni_total_num:%d", static_cast<int>(sum));
}

void Profile::Del(u16 code) {
  if (abilities.erase(code) != 0) {
    Update();
  }
}

}  // namespace model
