#include "startup.h"

#include <iostream>
#include <stdexcept>

#include "catalogue/catalogue_loader.h"
#include "catalogue/report_reader.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/operator_changes.h"
#include "confirmation/hooks.h"
#include "network/olt_reports.h"
#include "network_command_line.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_service_cli.h"
#include "onu_ability_common_table.h"
#include "recognition/catalogue_lint.h"
#include "vty/builtin_commands.h"
#include "vty/command_table.h"

namespace olt_host {

namespace {

Reports ReadPopulation(const CommandLine& command_line) {
  const Catalogue& catalogue = Host().catalogue.catalogue;
  const bool is_network = IsJsonLines(command_line.reports);
  if (is_network && command_line.olt.empty()) {
    throw std::runtime_error(command_line.reports +
                             " is a network, of any size; expected --olt with the name of one of "
                             "its OLTs");
  }
  if (!is_network && !command_line.olt.empty()) {
    throw std::runtime_error("--olt is for JSON lines; expected no --olt for " +
                             command_line.reports);
  }
  return is_network ? ReadReportsOfOlt(command_line.reports, command_line.olt, catalogue)
                    : ReadReports(command_line.reports, catalogue);
}

void ReadInputs(const CommandLine& command_line) {
  if (command_line.reports.empty() && !command_line.olt.empty()) {
    throw std::runtime_error("--olt " + command_line.olt +
                             " chooses among reports, and there are none; expected REPORTS");
  }
  HostContext& host = Host();
  host.catalogue_request = command_line.catalogue;
  host.catalogue = ReadCatalogueFiles(command_line.catalogue);
  for (const std::string& refused : host.catalogue.refused) std::cerr << refused << "\n";
  host.state_file = command_line.state_file;
  if (command_line.reports.empty()) return;
  host.population = std::make_shared<const Population>(ReadPopulation(command_line));
}

void InstallCommands() {
  InstallSystemCommands();
  InstallOnuCommands();
  InstallExplainCommands();
  InstallUnknownCommands();
  InstallCaptureCommands();
  InstallCatalogueCommands();
  InstallLintCommands();
  InstallAttributeCommands();
  InstallTypeCommands();
  InstallStatisticsCommands();
  InstallStateCommands();
  InstallLogCommands();
  InstallTryCommands();
  InstallBuiltinCommands(kCommandNode);
  OfferValues();
  KeepOperatorChanges();
  // The library does not look at what became of its commands.
  const std::vector<std::string>& refusals = CommandTable::Instance().refusals();
  if (!refusals.empty()) {
    throw std::runtime_error(refusals.front());
  }
}

// One line, and only if something is most likely not meant: who loads a catalogue did not
// ask for more.
void SayFindings(const CommandLine& command_line) {
  const std::string findings = CountGraveFindings(Host().catalogue.catalogue);
  if (findings.empty()) return;
  const bool for_operators = command_line.job == Job::kConsole || command_line.job == Job::kServe ||
                             command_line.job == Job::kRun;
  std::string how = "lint catalogue";
  if (!for_operators) {
    how = "olt_host lint";
    for (const std::string& path : command_line.catalogue.shipped) how += " " + path;
    for (const std::string& path : command_line.catalogue.local) how += " --local " + path;
  }
  std::cerr << "olt_host: the catalogue has " << findings << "; \"" << how << "\" shows more\n";
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
}

RunningLibrary::~RunningLibrary() {
  OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_MATCH);
  manager->DelOnuAbilityTable(ONU_ABILITY_PROFILE_TYPE_REAL);
}

std::unique_ptr<RunningLibrary> StartHost(const CommandLine& command_line) {
  ReadInputs(command_line);
  OpenLog(command_line.log);
  auto library = std::make_unique<RunningLibrary>(Host().catalogue.catalogue);
  InstallCommands();
  // Of the catalogue alone: what operators made comes with their state.
  if (command_line.job != Job::kLint) SayFindings(command_line);
  RestoreAtStart();
  return library;
}

}  // namespace olt_host
