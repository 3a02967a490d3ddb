// Many profiles at once, and the tables that the test makes for itself.
#include "stage.h"
#include "texts.h"

namespace {

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

// Few prototypes, which the profiles of a load vary: filling each would take a
// sequence's time.
struct Prototypes {
  Prototypes(HostileInput& random, ONU_ABILITY_ENUM_PROFILE_TYPE type, bool irregular) {
    for (OnuAbilityProfile& profile : profiles) {
      if (irregular && random.OneIn(2)) {
        FillIrregularProfile(profile, random);
      } else {
        FillProfile(profile, random);
      }
      profile._profile_type = type;
    }
  }

  OnuAbilityProfile profiles[6];
};

void Vary(OnuAbilityProfile& profile, HostileInput& random, unsigned int distinct) {
  const unsigned int key = 1 + random.Below(distinct);
  const unsigned int real_type = 1 + random.Below(distinct);
  profile.UpdateInit(profile._key_ability_code, key);
  profile.UpdateInit(ONU_ABILITY_CODE_REAL_TYPE, real_type);
  const unsigned short codes[] = {1002, 1010, 1011, 1012, 1020};
  for (const unsigned short code : codes) {
    const unsigned int number = random.Pick<unsigned int>({1, 2, 2, 3, 0xFFFFFFFFU});
    profile.UpdateInit(code, number);
  }
  profile._id = random.OneIn(8) ? random.Id() : 0;
}

void Load(Stage& stage, HostileInput& random, unsigned int count, unsigned int distinct) {
  const auto type = static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(random.Pick({1, 2}));
  const bool irregular = random.OneIn(4);
  stage.Say(Words(count, irregular ? " profiles, some irregular," : " profiles", " of type ", type,
                  ", ", distinct, " different keys"));
  Prototypes prototypes(random, type, irregular);
  unsigned int refused = 0;
  for (unsigned int i = 0; i < count; ++i) {
    OnuAbilityProfile& profile = prototypes.profiles[random.Below(6)];
    const bool as_it_is = irregular && random.OneIn(4);
    if (!as_it_is) {
      Vary(profile, random, distinct);
    }
    refused += Manager().Add(profile) == 0 ? 0 : 1;
  }
  stage.Note("refused", refused);
}

// --- Tables of the test's own

void MakeOwnTables(Stage& stage, HostileInput& random) {
  if (random.OneIn(3)) {
    stage.Say("the test's tables go");
    stage.own_real.reset();
    stage.own_match.reset();
  } else {
    stage.Say("the test makes tables of its own");
    stage.own_real = std::make_unique<OwnTable<OnuRealAbilityTable>>();
    stage.own_match = std::make_unique<OwnTable<OnuMatchAbilityTable>>();
  }
}

// Where the manager has none, it gets one of the test's.
void PutOwnTable(Stage& stage, HostileInput& random) {
  const bool real = random.OneIn(2);
  const auto type = real ? ONU_ABILITY_PROFILE_TYPE_REAL : ONU_ABILITY_PROFILE_TYPE_MATCH;
  stage.Say(Words("the manager gets a table of the test's, type ", type));
  Manager().DelOnuAbilityTable(type);
  if (real) {
    Manager()._map_table[type] = new OwnTable<OnuRealAbilityTable>;
  } else {
    Manager()._map_table[type] = new OwnTable<OnuMatchAbilityTable>;
  }
}

template <typename Table>
std::vector<OnuAbilityProfile>* ProfilesOf(OnuAbilityTableBase* table) {
  auto* own = dynamic_cast<OwnTable<Table>*>(table);
  return own == nullptr ? nullptr : &own->profiles();
}

// Profiles of the test's tables change behind their backs.
void ChangeOwnTable(Stage& stage, HostileInput& random) {
  const bool real = random.OneIn(2);
  const bool managers = random.OneIn(2);
  const unsigned int slot = random.Slot();
  const unsigned int place = random.Below(8);
  stage.Say(Words("a profile of the test's table, place ", place, ", becomes p", slot));
  OnuAbilityTableBase* table =
      managers ? TableOfType(real ? ONU_ABILITY_PROFILE_TYPE_REAL : ONU_ABILITY_PROFILE_TYPE_MATCH)
      : real   ? static_cast<OnuAbilityTableBase*>(stage.own_real.get())
               : stage.own_match.get();
  auto* stored =
      real ? ProfilesOf<OnuRealAbilityTable>(table) : ProfilesOf<OnuMatchAbilityTable>(table);
  if (stored == nullptr) {
    return;
  }
  if (place < stored->size()) {
    (*stored)[place] = stage.profiles[slot];
  } else {
    stored->push_back(stage.profiles[slot]);
  }
}

void AskOwnTable(Stage& stage, OnuAbilityTableBase& table, HostileInput& random) {
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  const auto real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.Code();
  stage.Say(Words("  source ", source, ", key and type ", key, ", code ", code));
  unsigned int number = 77;
  stage.Note("IsExist", table.IsExist(source, key));
  stage.Note("IsEqual", table.IsEqual(source, code, key));
  stage.Note("by key", table.Get(key, code, number));
  stage.Note("number", number);
  stage.Note("by type", table.Get(real_type, code, number));
  stage.Note("number", number);
  stage.Note("lamps", table.GetLampTotalNum(key));
  stage.Note("bind", table.AddBindCount(key));
  stage.Note("value", table.Add(source, key, code, random.Number()));
  stage.Note("deletion", table.Del(source, key));
}

void UseOwnTables(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  OnuAbilityProfile& profile = stage.profiles[slot];
  stage.Say(Words("the test's tables: Add(p", slot, "), =="));
  if (stage.own_real == nullptr || stage.own_match == nullptr) {
    return;
  }
  stage.Note("real Add", stage.own_real->Add(profile));
  stage.Note("match Add", stage.own_match->Add(profile));
  AskOwnTable(stage, *stage.own_real, random);
  AskOwnTable(stage, *stage.own_match, random);
  stage.Note("==", *stage.own_match == profile);
  stage.Note("profile", profile);
  stage.Note("Del", stage.own_match->Del(profile));
}

void UseBaseTable(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("a base table, p", slot));
  OnuAbilityTableBase table;
  stage.Note("Add", table.Add(stage.profiles[slot]));
  stage.Note("Del", table.Del(stage.profiles[slot]));
  stage.Note("==", table == stage.profiles[slot]);
  AskOwnTable(stage, table, random);
}

}  // namespace

void Load(Stage& stage, HostileInput& random) {
  const unsigned int count = 2 + random.Below(7);
  Load(stage, random, count, random.Pick({2U, 3U, 6U}));
}

// Now and then the table of patterns then fills whole words of 64.
void LoadMedium(Stage& stage, HostileInput& random) {
  const unsigned int count = 60 + random.Below(140);
  const bool fills_words = random.OneIn(3);
  Load(stage, random, count, random.Pick({3U, 40U, 400U}));
  if (!fills_words) {
    return;
  }
  std::vector<OnuAbilityProfile> stored;
  Manager().GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, stored);
  stage.Say("patterns up to the next 64");
  for (size_t i = stored.size(); !stored.empty() && i % 64 != 0; ++i) {
    stage.Note("result", Manager().Add(stored.front()));
  }
}

void LoadLarge(Stage& stage, HostileInput& random) {
  const unsigned int count = 2000 + random.Below(300);
  Load(stage, random, count, random.Pick({40U, 3000U}));
}

std::vector<Operation> LoadOperations() {
  return {
      {"load", 5, Load},
      {"own tables", 1, MakeOwnTables},
      {"own table for the manager", 1, PutOwnTable, false, true},
      {"own table changed", 2, ChangeOwnTable},
      {"own tables used", 2, UseOwnTables},
      {"base table", 1, UseBaseTable},
  };
}
