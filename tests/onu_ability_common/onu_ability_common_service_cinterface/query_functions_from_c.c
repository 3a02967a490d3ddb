/* Compiled as C: proves that the header of the query functions is one, and that
 * its functions have C linkage. */
#include "onu_ability_common_service_cinterface.h"

#include "query_functions_from_c.h"

struct query_answers ask_every_query_from_c(unsigned int key, unsigned short type,
                                            unsigned short code, unsigned int mask) {
  struct query_answers answers;
  onu_ability_set_log_level_mask(mask);
  answers.log_level_mask = onu_ability_get_log_level_mask();
  answers.module_id = onu_ability_get_module_id();
  answers.key_exists = onu_ability_key_ability_value_is_exist(key);
  answers.type_status = onu_ability_search_by_real_type(type);
  answers.value = onu_ability_get_onu_ability_value_by_key_value(key, code);
  answers.name_by_key_status = onu_ability_get_onu_type_name_by_key_value(
      key, answers.name_by_key, sizeof(answers.name_by_key));
  answers.name_by_type_status = onu_ability_get_onu_type_name_by_realtype(
      type, answers.name_by_type, sizeof(answers.name_by_type));
  answers.lamps_by_type = onu_ability_get_onu_lamp_total_num(type);
  answers.lamps_by_key = onu_ability_get_onu_lamp_total_num_by_key_ability(key);
  return answers;
}

unsigned int status_code_from_c(int index) {
  switch (index) {
    case 0:
      return ONU_ABILITY_RET_OK;
    case 1:
      return ONU_ABILITY_RET_NULL_PTR;
    case 2:
      return ONU_ABILITY_RET_INVALID_PARAM;
    case 3:
      return ONU_ABILITY_RET_OPERATE_FAILED;
    case 4:
      return ONU_ABILITY_RET_NOT_FOUND;
    default:
      return 0xFFFFFFFFU;
  }
}
