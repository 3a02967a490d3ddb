// A copy of an ability's name that takes no memory of its own for the names that are
// in use: made for every log line and cell that names an ability, while the name's
// owner may change it. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_NAME_TEXT_H
#define ONU_ABILITY_COMMON_TABLE_NAME_TEXT_H

#include <cstring>
#include <string>

class NameText {
 public:
  void Assign(const std::string& name) {
    if (name.size() < sizeof(_room)) {
      std::memcpy(_room, name.c_str(), name.size() + 1);
      _text = _room;
    } else {
      _long = name;
      _text = _long.c_str();
    }
  }
  NameText() = default;
  NameText(const NameText&) = delete;
  NameText& operator=(const NameText&) = delete;

  const char* c_str() const { return _text; }

 private:
  char _room[48] = {'N', 'U', 'L', 'L'};
  const char* _text = _room;
  std::string _long;
};

#endif  // ONU_ABILITY_COMMON_TABLE_NAME_TEXT_H
