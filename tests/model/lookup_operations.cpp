#include "both_sides.h"
#include "tables.h"

namespace {

using model::Format;

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

void Questions(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  const unsigned int key = both.Key(random);
  const unsigned short code = random.Code();
  const unsigned int number = random.Number();
  both.Describe(
      Format("manager.IsExist(%d, %d, %u), IsEqual(%d, %u)", type, source, key, code, number));
  both.Same("IsExist", Manager().IsExist(AsType(type), AsSource(source), key),
            model::Manager().IsExist(type, source, key));
  both.Same("IsEqual", Manager().IsEqual(AsType(type), AsSource(source), code, number),
            model::Manager().IsEqual(type, source, code, number));
}

void NewId(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  both.Describe(Format("manager.Get(%d, %d, id)", type, source));
  unsigned short library_id = 77;
  unsigned short id = 77;
  both.Same("result", Manager().Get(AsType(type), AsSource(source), library_id),
            model::Manager().GetNewId(type, source, id));
  both.Same("id", library_id, id);
}

void AllProfiles(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  const unsigned int key = both.Key(random);
  std::vector<OnuAbilityProfile> library(2);
  model::Profiles model(2);
  if (random.OneIn(2)) {
    both.Describe(Format("manager.Get(%d, %d, key %u, profiles)", type, source, key));
    both.Same("result", Manager().Get(AsType(type), AsSource(source), key, library),
              model::Manager().GetAllByKey(type, source, key, model));
  } else {
    const unsigned short real_type = static_cast<unsigned short>(key);
    both.Describe(Format("manager.Get(%d, %d, type %d, profiles)", type, source, real_type));
    both.Same("result", Manager().Get(AsType(type), AsSource(source), real_type, library),
              model::Manager().GetAllByRealType(type, source, real_type, model));
  }
  both.Same("profiles found", library, model);
}

void OneProfile(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  const unsigned int key = both.Key(random);
  const unsigned int slot = random.Below(kSlots);
  if (random.OneIn(2)) {
    both.Describe(Format("manager.Get(%d, %d, key %u, p%u)", type, source, key, slot));
    both.Same("result", Manager().Get(AsType(type), AsSource(source), key, both.library[slot]),
              model::Manager().GetByKey(type, source, key, both.model[slot]));
  } else {
    const unsigned short real_type = static_cast<unsigned short>(key);
    both.Describe(Format("manager.Get(%d, %d, type %d, p%u)", type, source, real_type, slot));
    both.Same("result",
              Manager().Get(AsType(type), AsSource(source), real_type, both.library[slot]),
              model::Manager().GetByRealType(type, source, real_type, both.model[slot]));
  }
}

void OneNumber(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const unsigned int key = both.Key(random);
  const unsigned short real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.Code();
  both.Describe(Format("manager.Get(%d, key and type %u, %d, number)", type, key, code));
  unsigned int library = 77;
  unsigned int model = 77;
  both.Same("by key", Manager().Get(AsType(type), key, code, library),
            model::Manager().GetNumberByKey(type, key, code, model));
  both.Same("number by key", library, model);
  both.Same("by type", Manager().Get(AsType(type), real_type, code, library),
            model::Manager().GetNumberByRealType(type, real_type, code, model));
  both.Same("number by type", library, model);
}

void OneText(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const unsigned int key = both.Key(random);
  const unsigned short real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.OneIn(2) ? 1083 : random.Code();
  both.Describe(Format("manager.Get(%d, key and type %u, %d, text)", type, key, code));
  std::string library = "before";
  std::string model = "before";
  both.Same("by key", Manager().Get(AsType(type), key, code, library),
            model::Manager().GetTextByKey(type, key, code, model));
  both.Same("text by key", library, model);
  both.Same("by type", Manager().Get(AsType(type), real_type, code, library),
            model::Manager().GetTextByRealType(type, real_type, code, model));
  both.Same("text by type", library, model);
}

void WholeTable(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  both.Describe(Format("manager.GetAll(%d, %d)", type, source));
  std::vector<OnuAbilityProfile> library(2);
  Manager().GetAll(AsType(type), AsSource(source), library);
  model::Profiles model;
  model::Table* table = model::Manager().Find(type);
  if (table != nullptr) {
    table->Lock();
    for (const model::Profile& profile : table->profiles) {
      if (source == 2 || profile.source == source) {
        model.push_back(profile);
      }
    }
    table->Unlock();
  }
  both.Same("copies", library, model);
}

}  // namespace

std::vector<Operation> LookupOperations() {
  return {
      {"lookup questions", 3, Questions},         {"lookup of a new id", 1, NewId},
      {"lookup of profiles", 4, AllProfiles},     {"lookup of a profile", 4, OneProfile},
      {"lookup of a number", 4, OneNumber},       {"lookup of a text", 4, OneText},
      {"lookup of a whole table", 1, WholeTable},
  };
}
