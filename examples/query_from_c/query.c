/* A module in plain C that asks the query functions what types of ONU can do. The host it
 * runs in is the minimal one; what it includes of the library, C++ does not need. */
#include <stdio.h>

#include "minimal_host.h"
#include "onu_ability_common_service_cinterface.h"

static void tell(unsigned short type) {
  char name[32];
  if (onu_ability_search_by_real_type(type) != ONU_ABILITY_RET_OK) {
    printf("%u: no such type\n", type);
    return;
  }
  if (onu_ability_get_onu_type_name_by_realtype(type, name, sizeof(name)) != ONU_ABILITY_RET_OK) {
    printf("%u: without a name\n", type);
    return;
  }
  printf("%u: %s, %u ports, %u lamps\n", type, name,
         onu_ability_get_onu_ability_value_by_key_value(type, 24),
         onu_ability_get_onu_lamp_total_num(type));
}

int main(void) {
  char name[4];
  start_host();
  tell(500);
  tell(501);
  tell(502);

  /* A name is cut to what the buffer holds; one that is not found leaves it alone. */
  onu_ability_get_onu_type_name_by_key_value(501, name, sizeof(name));
  printf("%s\n", name);
  printf("0x%x\n", onu_ability_get_onu_type_name_by_key_value(502, name, sizeof(name)));

  /* Lines that nobody reads need not be made: with a clear mask the library is silent. */
  onu_ability_set_log_level_mask(0);
  fprintf(stderr, "silence\n");
  printf("%u\n", onu_ability_get_onu_lamp_total_num_by_key_ability(501));
  return 0;
}
