// The threads that only ask: confirmations, the query functions, readers of registries.
#include <cstring>

#include "catalogue.h"
#include "onu_ability_common_service_cinterface.h"
#include "role.h"
#include "thread_safe_host.h"

namespace {

// Every ONU is of a type that is there all the time, so it is recognised all the time.
class Confirmations : public Role {
 public:
  using Role::Role;

  void Step() override {
    const auto place = static_cast<unsigned short>(Choose(kTypes));
    ConfirmOnuType confirmation(place, 1);
    Expect(confirmation.Perform() == ONU_ABILITY_RET_OK, "a confirmation fails");
    Expect(RealTypeTold() == TypeOfOnu(place), "an ONU is recognised as another type");
    Expect(confirmation._type_from_onu_report == (place % 2 == 0 ? TypeOfOnu(place) : 0xFFFFFFFFU),
           "an ONU is recognised on the wrong road");
  }
};

class Questions : public Role {
 public:
  using Role::Role;

  void Step() override {
    const unsigned int type = kFirstType + Choose(kTypes);
    const auto real_type = static_cast<unsigned short>(type);
    Expect(onu_ability_key_ability_value_is_exist(type) == 1, "a key value is missing");
    Expect(onu_ability_search_by_real_type(real_type) == 0, "a real type is missing");
    Expect(onu_ability_search_by_real_type(59999) != 0, "a real type comes from nowhere");
    Expect(onu_ability_get_onu_ability_value_by_key_value(type, kFePorts) == 4, "FE ports");
    Expect(onu_ability_get_onu_ability_value_by_key_value(type, 1001) == 5, "LAN ports");
    Expect(onu_ability_get_onu_lamp_total_num(real_type) == kLampsOfEach, "lamps by real type");
    Expect(onu_ability_get_onu_lamp_total_num_by_key_ability(type) == kLampsOfEach, "lamps by key");
    char name[32];
    Expect(onu_ability_get_onu_type_name_by_key_value(type, name, sizeof(name)) == 0 &&
               name == NameOfType(type),
           "a type's name by key");
    Expect(onu_ability_get_onu_type_name_by_realtype(real_type, name, sizeof(name)) == 0 &&
               name == NameOfType(type),
           "a type's name by real type");
    Expect(onu_ability_get_module_id() >= 19, "the module id");
    unsigned int lamps = 0;
    Expect(RestoredTable().Get(kFirstType, kLamp, lamps) == ONU_ABILITY_RET_OK &&
               lamps == kLampsOfEach,
           "a number of the table that is put back");
    // The other question without a lock, of a code that a column of no index has.
    Expect(OnuAbilityTableManager::GetInstance()->IsEqual(
               ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_SOURCE_DEFAULT, kGePorts, 1) == 1,
           "a value that every type has is missing");
  }
};

// The two questions without a lock, and nothing else: no lock that the thread takes in
// between tells a sanitizer that its reading was over.
class LocklessQuestions : public Role {
 public:
  using Role::Role;

  void Step() override {
    OnuAbilityTableManager& tables = *OnuAbilityTableManager::GetInstance();
    const unsigned int type = kFirstType + Choose(kTypes);
    for (const auto table : {ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_TYPE_MATCH}) {
      Expect(tables.IsEqual(table, ONU_ABILITY_PROFILE_SOURCE_ALL, 1081, type) == 1,
             "a real type is missing without the lock");
      Expect(tables._map_table.at(table)->IsExist(ONU_ABILITY_CODE_DEFAULT_KEY) == 1,
             "a code that profiles hold is missing");
    }
    Expect(tables.IsEqual(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL,
                          ONU_ABILITY_CODE_DEFAULT_KEY, 59999) == 0,
           "a key value comes from nowhere");
    Expect(RestoredTable().IsEqual(ONU_ABILITY_PROFILE_SOURCE_ALL, ONU_ABILITY_CODE_DEFAULT_KEY,
                                   kFirstType) == 1,
           "a type is missing from the table that is put back");
  }
};

class RegistryReader : public Role {
 public:
  using Role::Role;

  void Step() override {
    OnuAbilityCodeInfo& codes = *OnuAbilityCodeInfo::GetInstance();
    OnuAbilityAttrInfo& attributes = *OnuAbilityAttrInfo::GetInstance();
    Expect(codes.Get(kFePorts) == "FE_PORTS", "a code's name");
    Expect(codes.Get(std::string("GE_PORTS")) == kGePorts, "a name's code");
    Expect(codes.Get(kGePorts, ONU_ABILITY_ATTR_PORT_TYPE) == 3, "a code's attribute");
    Expect(codes.IsExist(kLamp) == 1, "a code is missing");
    Expect(codes.IsExist(ONU_ABILITY_ATTR_LAMP) == 1, "an attribute in use is not");
    Expect(attributes.Get(ONU_ABILITY_ATTR_LAMP) == "ATTRIBUTE3", "an attribute's name");
    Expect(attributes.Get(std::string("ATTRIBUTE4")) == ONU_ABILITY_ATTR_PORT_TYPE,
           "a name's attribute");
    Expect(attributes.IsValid("ATTRIBUTE5") == 0 && attributes.IsExist(ONU_ABILITY_ATTR_LAMP) == 1,
           "an attribute is missing");
    const unsigned short key_code = codes.GetKeyAbilityCode();
    Expect(key_code == 1085 || key_code == 1081, "the key code is another");
    ReadScratch(codes);
    codes.Show(&_terminal);
    codes.Show(&_terminal, kFePorts);
    codes.Show(&_terminal, std::string("ports"));
    attributes.Show(&_terminal);
    ONU_ABILITY_CODE_ATTR_INFO record;
    Expect(record.ability_attr.size() >= 4, "a new record lacks attributes");
    record.ability_code = kFePorts;
    record.ability_name = "GE_PORTS";
    Expect(codes.IsValid(record) == 0, "a name is taken and is not");
  }

 private:
  // Its name and its value are always changed together.
  void ReadScratch(OnuAbilityCodeInfo& codes) {
    std::vector<ONU_ABILITY_CODE_ATTR_INFO> records;
    onu_ability_get_all_ability_attr_info(records);
    for (const auto& record : records) {
      if (record.ability_code == kScratchCode) {
        const unsigned short lamp = record.ability_attr.at(ONU_ABILITY_ATTR_LAMP);
        Expect(record.ability_name == "SCRATCH-" + std::to_string(lamp), "half a record");
      }
    }
    // Reading what a record lacks adds it.
    codes.Get(kScratchCode, static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(kScratchAttribute));
  }

  vty _terminal;
};

}  // namespace

std::unique_ptr<Role> MakeConfirmations(unsigned int number, Violations& violations) {
  return std::make_unique<Confirmations>("confirmations", number, violations);
}
std::unique_ptr<Role> MakeQuestions(unsigned int number, Violations& violations) {
  return std::make_unique<Questions>("questions", 10 + number, violations);
}
std::unique_ptr<Role> MakeLocklessQuestions(Violations& violations) {
  return std::make_unique<LocklessQuestions>("questions without a lock", 25, violations);
}
std::unique_ptr<Role> MakeRegistryReader(unsigned int number, Violations& violations) {
  return std::make_unique<RegistryReader>("registry reader", 20 + number, violations);
}
