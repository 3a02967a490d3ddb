// save, restore and show running-config.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue_difference.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/operator_changes.h"
#include "commands/running_config.h"
#include "commands/text_table.h"
#include "state/state_file.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

std::size_t CountOfOperators(const std::vector<OnuAbilityProfile>& profiles) {
  return static_cast<std::size_t>(
      std::count_if(profiles.begin(), profiles.end(), [](const OnuAbilityProfile& profile) {
        return profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
      }));
}

std::string ProfilesText(const LibraryState& state) {
  return std::to_string(CountOfOperators(state.real_profiles)) + " real and " +
         std::to_string(CountOfOperators(state.match_profiles)) + " match profiles";
}

void WriteText(struct vty& terminal, const std::string& text) {
  WriteWrapped(terminal, "", text, 2);
}

// Profiles of the catalogue are loaded from its files at every start, as the files have
// them.
void WarnOfChangedCatalogue(struct vty& terminal) {
  const Catalogue& catalogue = Host().catalogue.catalogue;
  const CatalogueDifference difference = Compare(ContentOf(catalogue), ContentOfLibrary(catalogue));
  const auto changed =
      std::count_if(difference.begin(), difference.end(), [](const CatalogueChange& change) {
        return change.entry == EntryKind::kRealProfile || change.entry == EntryKind::kMatchProfile;
      });
  if (changed == 0) return;
  WriteText(terminal, "Not saved: changes to " + std::to_string(changed) +
                          (changed == 1 ? " profile" : " profiles") +
                          " of the catalogue (profile_source 0), which come from its files at "
                          "every start; see show catalogue");
}

int Save(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const std::string file = argc > 0 ? argv[0] : Host().state_file;
  if (file.empty()) {
    return vty->Refuse("Cannot save: name a file, or start the host with --state FILE");
  }
  std::size_t bytes = 0;
  try {
    std::string content = EncodeOperatorChanges();
    bytes = content.size();
    if (file == Host().state_file) {
      KeepNow(std::move(content));
    } else {
      WriteStateFile(file, content);
    }
  } catch (const StateError& error) {
    return vty->Refuse(std::string("Cannot save: ") + error.what());
  }
  WriteText(*vty, "Saved " + ProfilesText(CaptureLibrary()) + " to " + file + ", " +
                      std::to_string(bytes) + " bytes");
  WarnOfChangedCatalogue(*vty);
  return 0;
}

int Restore(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** argv) {
  const std::string file = argv[0];
  if (file.empty()) return vty->Refuse("Nothing is restored: expected the name of a file");
  std::vector<std::string> remarks;
  try {
    const LibraryState state =
        ReadStateFile(file, Host().catalogue.catalogue, CaptureLibrary(), &remarks);
    InstallLibrary(state);
    WriteText(*vty, "Restored " + ProfilesText(state) + " from " + file);
  } catch (const std::runtime_error& error) {
    return vty->Refuse(std::string("Nothing is restored: ") + error.what());
  }
  for (const std::string& remark : remarks) WriteText(*vty, "Note: " + remark);
  return 0;
}

int ShowRunningConfig(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const std::vector<std::string> lines = RunningConfig(CaptureLibrary());
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, {{"lines", lines}});
    return 0;
  }
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  WriteLines(*vty, text);
  return 0;
}

cmd_element save_cmd = {"save {<string>}*1", Save,
                        "write what operators made to a file\r\n"
                        "the file; without it the one of --state\r\n"};

cmd_element restore_cmd = {"restore <string>", Restore,
                           "bring back what save wrote\r\n"
                           "the file\r\n"};

cmd_element show_running_config_cmd = {
    "show running-config {[json]}*1", ShowRunningConfig,
    "show what the host holds\r\n"
    "the lines that rebuild the operators' profiles and settings\r\n"
    "as a JSON document\r\n"};

}  // namespace

void InstallStateCommands() {
  for (cmd_element* command : {&save_cmd, &restore_cmd, &show_running_config_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
