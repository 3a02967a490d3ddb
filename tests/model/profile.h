// The model's ability profile: reading, population, matching, serialisation and
// its listing.
#ifndef TESTS_MODEL_PROFILE_H
#define TESTS_MODEL_PROFILE_H

#include <map>
#include <string>

#include "registries.h"
#include "settings.h"

namespace model {

class Buffer;

class Profile {
 public:
  Profile();
  Profile(const Profile&) = default;  // every member, the key code included
  Profile& operator=(const Profile& other);
  void Init(int profile_type, int profile_source, int match_type);
  void Clear();

  u32 GetValue(u16 code, Value& value) const;
  u32 GetNumber(u16 code, u32& value) const;
  u32 GetText(u16 code, std::string& value) const;
  u32 GetKeyValue(u32& value) const;
  bool IsExist(u16 code) const;
  u32 GetTotalNum(int attribute) const;
  u32 GetSize() const;

  void AddValue(u16 code, const Value& value);
  void AddNumber(u16 code, u32 value);
  void AddText(u16 code, const std::string& value);
  void AddKey(u32 value);
  void AddAllCodes(int type, u32 value);
  void UpdateValue(u16 code, const Value& value);
  void UpdateNumber(u16 code, u32 value);
  void UpdateText(u16 code, const std::string& value);
  void UpdateInitNumber(u16 code, u32 value);
  void UpdateInitText(u16 code, const std::string& value);
  void Update();
  void UpdateLan();
  void UpdateDataUni();
  void Del(u16 code);

  u32 IsAmbiguousNumber(u32 value_1, u32 value_2) const;
  u32 IsAmbiguousText(const std::string& string_1, const std::string& string_2) const;
  u32 IsEqualValue(u16 code, const Value& value) const;
  u32 IsEqualNumber(u16 code, u32 value) const;
  u32 IsEqualOfSource(int wanted, u16 code, u32 value) const;
  u32 IsEqualText(u16 code, const std::string& value) const;
  u32 HasRealType(u16 real_type) const;
  u32 HasVendor(const std::string& vendor) const;
  u32 HasKey(u32 key_value) const;
  u32 Matches(const Profile& input);

  void Serialize(Buffer& buffer) const;
  void UnSerialize(Buffer& buffer);

  void Show(bool terminal, int wanted, u32 flag, const SerialNumber& number, u8 omci_mode) const;

  u16 id = 0;
  u32 bind_count = 0;
  int match_type = 0;
  int type = 0;
  int source = 0;
  u32 default_value = 0;
  u32 count = 0;
  std::map<u16, Value> abilities;
  u8 reserved[16] = {};
  u16 key_code;
  u32 age_count = 0;

 private:
  u32 MatchesPattern(const Profile& input);
  u32 MatchesExactly(const Profile& input) const;
  void ShowHeader(const SerialNumber& number, u8 omci_mode) const;
  void ShowAbilities(u32 flag) const;
};

}  // namespace model

#endif  // TESTS_MODEL_PROFILE_H
