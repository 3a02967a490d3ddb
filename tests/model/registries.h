// The model's ability values and its registries of attributes and codes.
#ifndef TESTS_MODEL_REGISTRIES_H
#define TESTS_MODEL_REGISTRIES_H

#include <map>
#include <string>
#include <vector>

#include "record.h"

namespace model {

struct Value {
  u32 tag = 0;
  u32 number = 0xFFFFFFFFU;
  std::string text;
};

struct CodeRecord {
  CodeRecord();
  std::string name;
  u16 code = 1001;
  std::map<int, u16> attributes;
};

class AttributeRegistry {
 public:
  int IsValid(const std::string& name);
  u32 IsExist(int id);
  std::string NameOf(int id);
  int IdOf(const std::string& name);
  void Add(int id, const std::string& name);
  void Update(int id, const std::string& name);
  void Del(int id);
  void DelByName(const std::string& name);
  void Show(bool terminal);

  std::map<int, std::string> names;
};
AttributeRegistry& Attributes();

class CodeRegistry {
 public:
  int IsValid(const CodeRecord& record);
  void Update(const CodeRecord& record);
  u32 IsExist(u16 code);
  u32 IsAttributeUsed(int id);
  u16 CodeOf(const std::string& name);
  std::string NameOf(u16 code);
  u16 Attribute(u16 code, int id);
  u32 Del(u16 code);
  u32 DelByName(const std::string& name);
  void Show(bool terminal);
  void ShowCode(bool terminal, u16 code);
  void ShowText(bool terminal, const std::string& text);

  std::vector<CodeRecord> records;
  u16 key_code = 1085;

 private:
  CodeRecord* Find(u16 code);
  void ShowRecord(const CodeRecord& record);
};
CodeRegistry& Codes();

// The name of a code as log lines ask for it; lives until the line is written.
#define MODEL_NAME(code) model::Codes().NameOf(code).c_str()

}  // namespace model

#endif  // TESTS_MODEL_REGISTRIES_H
