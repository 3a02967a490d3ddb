#include "registries.h"

#include "settings.h"
#include "tables.h"

namespace model {

AttributeRegistry& Attributes() {
  static AttributeRegistry registry;
  return registry;
}

CodeRegistry& Codes() {
  static CodeRegistry registry;
  return registry;
}

CodeRecord::CodeRecord() {
  for (const auto& entry : Attributes().names) {
    attributes[entry.first] = 0;
  }
  attributes[5] = 2;
}

// --- Attributes

int AttributeRegistry::IsValid(const std::string& name) {
  for (const auto& entry : names) {
    if (entry.second == name) {
      MODEL_LOG(6, "ability attr name is equal!");
      return 0;
    }
  }
  return 1;
}

u32 AttributeRegistry::IsExist(int id) {
  if (names.count(id) != 0) {
    return 1;
  }
  MODEL_LOG(1, "ability_attr_code is invalid!ability_attr_code:%d", id);
  return 0;
}

std::string AttributeRegistry::NameOf(int id) {
  if (names.count(id) != 0) {
    return names[id];
  }
  MODEL_LOG(1, "find ability_attr_id null!ability_attr_id:%d", id);
  return "NULL";
}

int AttributeRegistry::IdOf(const std::string& name) {
  for (const auto& entry : names) {
    if (entry.second == name) {
      MODEL_LOG(6, "ability_attr_name is equal!ability_attr_name:%s", name.c_str());
      return entry.first;
    }
  }
  return 0;
}

void AttributeRegistry::Add(int id, const std::string& name) {
  if (IsValid(name) == 0) {
    MODEL_LOG(0, "ability attr name is invalid!ability_attr_name:%s", name.c_str());
    return;
  }
  if (names.count(id) != 0) {
    MODEL_LOG(9, "ability_attr_id exist,ability_attr_id:%d", id);
    return;
  }
  MODEL_LOG(1, "ability_attr_id is valid!ability_attr_id:%d", id);
  names[id] = name;
}

void AttributeRegistry::Update(int id, const std::string& name) {
  if (IsValid(name) == 0) {
    MODEL_LOG(0, "ability attr name is invalid!ability_attr_name:%s", name.c_str());
    return;
  }
  if (names.count(id) == 0) {
    MODEL_LOG(1, "ability_attr_id do not exist,ability_attr_id:%d", id);
    return;
  }
  MODEL_LOG(9, "ability_attr_id exist,ability_attr_id:%d", id);
  names[id] = name;
}

void AttributeRegistry::Del(int id) {
  if (Codes().IsAttributeUsed(id) != 0) {
    MODEL_LOG(0, "ability_attr_id is using, can not del!ability_attr_id:%d", id);
    return;
  }
  if (names.count(id) == 0) {
    MODEL_LOG(1, "ability_attr_id is not exist!ability_attr_id:%d", id);
    return;
  }
  names.erase(id);
}

void AttributeRegistry::DelByName(const std::string& name) {
  const int id = IdOf(name);
  if (Codes().IsAttributeUsed(id) != 0) {
    MODEL_LOG(0, "ability_attr_id is using, can not del!ability_attr_id:%d", id);
    return;
  }
  for (auto entry = names.begin(); entry != names.end(); ++entry) {
    if (entry->second == name) {
      MODEL_LOG(6, "ability_attr_name is equal!ability_attr_name:%s", name.c_str());
      MODEL_LOG(9, "find ability_attr_name ok!ability_attr_name:%s", name.c_str());
      names.erase(entry);
      return;
    }
  }
  MODEL_LOG(1, "find ability_attr_name null!ability_attr_name:%s", name.c_str());
}

void AttributeRegistry::Show(bool terminal) {
  for (const auto& entry : names) {
    const std::string line =
        Format("ability_attr_id:%d, ability_attr_name:%s\r\n", entry.first, entry.second.c_str());
    if (terminal) {
      Print(line);
    } else if (Enabled(6)) {
      WriteLog(6, line, false);
    }
  }
}

// --- Codes

CodeRecord* CodeRegistry::Find(u16 code) {
  for (CodeRecord& record : records) {
    if (record.code == code) {
      return &record;
    }
  }
  return nullptr;
}

int CodeRegistry::IsValid(const CodeRecord& record) {
  for (const CodeRecord& stored : records) {
    if (stored.code != record.code && stored.name == record.name) {
      MODEL_LOG(0, "ability name is invalid!ability_code:%d, ability_name:%s", record.code,
                record.name.c_str());
      return 0;
    }
  }
  for (const auto& entry : record.attributes) {
    MODEL_LOG(6, "ability_attr_id:%d", entry.first);
    if (Attributes().IsExist(entry.first) == 0) {
      MODEL_LOG(0, "ability attr id do not exist!ability_attr_id:%d", entry.first);
      return 0;
    }
  }
  return 1;
}

void CodeRegistry::Update(const CodeRecord& record) {
  if (IsValid(record) == 0) {
    MODEL_LOG(0, "ability_code_info is invalid!");
    return;
  }
  CodeRecord* stored = Find(record.code);
  if (stored != nullptr) {
    MODEL_LOG(9, "ability code is equal!ability_code:%d", record.code);
    stored->name = record.name;
    stored->attributes = record.attributes;
    return;
  }
  MODEL_LOG(1, "find ability code null!ability_code:%d", record.code);
  records.push_back(record);
}

u32 CodeRegistry::IsExist(u16 code) {
  if (Find(code) != nullptr) {
    MODEL_LOG(6, "ability code is equal!ability_code:%d", code);
    return 1;
  }
  MODEL_LOG(1, "find ability code null!ability_code:%d", code);
  return 0;
}

u32 CodeRegistry::IsAttributeUsed(int id) {
  for (const CodeRecord& record : records) {
    if (record.attributes.count(id) != 0) {
      MODEL_LOG(9, "ability attr id exist!ability_attr_id:%d", id);
      return 1;
    }
  }
  MODEL_LOG(1, "find ability_attr_id null!ability_attr_id:%d", id);
  return 0;
}

u16 CodeRegistry::CodeOf(const std::string& name) {
  for (const CodeRecord& record : records) {
    if (record.name == name) {
      MODEL_LOG(9, "ability_name is equal!ability_name:%s", name.c_str());
      return record.code;
    }
  }
  return 65535;
}

std::string CodeRegistry::NameOf(u16 code) {
  const CodeRecord* record = Find(code);
  if (record == nullptr) {
    MODEL_LOG(1, "find ability_code null!ability_code:%d", code);
    return "NULL";
  }
  MODEL_LOG(9, "ability_code is equal!ability_code:%d, ability_name:%s", code,
            record->name.c_str());
  return record->name;
}

u16 CodeRegistry::Attribute(u16 code, int id) {
  if (Attributes().IsExist(id) == 0) {
    MODEL_LOG(0, "ability_attr_id do not exist,ability_attr_id:%d", id);
    return 65535;
  }
  CodeRecord* record = Find(code);
  if (record == nullptr) {
    MODEL_LOG(1, "find ability_code null!ability_code:%d", code);
    return 65535;
  }
  if (record->attributes.count(id) == 0) {
    record->attributes[id] = 0;
  }
  const u16 value = record->attributes[id];
  MODEL_LOG(9,
            "ability_code is equal!ability_code:%d, ability_name:%s, ability_attr_id:%d, "
            "ability_attr_name:%s, ability_attr_value:%d",
            code, record->name.c_str(), id, Attributes().NameOf(id).c_str(), value);
  return value;
}

u32 CodeRegistry::Del(u16 code) {
  Table* real = Manager().Find(1);
  if (real != nullptr && real->IsExist(code) != 0) {
    MODEL_LOG(0, "ability_code exist!ability_code:%d", code);
    return kOperateFailed;
  }
  for (auto record = records.begin(); record != records.end(); ++record) {
    if (record->code == code) {
      MODEL_LOG(9, "ability_code is equal!ability_code:%d", code);
      MODEL_LOG(9, "find ability_code ok!ability_code:%d", code);
      records.erase(record);
      return 0;
    }
  }
  MODEL_LOG(1, "find ability_code null!ability_code:%d", code);
  return 0;
}

u32 CodeRegistry::DelByName(const std::string& name) {
  const u16 code = CodeOf(name);
  Table* real = Manager().Find(1);
  if (real != nullptr && real->IsExist(code) != 0) {
    MODEL_LOG(4, "ability_name exist!ability_name:%s", name.c_str());
    return kOperateFailed;
  }
  for (auto record = records.begin(); record != records.end();) {
    if (record->name == name) {
      MODEL_LOG(9, "ability_name valid!ability_name:%s", name.c_str());
      record = records.erase(record);
    } else {
      ++record;
    }
  }
  return 0;
}

// --- Listings of codes

void CodeRegistry::ShowRecord(const CodeRecord& record) {
  const std::string stars(40, '*');
  Print("\r\n" + stars + "\r\n");
  Print(Format("ability_name:%s\r\n", record.name.c_str()));
  Print(Format("ability_code:%d\r\n", record.code));
  for (const auto& entry : record.attributes) {
    Print(Format("ability_attr_id:%d\r\n", entry.first));
    Print(Format("ability_attr_name:%s\r\n", Attributes().NameOf(entry.first).c_str()));
    Print(Format("ability_attr_value:%d\r\n", entry.second));
  }
  Print("\r\n" + stars + "\r\n\r\n");
}

void CodeRegistry::Show(bool terminal) {
  if (!terminal) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  const std::string signs(40, '#');
  Print("\r\n" + signs + "\r\n");
  Print(Format("_vec_ability_attr:%d\r\n", static_cast<int>(records.size())));
  for (const CodeRecord& record : records) {
    ShowRecord(record);
  }
  Print(signs + "\r\n");
}

void CodeRegistry::ShowCode(bool terminal, u16 code) {
  if (!terminal) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  const CodeRecord* record = Find(code);
  if (record != nullptr) {
    ShowRecord(*record);
  }
}

void CodeRegistry::ShowText(bool terminal, const std::string& text) {
  if (!terminal) {
    MODEL_LOG(13, "there is null pointer!");
    return;
  }
  const std::string wanted = ToUpper(text);
  for (const CodeRecord& record : records) {
    if (NameOf(record.code).find(wanted) != std::string::npos) {
      ShowRecord(record);
    }
  }
}

}  // namespace model
