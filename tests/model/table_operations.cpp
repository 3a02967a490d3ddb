#include "both_sides.h"
#include "tables.h"

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WITH_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define WITH_ADDRESS_SANITIZER
#endif

#if defined(WITH_ADDRESS_SANITIZER)
#include <sanitizer/lsan_interface.h>
#define LEAK_IS_MEANT(statement) \
  __lsan_disable();              \
  statement;                     \
  __lsan_enable()
#else
#define LEAK_IS_MEANT(statement) statement
#endif

namespace {

using model::Format;

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

// A second table of a type is never released, by neither side.
void Create(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  if (random.OneIn(2)) {
    both.Describe("manager.Init()");
    LEAK_IS_MEANT(Manager().Init(); model::Manager().Init());
  } else {
    both.Describe(Format("manager.AddOnuAbilityTable(%d)", type));
    LEAK_IS_MEANT(Manager().AddOnuAbilityTable(AsType(type)); model::Manager().AddTable(type));
  }
}

void Destroy(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  both.Describe(Format("manager.DelOnuAbilityTable(%d)", type));
  Manager().DelOnuAbilityTable(AsType(type));
  model::Manager().DelTable(type);
}

void Add(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  both.Describe(Format("manager.Add(p%u)", slot));
  both.Same("result", Manager().Add(both.library[slot]), model::Manager().Add(both.model[slot]));
}

void Del(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  both.Describe(Format("manager.Del(p%u)", slot));
  both.Same("result", Manager().Del(both.library[slot]), model::Manager().Del(both.model[slot]));
}

void DelByKey(BothSides& both, RandomInput& random) {
  const int source = random.Source();
  const int type = random.Type();
  const unsigned int key = both.Key(random);
  both.Describe(Format("manager.Del(source %d, type %d, key %u)", source, type, key));
  both.Same("result", Manager().Del(AsSource(source), AsType(type), key),
            model::Manager().DelByKey(source, type, key));
}

void DelAll(BothSides& both, RandomInput& random) {
  const int source = random.Source();
  const int type = random.Type();
  both.Describe(Format("manager.DelAll(source %d, type %d)", source, type));
  both.Same("result", Manager().DelAll(AsSource(source), AsType(type)),
            model::Manager().DelAll(source, type));
}

void Recognise(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  both.Describe(Format("manager == p%u", slot));
  both.Same("result", Manager() == both.library[slot],
            model::Manager().Recognise(both.model[slot]));
}

void Bind(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const unsigned int key = both.Key(random);
  if (random.OneIn(2)) {
    both.Describe(Format("manager.AddBindCount(%d, %u)", type, key));
    both.Same("result", Manager().AddBindCount(AsType(type), key),
              model::Manager().AddBindCount(type, key));
  } else {
    both.Describe(Format("manager.MinusBindCount(%d, %u)", type, key));
    both.Same("result", Manager().MinusBindCount(AsType(type), key),
              model::Manager().MinusBindCount(type, key));
  }
}

void AddNumber(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  const unsigned int key = both.Key(random);
  const unsigned short code = random.Code();
  const unsigned int number = random.Number();
  both.Describe(
      Format("manager.Add(type %d, source %d, key %u, %d, %u)", type, source, key, code, number));
  both.Same("result", Manager().Add(AsType(type), AsSource(source), key, code, number),
            model::Manager().AddNumber(type, source, key, code, number));
}

void AddText(BothSides& both, RandomInput& random) {
  const int type = random.Type();
  const int source = random.Source();
  const unsigned int key = both.Key(random);
  const unsigned short code = random.Code();
  const std::string text = random.Text();
  both.Describe(Format("manager.Add(type %d, source %d, key %u, %d, %s)", type, source, key, code,
                       Quoted(text).c_str()));
  both.Same("result", Manager().Add(AsType(type), AsSource(source), key, code, text),
            model::Manager().AddText(type, source, key, code, text));
}

// The tables themselves, as the manager's map gives them: what a table inherits
// and the manager never asks of it.
void AskTable(BothSides& both, RandomInput& random) {
  const int type = random.Pick({1, 2});
  const unsigned short code = random.Code();
  const unsigned int key = both.Key(random);
  both.Describe(Format("table %d: IsExist(%d), lamp totals of %u", type, code, key));
  const auto found = Manager()._map_table.find(AsType(type));
  model::Table* model = model::Manager().Find(type);
  OnuAbilityTableBase* table = found == Manager()._map_table.end() ? nullptr : found->second;
  both.Same("table exists", table != nullptr ? 1 : 0, model != nullptr ? 1 : 0);
  if (table == nullptr || model == nullptr) {
    return;
  }
  const unsigned short real_type = static_cast<unsigned short>(key);
  both.Same("IsExist", table->IsExist(code), model->IsExist(code));
  both.Same("lamps by key", table->GetLampTotalNum(key), model->LampTotalByKey(key));
  both.Same("lamps by type", table->GetLampTotalNum(real_type),
            model->LampTotalByRealType(real_type));
}

void AddToTable(BothSides& both, RandomInput& random) {
  const int type = random.Pick({1, 2});
  const unsigned int slot = random.Below(kSlots);
  both.Describe(Format("table %d: Add(p%u), past the manager", type, slot));
  const auto found = Manager()._map_table.find(AsType(type));
  model::Table* model = model::Manager().Find(type);
  if (found == Manager()._map_table.end() || found->second == nullptr || model == nullptr) {
    return;
  }
  both.Same("result", found->second->Add(both.library[slot]), model->Add(both.model[slot]));
}

void InertTable(BothSides& both, RandomInput& random) {
  const unsigned int slot = random.Below(kSlots);
  const unsigned int key = both.Key(random);
  both.Describe(Format("a base table, p%u", slot));
  OnuAbilityTableBase library;
  model::Table model;
  both.Same("Add", library.Add(both.library[slot]), model.Add(both.model[slot]));
  both.Same("Del", library.Del(both.library[slot]), model.Del(both.model[slot]));
  both.Same("Del by key", library.Del(AsSource(1), key), model.DelByKey(1, key));
  both.Same("==", library == both.library[slot], model.Recognise(both.model[slot]));
  both.Same("lamps", library.GetLampTotalNum(key), model.LampTotalByKey(key));
  both.Same("lamps by type", library.GetLampTotalNum(static_cast<unsigned short>(key)),
            model.LampTotalByRealType(static_cast<unsigned short>(key)));
  both.Same("AddBindCount", library.AddBindCount(key), model.AddBindCount(key));
  both.Same("MinusBindCount", library.MinusBindCount(key), model.MinusBindCount(key));
  both.Same("IsExist", library.IsExist(AsSource(2), key), model.IsExistKey(2, key));
}

}  // namespace

std::vector<Operation> TableOperations() {
  return {
      {"table creation", 1, Create},
      {"table destruction", 1, Destroy},
      {"table add", 14, Add},
      {"table delete", 3, Del},
      {"table delete by key", 2, DelByKey},
      {"table delete all", 1, DelAll},
      {"table match", 5, Recognise},
      {"table bind count", 3, Bind},
      {"table add number", 4, AddNumber},
      {"table add text", 3, AddText},
      {"table questions", 2, AskTable},
      {"table direct add", 1, AddToTable},
      {"table base", 1, InertTable},
  };
}
