// The commands about the catalogue: what is loaded, and loading it again.
#include <cctype>
#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/catalogue_difference.h"
#include "commands/catalogue_reload.h"
#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "commands/time_text.h"
#include "onu_ability_common_table.h"
#include "recognition/catalogue_lint.h"
#include "state/state_file.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kListed = 20;     // changes or refusals; the rest is counted
constexpr std::size_t kShortHash = 12;  // digits of a hash in the table of files

void WriteIndented(struct vty& vty, const std::string& text) { WriteWrapped(vty, "  ", text, 4); }

// The first of the items, by `write`, and how many more there are.
template <typename Item, typename Write>
void WriteSome(struct vty& vty, const std::vector<Item>& items, Write write) {
  for (std::size_t i = 0; i < items.size() && i < kListed; ++i) {
    write(vty, items[i]);
  }
  if (items.size() > kListed) {
    WriteLines(vty, "  ... and " + std::to_string(items.size() - kListed) + " more\n");
  }
}

void WriteChanges(struct vty& vty, const CatalogueDifference& difference) {
  WriteSome(vty, difference, [](struct vty& terminal, const CatalogueChange& change) {
    for (const std::string& line : ChangeLines(change)) {
      WriteLines(terminal, line + "\n");
    }
  });
}

std::string RefusedTitle(const LoadedCatalogue& loaded) {
  return "Left out as refused: " + std::to_string(loaded.refused_entries) +
         (loaded.refused_entries == 1 ? " entry" : " entries");
}

void WriteRefused(struct vty& vty, const LoadedCatalogue& loaded) {
  if (loaded.refused.empty()) {
    return;
  }
  WriteLines(vty, "\n" + RefusedTitle(loaded) + "\n");
  WriteSome(vty, loaded.refused, WriteIndented);
}

// What of the loaded catalogue is no longer so in the library.
CatalogueDifference ChangedInMemory() {
  const Catalogue& catalogue = Host().catalogue.catalogue;
  return Compare(ContentOf(catalogue), ContentOfLibrary(catalogue));
}

void WriteFiles(struct vty& vty, const std::vector<CatalogueFile>& files) {
  TextTable table({{"File", Align::kPath},
                   {"Version", Align::kLeft},
                   {"SHA-256", Align::kLeft},
                   {"Attr", Align::kRight},
                   {"Codes", Align::kRight},
                   {"Real", Align::kRight},
                   {"Match", Align::kRight}});
  for (const CatalogueFile& file : files) {
    table.Add({file.file, file.version.empty() ? "-" : file.version,
               file.sha256.substr(0, kShortHash), std::to_string(file.attributes),
               std::to_string(file.codes), std::to_string(file.real_profiles),
               std::to_string(file.match_profiles)});
  }
  vty_out(&vty, "\r\n");
  table.Write(vty);
}

void WriteCatalogue(struct vty& vty, const LoadedCatalogue& loaded,
                    const CatalogueDifference& changed) {
  const Catalogue& catalogue = loaded.catalogue;
  WritePairs(vty,
             {{"Name", catalogue.name},
              {"Version", catalogue.version.empty() ? "-" : catalogue.version},
              {"SHA-256", loaded.sha256},
              {"Loaded", LocalTimeText(loaded.read_at)},
              {"Holds", std::to_string(catalogue.attributes.size()) + " attributes, " +
                            std::to_string(catalogue.codes.size()) + " codes, " +
                            std::to_string(catalogue.real_profiles.size()) + " real and " +
                            std::to_string(catalogue.match_profiles.size()) + " match profiles"}});
  if (!loaded.files.empty()) {
    WriteFiles(vty, loaded.files);
  }
  WriteRefused(vty, loaded);
  if (changed.empty()) {
    WriteLines(vty, "\nNothing of it is changed in memory\n");
    return;
  }
  WriteLines(vty, "\nChanged in memory\n");
  WriteIndented(vty, CountsText(changed));
  vty_out(&vty, "\r\n");
  WriteChanges(vty, changed);
}

Json ToJson(const CatalogueFile& file) {
  return {{"file", file.file},
          {"name", file.name},
          {"version", file.version},
          {"sha256", file.sha256},
          {"attributes", file.attributes},
          {"codes", file.codes},
          {"real_profiles", file.real_profiles},
          {"match_profiles", file.match_profiles}};
}

Json ToJson(const CatalogueChange& change) {
  return {{"entry", ToText(change.entry)},
          {"key", change.key},
          {"name", change.name},
          {"change", ToText(change.kind)},
          {"details", change.details}};
}

template <typename Item>
Json ToJsonList(const std::vector<Item>& items) {
  Json list = Json::array();
  for (const Item& item : items) {
    list.push_back(ToJson(item));
  }
  return list;
}

Json ToJson(const LoadedCatalogue& loaded, const CatalogueDifference& changed) {
  const Catalogue& catalogue = loaded.catalogue;
  return {{"name", catalogue.name},
          {"version", catalogue.version},
          {"sha256", loaded.sha256},
          {"loaded", UtcTimeText(loaded.read_at)},
          {"attributes", catalogue.attributes.size()},
          {"codes", catalogue.codes.size()},
          {"real_profiles", catalogue.real_profiles.size()},
          {"match_profiles", catalogue.match_profiles.size()},
          {"files", ToJsonList(loaded.files)},
          {"refused_entries", loaded.refused_entries},
          {"refused", loaded.refused},
          {"changed_in_memory", ToJsonList(changed)}};
}

int ShowCatalogue(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const LoadedCatalogue& loaded = Host().catalogue;
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, {{"catalogue", ToJson(loaded, ChangedInMemory())}});
  } else {
    WriteCatalogue(*vty, loaded, ChangedInMemory());
  }
  return 0;
}

bool OperatorsMadeProfiles() {
  for (const ONU_ABILITY_ENUM_PROFILE_TYPE type :
       {ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_TYPE_REAL}) {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityTableManager::GetInstance()->GetAll(type, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL,
                                                  profiles);
    if (!profiles.empty()) return true;
  }
  return false;
}

// What loading at the start says of the catalogue alone.
void WriteFindings(struct vty& terminal) {
  const std::string findings = CountGraveFindings(Host().catalogue.catalogue);
  if (findings.empty()) return;
  const std::string where = OperatorsMadeProfiles() ? "The catalogue and what operators made have "
                                                    : "The catalogue has ";
  WriteWrapped(terminal, "\r\n", where + findings + "; \"lint catalogue\" shows more", 2);
}

int Reload(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** /*argv*/) {
  ReloadResult result;
  try {
    result = ReloadCatalogue();
  } catch (const StateError& error) {
    return vty->Refuse(std::string("Not reloaded, what operators made ") + error.what());
  } catch (const std::runtime_error& error) {
    return vty->Refuse(std::string("Not reloaded: ") + error.what());
  }
  if (result.difference.empty()) {
    WriteLines(*vty, "Nothing changed\n");
  } else {
    WriteLines(*vty, "Reloaded\n");
    WriteIndented(*vty, CountsText(result.difference));
    vty_out(vty, "\r\n");
    WriteChanges(*vty, result.difference);
  }
  if (!result.remarks.empty()) {
    vty_out(vty, "\r\n");
    WriteSome(*vty, result.remarks, [](struct vty& terminal, std::string remark) {
      remark.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(remark.front())));
      WriteIndented(terminal, remark);
    });
  }
  WriteRefused(*vty, Host().catalogue);
  if (!result.difference.empty()) WriteFindings(*vty);
  return 0;
}

cmd_element show_catalogue_cmd = {"show catalogue {[json]}*1", ShowCatalogue,
                                  "show what the host holds\r\n"
                                  "the catalogue, its files, and what is changed of it\r\n"
                                  "as a JSON document\r\n"};

cmd_element reload_cmd = {"reload", Reload,
                          "read the catalogue's files again and take over what changed\r\n"};

}  // namespace

void InstallCatalogueCommands() {
  for (cmd_element* command : {&show_catalogue_cmd, &reload_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
