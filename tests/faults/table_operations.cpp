// The tables through their manager, and on their own.
#include "onu_ability_common_service_cinterface.h"
#include "operations.h"
#include "prepared_library.h"
#include "short_ways/texts.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

constexpr auto kReal = ONU_ABILITY_PROFILE_TYPE_REAL;
constexpr auto kMatch = ONU_ABILITY_PROFILE_TYPE_MATCH;
constexpr auto kDefault = ONU_ABILITY_PROFILE_SOURCE_DEFAULT;
constexpr auto kExternal = ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
constexpr auto kAll = ONU_ABILITY_PROFILE_SOURCE_ALL;
constexpr unsigned short kName = ONU_ABILITY_CODE_TYPE_NAME;
constexpr unsigned short kOnuType = 1102;  // the real type of the real profile 102

OnuAbilityTableManager& Manager() { return *OnuAbilityTableManager::GetInstance(); }
OnuAbilityTableBase& Table(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  return *Manager()._map_table.at(type);
}

Operation Plain(const char* name, unsigned long long (*run)()) {
  return {name, [run] { return Call{run}; }};
}

// A call with a profile of its caller, which the operation may bring up to date.
Operation With(const char* name, OnuAbilityProfile (*make)(),
               unsigned long long (*run)(OnuAbilityProfile&)) {
  return {name, [make, run] {
            auto kept = std::make_shared<OnuAbilityProfile>(make());
            auto given = std::make_shared<OnuAbilityProfile>(*kept);
            return Call{[given, run] { return run(*given); }, nullptr,
                        [given] { return Shown(*given); }, [given, kept] { *given = *kept; }};
          }};
}

// The table has room for a fifth profile, so it does not grow.
Operation WithRoom(Operation operation) {
  operation.name += "WithRoom";
  operation.prepare = [prepare = operation.prepare] {
    for (const auto type : {kReal, kMatch}) {
      OnuAbilityProfile profile = NewProfile(type, 800);
      Manager().Add(profile);
    }
    return prepare();
  };
  return operation;
}

OnuAbilityProfile NewReal() { return NewProfile(kReal, 900); }
OnuAbilityProfile NewMatch() { return NewProfile(kMatch, 900); }
OnuAbilityProfile StoredReal() { return TableOf(kReal)[1]; }
OnuAbilityProfile StoredMatch() { return TableOf(kMatch)[1]; }

OnuAbilityProfile UnidentifiedMatch() {
  OnuAbilityProfile profile = StoredMatch();
  profile._id = 0;
  return profile;
}

Operations Additions() {
  const Operation real = With(
      "AddReal", NewReal, [](OnuAbilityProfile& profile) { return 0ULL + Manager().Add(profile); });
  const Operation match = With("AddMatch", NewMatch, [](OnuAbilityProfile& profile) {
    return 0ULL + Manager().Add(profile);
  });
  return {
      real,
      WithRoom(real),
      match,
      WithRoom(match),
      With("AddRealTwice", StoredReal,
           [](OnuAbilityProfile& profile) { return 0ULL + Manager().Add(profile); }),
      Plain("AddNumber", [] { return 0ULL + Manager().Add(kReal, kExternal, 101, 1020, 2); }),
      Plain("AddNumberToThePattern",
            [] { return 0ULL + Manager().Add(kMatch, kDefault, 202, 1020, 2); }),
      Plain("AddNumberThatIsAKey",
            [] { return 0ULL + Manager().Add(kReal, kExternal, 101, 1085, 999); }),
      Plain("AddText",
            [] {
              return 0ULL + Manager().Add(kReal, kExternal, 101, ONU_ABILITY_CODE_PROFILE_NAME,
                                          LongName());
            }),
      Plain("AddNumberToNone", [] { return 0ULL + Manager().Add(kReal, kExternal, 5, 1023, 2); }),
  };
}

Operations Deletions() {
  return {
      With("DelReal", StoredReal,
           [](OnuAbilityProfile& profile) { return 0ULL + Manager().Del(profile); }),
      With("DelMatchById", StoredMatch,
           [](OnuAbilityProfile& profile) { return 0ULL + Manager().Del(profile); }),
      With("DelMatchThatFits", UnidentifiedMatch,
           [](OnuAbilityProfile& profile) { return 0ULL + Manager().Del(profile); }),
      Plain("DelByKey", [] { return 0ULL + Manager().Del(kExternal, kReal, 101); }),
      Plain("DelByKeyOfNone", [] { return 0ULL + Manager().Del(kExternal, kReal, 5); }),
      Plain("DelAllReal", [] { return 0ULL + Manager().DelAll(kExternal, kReal); }),
      Plain("DelAllMatch", [] { return 0ULL + Manager().DelAll(kDefault, kMatch); }),
      Plain("AddBindCount", [] { return 0ULL + Manager().AddBindCount(kReal, 101); }),
      Plain("MinusBindCount", [] { return 0ULL + Manager().MinusBindCount(kReal, 101); }),
  };
}

Call RestoreTable(ONU_ABILITY_ENUM_PROFILE_TYPE type) {
  auto kept = std::make_shared<std::vector<OnuAbilityProfile>>(TableOf(type));
  kept->resize(2);
  auto given = std::make_shared<std::vector<OnuAbilityProfile>>(*kept);
  return {[given, type] {
            Table(type).Restore(std::move(*given));
            return 0ULL;
          },
          nullptr, nullptr, [given, kept] { *given = *kept; }};
}

// Two tables are two steps.
Operation BothTables() {
  Operation operation = Plain("ManagerInit", [] {
    Manager().Init();
    return 0ULL;
  });
  operation.prepare = [prepare = operation.prepare] {
    Manager().DelOnuAbilityTable(kReal);
    Manager().DelOnuAbilityTable(kMatch);
    return prepare();
  };
  operation.in_steps = true;
  return operation;
}

Operations WholeTables() {
  Operation anew = Plain("ManagerAddTable", [] {
    Manager().AddOnuAbilityTable(kReal);
    return 0ULL;
  });
  anew.prepare = [prepare = anew.prepare] {
    Manager().DelOnuAbilityTable(kReal);
    return prepare();
  };
  return {
      {"TableRestoreReal", [] { return RestoreTable(kReal); }},
      {"TableRestoreMatch", [] { return RestoreTable(kMatch); }},
      anew,
      BothTables(),
      Plain("ManagerDelTable",
            [] {
              Manager().DelOnuAbilityTable(kMatch);
              return 0ULL;
            }),
      Plain("ManagerDelRealTable",
            [] {
              Manager().DelOnuAbilityTable(kReal);
              return 0ULL;
            }),
      Plain("TableOfTheHost",
            [] {
              OnuAbilityProfile profile;
              OnuRealAbilityTable real;
              OnuMatchAbilityTable match;
              OnuAbilityTableBase base;
              real.Add(profile);
              match.Add(profile);
              return 0ULL + base.Add(profile) + base.Del(profile) + base.Del(kDefault, 1) +
                     (base == profile) + base.GetLampTotalNum(1U) +
                     base.GetLampTotalNum(static_cast<unsigned short>(1)) + base.AddBindCount(1) +
                     base.MinusBindCount(1);
            }),
  };
}

// --- Questions

Call Copies(unsigned int (*get)(std::vector<OnuAbilityProfile>&)) {
  auto found = std::make_shared<std::vector<OnuAbilityProfile>>();
  return {[found, get] { return 0ULL + get(*found); }, nullptr,
          [found] {
            std::string text;
            for (const OnuAbilityProfile& profile : *found) {
              text += Shown(profile) + "\n";
            }
            return text;
          },
          [found] { found->clear(); }};
}

Call Copy(unsigned int (*get)(OnuAbilityProfile&)) {
  auto found = std::make_shared<OnuAbilityProfile>();
  return {[found, get] { return 0ULL + get(*found); }, nullptr, [found] { return Shown(*found); },
          [found] { *found = OnuAbilityProfile(); }};
}

Call Text(unsigned int (*get)(std::string&)) {
  auto found = std::make_shared<std::string>();
  return {[found, get] { return 0ULL + get(*found); }, nullptr, [found] { return *found; },
          [found] { found->clear(); }};
}

Operations CopyingQuestions() {
  return {
      {"GetProfilesByKey",
       [] { return Copies([](auto& all) { return Manager().Get(kReal, kAll, 102U, all); }); }},
      {"GetProfilesByType",
       [] { return Copies([](auto& all) { return Manager().Get(kReal, kAll, kOnuType, all); }); }},
      {"GetAll",
       [] {
         return Copies([](auto& all) {
           Manager().GetAll(kMatch, kAll, all);
           return 0U;
         });
       }},
      {"GetProfileByKey",
       [] { return Copy([](auto& one) { return Manager().Get(kReal, kAll, 102U, one); }); }},
      {"GetProfileByType",
       [] { return Copy([](auto& one) { return Manager().Get(kReal, kAll, kOnuType, one); }); }},
      {"GetTextByKey",
       [] { return Text([](auto& text) { return Manager().Get(kReal, 102U, kName, text); }); }},
      {"GetTextByType",
       [] { return Text([](auto& text) { return Manager().Get(kReal, kOnuType, kName, text); }); }},
      {"GetTextOfNone",
       [] { return Text([](auto& text) { return Manager().Get(kReal, 5U, kName, text); }); }},
  };
}

Operations OtherQuestions() {
  return {
      Plain("GetNumberByKey",
            [] {
              unsigned int value = 0;
              return 0ULL + Manager().Get(kReal, 102U, 1010, value) + value;
            }),
      Plain("GetNumberByType",
            [] {
              unsigned int value = 0;
              return 0ULL + Manager().Get(kReal, kOnuType, 1010, value) + value;
            }),
      Plain("GetNewId",
            [] {
              unsigned short id = 0;
              return 0ULL + Manager().Get(kReal, kExternal, id) + id;
            }),
      Plain("KeyIsExist", [] { return 0ULL + Manager().IsExist(kReal, kAll, 102); }),
      Plain("ValueIsEqual", [] { return 0ULL + Manager().IsEqual(kReal, kAll, 1010, 2); }),
      Plain("CodeIsHeld",
            [] { return 0ULL + Table(kReal).IsExist(static_cast<unsigned short>(1010)); }),
      With("Match", NewReport,
           [](OnuAbilityProfile& report) { return 0ULL + (Manager() == report); }),
      With("MatchOfNone", UnidentifiedMatch,
           [](OnuAbilityProfile& report) { return 0ULL + (Manager() == report); }),
  };
}

}  // namespace

Operations TableChanges() {
  Operations all = Additions();
  for (const Operations& more : {Deletions(), WholeTables()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

Operations TableQuestions() {
  Operations all = CopyingQuestions();
  const Operations more = OtherQuestions();
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

Operations QueryOperations() {
  return {
      Plain("QueryKey", [] { return 0ULL + onu_ability_key_ability_value_is_exist(102); }),
      Plain("QueryRealType", [] { return 0ULL + onu_ability_search_by_real_type(kOnuType); }),
      Plain("QueryNumber",
            [] { return 0ULL + onu_ability_get_onu_ability_value_by_key_value(102, 1010); }),
      Plain("QueryNameByKey",
            [] {
              char name[40] = {};
              return 0ULL + onu_ability_get_onu_type_name_by_key_value(102, name, sizeof name);
            }),
      Plain("QueryNameByType",
            [] {
              char name[40] = {};
              return 0ULL + onu_ability_get_onu_type_name_by_realtype(kOnuType, name, sizeof name);
            }),
      Plain("QueryLampsByType", [] { return 0ULL + onu_ability_get_onu_lamp_total_num(kOnuType); }),
      Plain("QueryLampsByKey",
            [] { return 0ULL + onu_ability_get_onu_lamp_total_num_by_key_ability(102); }),
  };
}
