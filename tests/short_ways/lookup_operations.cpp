// What is asked through the manager and by the query functions.
#include "onu_ability_common_service_cinterface.h"
#include "stage.h"
#include "texts.h"

namespace {

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

void Exists(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  stage.Say(Words("manager.IsExist(", type, ", ", source, ", ", key, ")"));
  stage.Note("IsExist", Manager().IsExist(type, source, key));
}

void Equals(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const unsigned short code = random.Code();
  const unsigned int number = random.OneIn(2) ? stage.Key(random) : random.Number();
  stage.Say(Words("manager.IsEqual(", type, ", ", source, ", ", code, ", ", number, ")"));
  stage.Note("IsEqual", Manager().IsEqual(type, source, code, number));
}

void NewId(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  stage.Say(Words("manager.Get(", type, ", ", source, ", id)"));
  unsigned short id = 77;
  stage.Note("result", Manager().Get(type, source, id));
  stage.Note("id", id);
}

void AllProfiles(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  std::vector<OnuAbilityProfile> found(2);
  if (random.OneIn(2)) {
    stage.Say(Words("manager.Get(", type, ", ", source, ", key ", key, ", profiles)"));
    stage.Note("result", Manager().Get(type, source, key, found));
  } else {
    const auto real_type = static_cast<unsigned short>(key);
    stage.Say(Words("manager.Get(", type, ", ", source, ", type ", real_type, ", profiles)"));
    stage.Note("result", Manager().Get(type, source, real_type, found));
  }
  stage.Note("profile found", found);
}

void OneProfile(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  const unsigned int slot = random.Slot();
  OnuAbilityProfile& profile = stage.profiles[slot];
  if (random.OneIn(2)) {
    stage.Say(Words("manager.Get(", type, ", ", source, ", key ", key, ", p", slot, ")"));
    stage.Note("result", Manager().Get(type, source, key, profile));
  } else {
    const auto real_type = static_cast<unsigned short>(key);
    stage.Say(Words("manager.Get(", type, ", ", source, ", type ", real_type, ", p", slot, ")"));
    stage.Note("result", Manager().Get(type, source, real_type, profile));
  }
  stage.Note("profile", profile);
}

void OneNumber(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const unsigned int key = stage.Key(random);
  const auto real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.Code();
  stage.Say(Words("manager.Get(", type, ", key and type ", key, ", ", code, ", number)"));
  unsigned int number = 77;
  stage.Note("by key", Manager().Get(type, key, code, number));
  stage.Note("number", number);
  number = 77;
  stage.Note("by type", Manager().Get(type, real_type, code, number));
  stage.Note("number", number);
}

void OneText(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const unsigned int key = stage.Key(random);
  const auto real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.OneIn(2) ? ONU_ABILITY_CODE_TYPE_NAME : random.Code();
  stage.Say(Words("manager.Get(", type, ", key and type ", key, ", ", code, ", text)"));
  std::string text = "before";
  stage.Note("by key", Manager().Get(type, key, code, text));
  stage.Note("text", text);
  text = "before";
  stage.Note("by type", Manager().Get(type, real_type, code, text));
  stage.Note("text", text);
}

void WholeTable(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  stage.Say(Words("manager.GetAll(", type, ", ", source, ")"));
  std::vector<OnuAbilityProfile> found(2);
  Manager().GetAll(type, source, found);
  stage.Note("profile", found);
}

// --- Query functions

void QueryNumbers(Stage& stage, HostileInput& random) {
  const unsigned int key = stage.Key(random);
  const auto real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.Code();
  stage.Say(Words("queries of key and type ", key, ", code ", code));
  stage.Note("key exists", onu_ability_key_ability_value_is_exist(key));
  stage.Note("search", onu_ability_search_by_real_type(real_type));
  stage.Note("value", onu_ability_get_onu_ability_value_by_key_value(key, code));
}

void QueryLamps(Stage& stage, HostileInput& random) {
  const unsigned int key = stage.Key(random);
  const auto real_type = static_cast<unsigned short>(key);
  stage.Say(Words("lamp queries of key and type ", key));
  stage.Note("lamps by type", onu_ability_get_onu_lamp_total_num(real_type));
  stage.Note("lamps by key", onu_ability_get_onu_lamp_total_num_by_key_ability(key));
}

void QueryNames(Stage& stage, HostileInput& random) {
  constexpr unsigned int kRoom = 300;  // more than any name that a sequence stores
  const unsigned int key = stage.Key(random);
  const auto real_type = static_cast<unsigned short>(key);
  const unsigned int size = random.Pick<unsigned int>({0, 1, 2, 8, 21, kRoom});
  const bool null = random.OneIn(8);
  stage.Say(
      Words("type names of key and type ", key, ", ", null ? "null" : "buffer", " of ", size));
  std::string room(kRoom, '?');
  char* buffer = null ? nullptr : room.data();
  stage.Note("by key", onu_ability_get_onu_type_name_by_key_value(key, buffer, size));
  stage.Note("buffer", room);
  stage.Note("by type", onu_ability_get_onu_type_name_by_realtype(real_type, buffer, size));
  stage.Note("buffer", room);
}

}  // namespace

std::vector<Operation> LookupOperations() {
  return {
      {"lookup of a key", 4, Exists},         {"lookup of a value", 6, Equals},
      {"lookup of a new id", 2, NewId},       {"lookup of profiles", 5, AllProfiles},
      {"lookup of a profile", 6, OneProfile}, {"lookup of a number", 6, OneNumber},
      {"lookup of a text", 5, OneText},       {"lookup of a whole table", 1, WholeTable},
  };
}

std::vector<Operation> QueryOperations() {
  return {
      {"query of numbers", 5, QueryNumbers},
      {"query of lamps", 4, QueryLamps},
      {"query of names", 4, QueryNames},
  };
}
