// The tables: their life, what they store, matching and bind counts.
#include <utility>

#include "stage.h"
#include "texts.h"

namespace {

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

// A second table of a type is never released, as meant; the process ends with the
// sequence.
void Create(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  if (random.OneIn(2)) {
    stage.Say("manager.Init()");
    Manager().Init();
  } else {
    stage.Say(Words("manager.AddOnuAbilityTable(", type, ")"));
    Manager().AddOnuAbilityTable(type);
  }
}

void Destroy(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const bool again = !random.OneIn(4);
  stage.Say(Words("manager.DelOnuAbilityTable(", type, ")", again ? ", and a new one" : ""));
  Manager().DelOnuAbilityTable(type);
  if (again) {
    Manager().AddOnuAbilityTable(type);
  }
}

// What a host kept of a table and puts back, in another order and with changes.
void Restore(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const unsigned int slot = random.Slot();
  const unsigned int place = random.Below(12);
  const unsigned int kind = random.Below(4);
  stage.Say(Words("table ", type, ": Restore, kind ", kind, ", place ", place, ", p", slot));
  std::vector<OnuAbilityProfile> kept;
  Manager().GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, kept);
  if (kind == 1) {
    kept.push_back(stage.profiles[slot]);
  } else if (kind == 2 && place < kept.size()) {
    kept[place] = stage.profiles[slot];
  } else if (kind == 3 && place < kept.size()) {
    std::swap(kept[place], kept.back());
  }
  if (OnuAbilityTableBase* table = TableOfType(type)) {
    table->Restore(kept);
  }
}

// --- Stored profiles

void Add(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("manager.Add(p", slot, ")"));
  stage.Note("result", Manager().Add(stage.profiles[slot]));
  stage.Note("profile", stage.profiles[slot]);
}

void AddPastManager(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const unsigned int slot = random.Slot();
  stage.Say(Words("table ", type, ": Add(p", slot, "), past the manager"));
  if (OnuAbilityTableBase* table = TableOfType(type)) {
    stage.Note("result", table->Add(stage.profiles[slot]));
  }
}

void Del(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("manager.Del(p", slot, ")"));
  stage.Note("result", Manager().Del(stage.profiles[slot]));
  stage.Note("profile", stage.profiles[slot]);
}

void DelByKey(Stage& stage, HostileInput& random) {
  const auto source = random.Source();
  const auto type = random.Type();
  const unsigned int key = stage.Key(random);
  stage.Say(Words("manager.Del(source ", source, ", type ", type, ", key ", key, ")"));
  stage.Note("result", Manager().Del(source, type, key));
}

// From the middle of the table, to its end.
void Replace(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  OnuAbilityProfile& profile = stage.profiles[slot];
  stage.Say(Words("manager.Del(source ", source, ", key ", key, "), Add(p", slot, ")"));
  stage.Note("deletion", Manager().Del(source, profile._profile_type, key));
  stage.Note("addition", Manager().Add(profile));
}

void DelAll(Stage& stage, HostileInput& random) {
  const auto source = random.Source();
  const auto type = random.Type();
  stage.Say(Words("manager.DelAll(source ", source, ", type ", type, ")"));
  stage.Note("result", Manager().DelAll(source, type));
}

unsigned short ValueCode(HostileInput& random) {
  return random.OneIn(2)
             ? random.Code()
             : random.Pick<unsigned short>({1085, 1085, 1081, 1081, 1030, 1031, 1083, 1010, 1011});
}

void AddNumber(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  const unsigned short code = ValueCode(random);
  const unsigned int number = random.OneIn(2) ? random.Key() : random.Number();
  stage.Say(Words("manager.Add(type ", type, ", source ", source, ", key ", key, ", ", code, ", ",
                  number, ")"));
  stage.Note("result", Manager().Add(type, source, key, code, number));
}

void AddText(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const auto source = random.Source();
  const unsigned int key = stage.Key(random);
  const unsigned short code = ValueCode(random);
  const std::string text = random.Text();
  stage.Say(Words("manager.Add(type ", type, ", source ", source, ", key ", key, ", ", code, ", ",
                  Quoted(text), ")"));
  stage.Note("result", Manager().Add(type, source, key, code, text));
}

void Bind(Stage& stage, HostileInput& random) {
  const auto type = random.OneIn(8) ? random.Type() : ONU_ABILITY_PROFILE_TYPE_REAL;
  const unsigned int key = stage.Key(random);
  if (random.OneIn(3)) {
    stage.Say(Words("manager.MinusBindCount(", type, ", ", key, ")"));
    stage.Note("result", Manager().MinusBindCount(type, key));
  } else {
    stage.Say(Words("manager.AddBindCount(", type, ", ", key, ")"));
    stage.Note("result", Manager().AddBindCount(type, key));
  }
}

// --- Matching

void Match(Stage& stage, HostileInput& random) {
  const unsigned int slot = random.Slot();
  stage.Say(Words("manager == p", slot));
  stage.Note("result", Manager() == stage.profiles[slot]);
  stage.Note("profile", stage.profiles[slot]);
}

// A report as an ONU gives it, a few of its values of another type, sometimes none.
OnuAbilityProfile Report(HostileInput& random) {
  OnuAbilityProfile report;
  report.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, random.Source(), random.MatchType());
  if (random.OneIn(12)) {
    return report;
  }
  const unsigned short codes[] = {1001, 1002, 1010, 1011, 1012, 1020,
                                  1030, 1031, 1080, 1085, 65533};
  for (const unsigned short code : codes) {
    const unsigned int number = random.Pick<unsigned int>({1, 1, 2, 0, 257, 0xFFFFFFFFU});
    if (!random.OneIn(3)) {
      report.UpdateInit(code, number);
    }
  }
  const std::string vendor = random.Vendor();
  if (random.OneIn(2)) {
    report.UpdateInit(ONU_ABILITY_CODE_VENDOR_ID, vendor);
  }
  const unsigned short odd_code = random.Code();
  const ONU_ABILITY_COMMON_ABILITY_VALUE odd = random.Value();
  if (random.OneIn(3)) {
    report._common_ability[odd_code] = odd;
  }
  return report;
}

void MatchReport(Stage& stage, HostileInput& random) {
  OnuAbilityProfile report = Report(random);
  stage.Say("manager == report " + Shown(report));
  stage.Note("result", Manager() == report);
  stage.Note("profile", report);
}

// The table's operator takes what the manager would never hand to it.
void MatchPastManager(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const unsigned int slot = random.Slot();
  stage.Say(Words("table ", type, " == p", slot));
  if (OnuAbilityTableBase* table = TableOfType(type)) {
    stage.Note("result", *table == stage.profiles[slot]);
    stage.Note("profile", stage.profiles[slot]);
  }
}

// --- Questions past the manager

void AskTable(Stage& stage, HostileInput& random) {
  const auto type = random.Type();
  const unsigned short code = random.Code();
  const unsigned int key = stage.Key(random);
  stage.Say(Words("table ", type, ": IsExist(", code, "), lamp totals of ", key));
  if (OnuAbilityTableBase* table = TableOfType(type)) {
    stage.Note("IsExist", table->IsExist(code));
    stage.Note("lamps by key", table->GetLampTotalNum(key));
    stage.Note("lamps by type", table->GetLampTotalNum(static_cast<unsigned short>(key)));
  }
}

}  // namespace

void InitTables(Stage& stage, HostileInput& /*random*/) {
  stage.Say("manager.Init()");
  Manager().Init();
}

std::vector<Operation> TableOperations() {
  return {
      {"table creation", 1, Create},
      {"table destruction", 1, Destroy, false, true},
  };
}

std::vector<Operation> StoredProfileOperations() {
  return {
      {"table add", 8, Add},
      {"table direct add", 2, AddPastManager},
      {"table delete", 4, Del},
      {"table delete by key", 5, DelByKey},
      {"table replacement", 5, Replace},
      {"table delete all", 1, DelAll},
      {"table restoration", 2, Restore},
      {"table add number", 10, AddNumber},
      {"table add text", 5, AddText},
      {"table bind count", 4, Bind},
  };
}

std::vector<Operation> MatchOperations() {
  return {
      {"table match", 4, Match},
      {"table match of a report", 12, MatchReport},
      {"table direct match", 2, MatchPastManager},
      {"table questions", 4, AskTable},
  };
}
