#include "both_sides.h"
#include "onu_ability_common_service_cinterface.h"
#include "queries.h"

namespace {

using model::Format;

constexpr unsigned int kRoom = 600;  // more than any name that a sequence stores

void Numbers(BothSides& both, RandomInput& random) {
  const unsigned int key = both.Key(random);
  const unsigned short real_type = static_cast<unsigned short>(key);
  const unsigned short code = random.Code();
  both.Describe(Format("queries of key and type %u, code %d", key, code));
  both.Same("key exists", onu_ability_key_ability_value_is_exist(key), model::KeyValueExists(key));
  both.Same("search", onu_ability_search_by_real_type(real_type),
            model::SearchByRealType(real_type));
  both.Same("value", onu_ability_get_onu_ability_value_by_key_value(key, code),
            model::AbilityByKey(key, code));
}

void Lamps(BothSides& both, RandomInput& random) {
  const unsigned int key = both.Key(random);
  const unsigned short real_type = static_cast<unsigned short>(key);
  both.Describe(Format("lamp queries of key and type %u", key));
  both.Same("lamps by type", onu_ability_get_onu_lamp_total_num(real_type),
            model::LampTotalByRealType(real_type));
  both.Same("lamps by key", onu_ability_get_onu_lamp_total_num_by_key_ability(key),
            model::LampTotalByKey(key));
}

void Names(BothSides& both, RandomInput& random) {
  const unsigned int key = both.Key(random);
  const unsigned short real_type = static_cast<unsigned short>(key);
  const unsigned int size = random.Pick<unsigned int>({0, 1, 2, 8, 21, kRoom});
  const bool null = random.OneIn(8);
  both.Describe(
      Format("type name of key and type %u, %s of %u", key, null ? "null" : "buffer", size));
  std::string library(kRoom, '?');
  std::string model(kRoom, '?');
  char* buffer = null ? nullptr : library.data();
  std::string* text = null ? nullptr : &model;
  both.Same("by key", onu_ability_get_onu_type_name_by_key_value(key, buffer, size),
            model::TypeNameByKey(key, text, size));
  both.Same("buffer by key", library, model);
  both.Same("by type", onu_ability_get_onu_type_name_by_realtype(real_type, buffer, size),
            model::TypeNameByRealType(real_type, text, size));
  both.Same("buffer by type", library, model);
}

}  // namespace

std::vector<Operation> QueryOperations() {
  return {
      {"query of numbers", 4, Numbers},
      {"query of lamps", 2, Lamps},
      {"query of names", 4, Names},
  };
}
