// The program: starts the library, has it recognise an ONU, and runs a command.
#include <cstdio>

#include "minimal_host.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"

int main() {
  start_host();
  std::printf("%u commands are installed\n", installed_commands);

  ConfirmOnuType confirmation(1, 2);  // ONU 2 at place 1
  confirmation.Perform();
  const unsigned int type = confirmation._key_ability_value;
  std::printf("type %u, %u lamps\n", type, onu_ability_get_onu_lamp_total_num_by_key_ability(type));

  // A profile travels to another process in the host's buffer.
  Variant buffer;
  OnuAbilityProfile arrived;
  confirmation.Serialize(buffer);
  arrived.UnSerialize(buffer);
  std::printf("%u abilities were sent, %u arrived\n", confirmation._common_ability_num,
              arrived._common_ability_num);
  std::printf("the command \"%s\" prints\n", cl_get_onu_common_type_cmd.string);
  cl_get_onu_common_type_cmd.func(&cl_get_onu_common_type_cmd, &host_terminal, 0, nullptr);
}
