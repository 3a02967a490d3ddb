// The registries of attributes and codes.
#include "operations.h"
#include "prepared_library.h"
#include "short_ways/texts.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

constexpr auto kNewId = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(41);
constexpr auto kFreeId = static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(42);

OnuAbilityAttrInfo& Attributes() { return *OnuAbilityAttrInfo::GetInstance(); }
OnuAbilityCodeInfo& Codes() { return *OnuAbilityCodeInfo::GetInstance(); }

// A call without anything of its own.
Operation Plain(const char* name, unsigned long long (*run)()) {
  return {name, [run] { return Call{run}; }};
}

// With an attribute that no code has.
Call WithFreeAttribute(unsigned long long (*run)()) {
  Attributes().Add(kFreeId, "FREE_ATTRIBUTE_OF_THE_HOST");
  return Call{run};
}

Operations AttributeOperations() {
  return {
      Plain("AttributeAdd",
            [] {
              Attributes().Add(kNewId, "ANOTHER_ATTRIBUTE_OF_THE_HOST");
              return 0ULL;
            }),
      Plain("AttributeUpdate",
            [] {
              Attributes().Update(ONU_ABILITY_ATTR_LAMP, "ANOTHER_NAME_OF_THE_LAMP");
              return 0ULL;
            }),
      {"AttributeDelById",
       [] {
         return WithFreeAttribute([] {
           Attributes().Del(kFreeId);
           return 0ULL;
         });
       }},
      {"AttributeDelByName",
       [] {
         return WithFreeAttribute([] {
           Attributes().Del("FREE_ATTRIBUTE_OF_THE_HOST");
           return 0ULL;
         });
       }},
      Plain("AttributeDelOfOneInUse",
            [] {
              Attributes().Del(ONU_ABILITY_ATTR_LAMP);
              return 0ULL;
            }),
      Plain("AttributeIsValid",
            [] {
              return static_cast<unsigned long long>(
                  Attributes().IsValid("ATTRIBUTE_OF_THE_HOST_ITSELF"));
            }),
      Plain("AttributeIsExist", [] { return 0ULL + Attributes().IsExist(ONU_ABILITY_ATTR_LAMP); }),
      Plain("AttributeNameOf", [] { return 0ULL + Attributes().Get(kNewId).size(); }),
      Plain("AttributeIdOf",
            [] {
              return static_cast<unsigned long long>(
                  Attributes().Get("ATTRIBUTE_OF_THE_HOST_ITSELF"));
            }),
  };
}

Call ShowOn(void (*show)(void*)) {
  auto terminal = std::make_shared<vty>();
  return {[terminal, show] {
            show(terminal.get());
            return 0ULL;
          },
          nullptr, [terminal] { return terminal->text; }, [terminal] { terminal->text.clear(); }};
}

Operations Listings() {
  return {
      {"AttributeShow", [] { return ShowOn([](void* vty) { Attributes().Show(vty); }); }},
      {"CodeShow", [] { return ShowOn([](void* vty) { Codes().Show(vty); }); }},
      {"CodeShowOne",
       [] {
         return ShowOn([](void* vty) { Codes().Show(vty, static_cast<unsigned short>(1002)); });
       }},
      {"CodeShowByText",
       [] {
         return ShowOn([](void* vty) { Codes().Show(vty, std::string("translation_of_the")); });
       }},
      Plain("AttributeShowInTheLog",
            [] {
              Attributes().Show(nullptr);
              return 0ULL;
            }),
  };
}

Call UpdateCode(unsigned short code) {
  auto record = std::make_shared<ONU_ABILITY_CODE_ATTR_INFO>();
  record->ability_code = code;
  record->ability_name = "A_CODE_OF_THE_HOST_ITSELF";
  record->ability_attr[ONU_ABILITY_ATTR_LAMP] = 1;
  return {[record] {
            Codes().Update(*record);
            return 0ULL;
          },
          nullptr, [record] { return Shown(*record); }};
}

ONU_ABILITY_CODE_ATTR_INFO RefusedRecord(const char* name, int attribute) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = 2000;
  record.ability_name = name;
  record.ability_attr[static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(attribute)] = 1;
  return record;
}

// Of a name that another code has, or with an attribute that nobody registered.
ONU_ABILITY_CODE_ATTR_INFO RecordOfATakenName() {
  return RefusedRecord("TRANSLATION_OF_THE_REPORTED_TYPE", ONU_ABILITY_ATTR_LAMP);
}
ONU_ABILITY_CODE_ATTR_INFO RecordOfAnUnknownAttribute() {
  return RefusedRecord("A_CODE_OF_THE_HOST_ITSELF", 77);
}

Operations Judgements() {
  return {
      Plain("CodeIsValidForATakenName",
            [] { return 0ULL + static_cast<unsigned int>(Codes().IsValid(RecordOfATakenName())); }),
      Plain("CodeIsValidForAnUnknownAttribute",
            [] {
              return 0ULL +
                     static_cast<unsigned int>(Codes().IsValid(RecordOfAnUnknownAttribute()));
            }),
      Plain("CodeUpdateOfATakenName",
            [] {
              ONU_ABILITY_CODE_ATTR_INFO record = RecordOfATakenName();
              Codes().Update(record);
              return 0ULL;
            }),
      Plain("CodeUpdateOfAnUnknownAttribute",
            [] {
              ONU_ABILITY_CODE_ATTR_INFO record = RecordOfAnUnknownAttribute();
              Codes().Update(record);
              return 0ULL;
            }),
  };
}

// A second of a list that is handed over, to be moved from in each call.
Call RestoreCodes() {
  auto kept = std::make_shared<std::vector<ONU_ABILITY_CODE_ATTR_INFO>>();
  onu_ability_get_all_ability_attr_info(*kept);
  kept->resize(5);
  auto given = std::make_shared<std::vector<ONU_ABILITY_CODE_ATTR_INFO>>(*kept);
  return {[given] {
            Codes().Restore(std::move(*given));
            return 0ULL;
          },
          nullptr, nullptr, [given, kept] { *given = *kept; }};
}

Call CopyCodes() {
  auto records = std::make_shared<std::vector<ONU_ABILITY_CODE_ATTR_INFO>>();
  return {[records] {
            onu_ability_get_all_ability_attr_info(*records);
            return 0ULL + records->size();
          },
          nullptr, [records] { return records->empty() ? "" : Shown(records->back()); }};
}

// A record that lacks an attribute acquires it in being read.
Call ReadNewAttribute() {
  Attributes().Add(kFreeId, "FREE_ATTRIBUTE_OF_THE_HOST");
  return Call{[] { return 0ULL + Codes().Get(1002, kFreeId); }};
}

Operations CodeOperations() {
  return {
      {"CodeUpdateOfANewOne", [] { return UpdateCode(2000); }},
      {"CodeUpdateOfAHeldOne", [] { return UpdateCode(1012); }},
      {"CodeRestore", RestoreCodes},
      {"CodeCopyAll", CopyCodes},
      {"CodeReadOfANewAttribute", ReadNewAttribute},
      {"CodeRecordConstruction",
       [] {
         return Call{[] {
           const ONU_ABILITY_CODE_ATTR_INFO record;
           return 0ULL + record.ability_attr.size();
         }};
       }},
      Plain("CodeDelByCode", [] { return 0ULL + Codes().Del(1012); }),
      Plain("CodeDelByName", [] { return 0ULL + Codes().Del("TRANSLATION_OF_THE_REPORTED_TYPE"); }),
      Plain("CodeDelOfOneInUse", [] { return 0ULL + Codes().Del(1002); }),
      Plain("CodeIsExist",
            [] { return 0ULL + Codes().IsExist(static_cast<unsigned short>(1002)); }),
      Plain("CodeAttributeIsExist", [] { return 0ULL + Codes().IsExist(ONU_ABILITY_ATTR_LAMP); }),
      Plain("CodeOfName",
            [] { return 0ULL + Codes().Get(std::string("TRANSLATION_OF_THE_REPORTED_TYPE")); }),
      Plain("CodeNameOf",
            [] { return 0ULL + Codes().Get(static_cast<unsigned short>(1023)).size(); }),
      Plain("CodeAttribute", [] { return 0ULL + Codes().Get(1030, ONU_ABILITY_ATTR_LAMP); }),
      Plain("CodeSetKey",
            [] {
              Codes().SetKeyAbilityCode(1081);
              return 0ULL + Codes().GetKeyAbilityCode();
            }),
      Plain("CodeHandOut", [] { return 0ULL + Codes().Get().size(); }),
  };
}

}  // namespace

Operations RegistryOperations() {
  Operations all = AttributeOperations();
  for (const Operations& more : {Listings(), Judgements(), CodeOperations()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}
