// The host's own commands, a function a source: each installs its commands at
// kCommandNode. Called once at start, before any session.
#ifndef OLT_HOST_COMMANDS_HOST_COMMANDS_H
#define OLT_HOST_COMMANDS_HOST_COMMANDS_H

namespace olt_host {

// show onu, confirm onu, confirm all, bind onu, unbind onu.
void InstallOnuCommands();
// explain onu.
void InstallExplainCommands();
// show onu unknown.
void InstallUnknownCommands();
// capture onu, replay.
void InstallCaptureCommands();
// show catalogue, reload.
void InstallCatalogueCommands();
// lint catalogue.
void InstallLintCommands();
// show log, log mask, show log mask.
void InstallLogCommands();
// register attribute, show attribute.
void InstallAttributeCommands();
// show statistics, clear statistics.
void InstallStatisticsCommands();
// show type, compare type.
void InstallTypeCommands();
// save, restore, show running-config.
void InstallStateCommands();
// show version, show tech-support, who.
void InstallSystemCommands();

// try, try commit, try drop; and try before each command there that changes the library.
void InstallTryCommands();

// What the host knows for the commands' values: codes, types, keys, ONUs.
void OfferValues();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_HOST_COMMANDS_H
