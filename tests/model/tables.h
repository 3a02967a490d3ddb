// The model's tables of profiles and the manager in front of them.
#ifndef TESTS_MODEL_TABLES_H
#define TESTS_MODEL_TABLES_H

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "profile.h"

namespace model {

using Profiles = std::vector<Profile>;

class Table {
 public:
  Table();
  virtual ~Table();

  virtual u32 Add(Profile& profile);
  virtual u32 Del(const Profile& profile);
  virtual u32 DelByKey(int source, u32 key);
  virtual u32 Recognise(Profile& profile);
  virtual u32 LampTotalByKey(u32 key);
  virtual u32 LampTotalByRealType(u16 real_type);
  virtual u32 AddBindCount(u32 key);
  virtual u32 MinusBindCount(u32 key);

  u32 IsExist(u16 code);
  u32 IsExistKey(int source, u32 key);
  u32 IsEqual(int source, u16 code, u32 value);
  u32 AddNumber(int source, u32 key, u16 code, u32 value);
  u32 AddText(int source, u32 key, u16 code, const std::string& value);
  u32 DelAll(int source);
  u32 GetNewId(int source, u16& id);
  u32 GetAllByKey(int source, u32 key, Profiles& out);
  u32 GetAllByRealType(int source, u16 real_type, Profiles& out);
  u32 GetByKey(int source, u32 key, Profile& out);
  u32 GetByRealType(int source, u16 real_type, Profile& out);
  u32 GetNumberByKey(u32 key, u16 code, u32& value);
  u32 GetTextByKey(u32 key, u16 code, std::string& value);
  u32 GetNumberByRealType(u16 real_type, u16 code, u32& value);
  u32 GetTextByRealType(u16 real_type, u16 code, std::string& value);

  void Lock() const;
  void Unlock() const;

  Profiles profiles;
  const u16 key_code;

 protected:
  const int mutex_;
};

class MatchTable : public Table {
 public:
  MatchTable();
  ~MatchTable() override;
  u32 Add(Profile& profile) override;
  u32 Del(const Profile& profile) override;
  u32 Recognise(Profile& profile) override;
};

class RealTable : public Table {
 public:
  RealTable();
  ~RealTable() override;
  u32 Add(Profile& profile) override;
  u32 Del(const Profile& profile) override;
  u32 DelByKey(int source, u32 key) override;
  u32 LampTotalByKey(u32 key) override;
  u32 LampTotalByRealType(u16 real_type) override;
  u32 AddBindCount(u32 key) override;
  u32 MinusBindCount(u32 key) override;

 private:
  Profile* FindBindable(u32 key);
};

class TableManager {
 public:
  void Init();
  void AddTable(int type);
  void DelTable(int type);
  // Null when the type has no table, or an entry without one.
  Table* Find(int type);

  u32 Add(Profile& profile);
  u32 Del(Profile& profile);
  u32 DelByKey(int source, int type, u32 key);
  u32 DelAll(int source, int type);
  u32 Recognise(Profile& profile);
  u32 IsExist(int type, int source, u32 key);
  u32 IsEqual(int type, int source, u16 code, u32 value);
  u32 AddBindCount(int type, u32 key);
  u32 MinusBindCount(int type, u32 key);
  u32 GetNewId(int type, int source, u16& id);
  u32 GetAllByKey(int type, int source, u32 key, Profiles& out);
  u32 GetAllByRealType(int type, int source, u16 real_type, Profiles& out);
  u32 GetByKey(int type, int source, u32 key, Profile& out);
  u32 GetByRealType(int type, int source, u16 real_type, Profile& out);
  u32 GetNumberByKey(int type, u32 key, u16 code, u32& value);
  u32 GetTextByKey(int type, u32 key, u16 code, std::string& value);
  u32 GetTextByRealType(int type, u16 real_type, u16 code, std::string& value);
  u32 GetNumberByRealType(int type, u16 real_type, u16 code, u32& value);
  u32 AddNumber(int type, int source, u32 key, u16 code, u32 value);
  u32 AddText(int type, int source, u32 key, u16 code, const std::string& value);

  std::map<int, std::shared_ptr<Table>> tables;
};
TableManager& Manager();

}  // namespace model

#endif  // TESTS_MODEL_TABLES_H
