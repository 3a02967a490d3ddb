/* A module of the second host in plain C: it asks the query functions. */
#include "onu_ability_common_service_cinterface.h"

unsigned int ask_lamps(unsigned int key) {
  return onu_ability_get_onu_lamp_total_num_by_key_ability(key);
}

unsigned int ask_name(unsigned short real_type, char* buffer, unsigned int size) {
  return onu_ability_get_onu_type_name_by_realtype(real_type, buffer, size);
}

unsigned int not_found_status(void) { return ONU_ABILITY_RET_NOT_FOUND; }
