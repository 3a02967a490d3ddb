#include "startup.h"

#include <stdexcept>

#include "catalogue/catalogue_loader.h"
#include "confirmation/hooks.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "vty/command_table.h"

namespace olt_host {

namespace {

// The library does not look at what became of its commands.
void RequireEveryCommand() {
  const std::vector<std::string>& refusals = CommandTable::Instance().refusals();
  if (!refusals.empty()) {
    throw std::runtime_error(refusals.front());
  }
}

}  // namespace

RunningLibrary::RunningLibrary(const Catalogue& catalogue) {
  RegisterHooks();
  OnuAbilityRegExternFunc* settings = OnuAbilityRegExternFunc::GetInstance();
  settings->SetModuleId(kModuleId);
  settings->SetCmdNode(kCommandNode);
  settings->SetSfuCommonType(catalogue.sfu_common_type);
  settings->SetHguCommonType(catalogue.hgu_common_type);
  OnuAbilityTableManager::GetInstance()->Init();
  LoadCatalogue(catalogue);
  onu_ability_service_cbb_cli_init();
  RequireEveryCommand();
}

RunningLibrary::~RunningLibrary() {
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
}

}  // namespace olt_host
