// One question before and after a change, about one stored profile: what a short way
// keeps from the first must not outlive the change.
#include "operation_choice.h"
#include "texts.h"

namespace {

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }

const Operation& PickQuestion(RandomNumbers& random) {
  static const Operations questions =
      Collect({LookupOperations(), QueryOperations(), MatchOperations()});
  return PickOperation(questions, random);
}

// None that creates or destroys tables: nothing would be left to ask.
const Operation& PickChange(RandomNumbers& random, bool settled) {
  static const Operations changes = Collect({StoredProfileOperations(), RegistryOperations()});
  while (true) {
    const Operation& change = PickOperation(changes, random);
    if (!settled || !change.unsettles) {
      return change;
    }
  }
}

// A profile of a table, and how the manager finds it.
struct Target {
  Target(ONU_ABILITY_ENUM_PROFILE_TYPE its_type, HostileInput& random) : type(its_type) {
    std::vector<OnuAbilityProfile> stored;
    Manager().GetAll(type, ONU_ABILITY_PROFILE_SOURCE_ALL, stored);
    const unsigned int place = random.Below(4096);
    if (!stored.empty()) {
      profile = stored[place % stored.size()];
    }
    const auto held =
        profile._common_ability.find(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode());
    key = held == profile._common_ability.end() ? profile._ability_default_value
                                                : held->second.ability_ushort_value;
  }

  ONU_ABILITY_ENUM_PROFILE_TYPE type;
  OnuAbilityProfile profile;
  unsigned int key = 0;
};

// To the target, or to an older profile of its key.
void AddValue(Stage& stage, const Target& target, HostileInput& random) {
  const auto code = random.Pick<unsigned short>(
      {1002, 1010, 1011, 1012, 1020, 1030, 1031, 1081, 1085, random.Code()});
  const unsigned int number = random.Pick<unsigned int>({1, 2, 3, 5, 0xFFFFFFFFU, random.Key()});
  stage.Say(Words("  manager.Add(type ", target.type, ", source ", target.profile._profile_source,
                  ", key ", target.key, ", ", code, ", ", number, ")"));
  stage.Note("result",
             Manager().Add(target.type, target.profile._profile_source, target.key, code, number));
}

void Change(Stage& stage, const Target& target, HostileInput& random, bool settled) {
  if (random.OneIn(2)) {
    AddValue(stage, target, random);
  } else {
    PickChange(random, settled).run(stage, random);
  }
}

void AskTwice(Stage& stage, HostileInput& random, bool settled) {
  const Operation& question = PickQuestion(random);
  const Target target(
      random.OneIn(3) ? ONU_ABILITY_PROFILE_TYPE_MATCH : ONU_ABILITY_PROFILE_TYPE_REAL, random);
  const std::uint64_t seed = random.Next();
  stage.Say(Words(question.name, " before and after a change, key ", target.key));
  stage.favourite = target.key;
  HostileInput first(seed);
  question.run(stage, first);
  Change(stage, target, random, settled);
  HostileInput second(seed);
  question.run(stage, second);
  stage.favourite.reset();
}

void AskTwiceOfSettled(Stage& stage, HostileInput& random) { AskTwice(stage, random, true); }
void AskTwiceOfAny(Stage& stage, HostileInput& random) { AskTwice(stage, random, false); }

// --- Matching

// What an ONU reports that the target means: some of its values, other numbers for
// its wildcards.
OnuAbilityProfile ReportFor(const Target& target, HostileInput& random) {
  OnuAbilityProfile report = target.profile;
  report._profile_type = ONU_ABILITY_PROFILE_TYPE_MATCH;
  const auto left_out = random.Code();
  report._common_ability.erase(left_out);
  for (auto& ability : report._common_ability) {
    const unsigned int number = random.Pick<unsigned int>({1, 2, 3});
    if (ability.second.ability_ushort_value == ONU_ABILITY_WILDCARD || random.OneIn(12)) {
      ability.second.ability_ushort_value = number;
    }
  }
  return report;
}

void Match(Stage& stage, const OnuAbilityProfile& report) {
  OnuAbilityProfile copy = report;
  stage.Note("==", Manager() == copy);
  stage.Note("profile", copy);
}

void MatchTwice(Stage& stage, HostileInput& random) {
  const Target target(ONU_ABILITY_PROFILE_TYPE_MATCH, random);
  const OnuAbilityProfile report = ReportFor(target, random);
  stage.Say("manager == report " + Shown(report) + ", before and after a change");
  stage.favourite = target.key;
  Match(stage, report);
  Change(stage, target, random, true);
  Match(stage, report);
  stage.favourite.reset();
}

// A comparison gives the key code's pending entry to a pattern that lacks it. The
// deletion that finds nothing compares, too, and the key code may change meanwhile.
void LeavePendingEntries(Stage& stage, HostileInput& random) {
  OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
  const Target target(ONU_ABILITY_PROFILE_TYPE_MATCH, random);
  const OnuAbilityProfile report = ReportFor(target, random);
  OnuAbilityProfile lacking = target.profile;
  lacking._profile_type = ONU_ABILITY_PROFILE_TYPE_MATCH;
  lacking._common_ability.erase(codes.GetKeyAbilityCode());
  OnuAbilityProfile other_report = report;
  other_report._id = 0;
  other_report._flag_match_type = ONU_ABILITY_MATCH_TYPE_PATTERN;
  other_report._common_ability[random.Code()].ability_ushort_value = 9;
  const unsigned short key_code = codes.GetKeyAbilityCode();
  const unsigned short other_code = random.KeyCode();
  stage.Say("report " + Shown(report) + Words(", key code ", other_code, " and back"));
  Match(stage, report);
  stage.Note("addition", Manager().Add(lacking));
  stage.Note("deletion", Manager().Del(other_report));
  codes.SetKeyAbilityCode(other_code);
  Match(stage, random.OneIn(2) ? report : other_report);
  codes.SetKeyAbilityCode(key_code);
  Match(stage, report);
}

// --- A table whose keys are counts that every filling derives again

void KeyByDerivedCount(Stage& stage, HostileInput& random) {
  const auto code =
      random.Pick<unsigned short>({ONU_ABILITY_CODE_ALL_LAN, ONU_ABILITY_CODE_DATA_UNI});
  stage.Say(Words("tables anew, key ability code ", code));
  OnuAbilityCodeInfo::GetInstance()->SetKeyAbilityCode(code);
  Manager().DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  Manager().DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
  Manager().Init();
  Load(stage, random);
  Load(stage, random);
  for (unsigned int i = 0; i < 4; ++i) {
    AskTwice(stage, random, true);
  }
}

}  // namespace

std::vector<Operation> RepeatedQuestions() {
  return {
      {"question repeated", 20, AskTwiceOfSettled},
      {"question repeated at odds", 8, AskTwiceOfAny, false, true},
      {"match repeated", 14, MatchTwice},
      {"pending entries", 4, LeavePendingEntries},
      {"derived keys", 2, KeyByDerivedCount, false, true},
  };
}
