#include "commands/catalogue_reload.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "catalogue/catalogue_profile.h"
#include "commands/host_context.h"
#include "state/state_file.h"
#include "state/state_merge.h"

namespace olt_host {

namespace {

using Profiles = std::vector<OnuAbilityProfile>;

// The catalogue's profiles and behind them the operators', which are so tried first.
Profiles TableAfter(const Profiles& current, const Profiles& of_catalogue) {
  Profiles profiles = of_catalogue;
  std::copy_if(current.begin(), current.end(), std::back_inserter(profiles),
               [](const OnuAbilityProfile& profile) {
                 return profile._profile_source != ONU_ABILITY_PROFILE_SOURCE_DEFAULT;
               });
  return profiles;
}

// Forgets the codes that only the older catalogue had. A code that an operator's
// profile holds stays.
void DropGoneCodes(StoredState& stored, const Catalogue& newer, std::vector<std::string>& remarks) {
  const auto is_gone = [&](const Stored<ONU_ABILITY_CODE_ATTR_INFO>& code) {
    const unsigned short number = code.value.ability_code;
    if (code.changed || newer.FindCode(number) != nullptr) {
      return false;
    }
    if (!AnyHolds(stored.real_profiles, number) && !AnyHolds(stored.match_profiles, number)) {
      return true;
    }
    remarks.push_back("Code " + std::to_string(number) + " (" + code.value.ability_name +
                      ") is gone from the catalogue but stays: an operator's profile holds it");
    return false;
  };
  stored.codes.erase(std::remove_if(stored.codes.begin(), stored.codes.end(), is_gone),
                     stored.codes.end());
}

bool UsesAttribute(const Stored<ONU_ABILITY_CODE_ATTR_INFO>& code, unsigned short id) {
  const auto value =
      code.value.ability_attr.find(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id));
  return code.changed && value != code.value.ability_attr.end() && value->second != 0;
}

// The same for attributes, which a code that an operator changed may use.
void DropGoneAttributes(StoredState& stored, const Catalogue& newer,
                        std::vector<std::string>& remarks) {
  const auto is_gone = [&](const Stored<StoredAttribute>& attribute) {
    const unsigned short id = attribute.value.id;
    if (attribute.changed || newer.FindAttribute(id) != nullptr) {
      return false;
    }
    const auto user = std::find_if(stored.codes.begin(), stored.codes.end(),
                                   [id](const auto& code) { return UsesAttribute(code, id); });
    if (user == stored.codes.end()) {
      return true;
    }
    remarks.push_back("Attribute " + std::to_string(id) + " (" + attribute.value.name +
                      ") is gone from the catalogue but stays: code " +
                      std::to_string(user->value.ability_code) + " uses it");
    return false;
  };
  stored.attributes.erase(
      std::remove_if(stored.attributes.begin(), stored.attributes.end(), is_gone),
      stored.attributes.end());
}

// Records keep no entry for an attribute that is not registered.
void DropUnregistered(LibraryState& state) {
  for (ONU_ABILITY_CODE_ATTR_INFO& code : state.codes) {
    for (auto entry = code.ability_attr.begin(); entry != code.ability_attr.end();) {
      const bool is_registered =
          entry->first == ONU_ABILITY_ATTR_VALUE_TYPE ||
          state.attributes.count(static_cast<unsigned short>(entry->first)) != 0;
      entry = is_registered ? std::next(entry) : code.ability_attr.erase(entry);
    }
  }
}

// Throws when the files cannot take the place of what is loaded.
LoadedCatalogue ReadAgain() {
  const HostContext& host = Host();
  if (host.catalogue_request.shipped.empty() && host.catalogue_request.local.empty()) {
    throw std::runtime_error("The host was started without a catalogue");
  }
  LoadedCatalogue loaded = ReadCatalogueFiles(host.catalogue_request);
  // An entry may be left out, but a file in which an operator just forgot a quote
  // must not empty the library.
  if (!loaded.refused_files.empty()) {
    throw std::runtime_error(loaded.refused_files.front());
  }
  const unsigned short key_code = host.catalogue.catalogue.key_ability_code;
  if (loaded.catalogue.key_ability_code != key_code) {
    throw std::runtime_error(
        ToText(loaded.catalogue.key_ability_code_position) + ": key ability code is " +
        std::to_string(loaded.catalogue.key_ability_code) + "; expected " +
        std::to_string(key_code) + ", for another one takes a restart of the host");
  }
  return loaded;
}

}  // namespace

LibraryState StateAfterReload(const LibraryState& current, const Catalogue& older,
                              const Catalogue& newer, std::vector<std::string>& remarks) {
  StoredState stored = CompareWithCatalogue(current, older);
  DropGoneCodes(stored, newer, remarks);
  DropGoneAttributes(stored, newer, remarks);
  LibraryState wanted = current;
  wanted.match_profiles =
      TableAfter(current.match_profiles, MakeTable(newer, ONU_ABILITY_PROFILE_TYPE_MATCH));
  wanted.real_profiles =
      TableAfter(current.real_profiles, MakeTable(newer, ONU_ABILITY_PROFILE_TYPE_REAL));
  LibraryState merged = MergeWithCatalogue(stored, newer, wanted, remarks);
  merged.match_profiles = wanted.match_profiles;
  merged.real_profiles = wanted.real_profiles;
  DropUnregistered(merged);
  return merged;
}

ReloadResult ReloadCatalogue() {
  LoadedCatalogue loaded = ReadAgain();
  ReloadResult result;
  const CatalogueContent before = ContentOfLibrary(loaded.catalogue);
  const LibraryState wanted = StateAfterReload(CaptureLibrary(), Host().catalogue.catalogue,
                                               loaded.catalogue, result.remarks);
  InstallLibrary(wanted);
  result.difference = Compare(before, ContentOfLibrary(loaded.catalogue));
  Host().catalogue = std::move(loaded);
  return result;
}

}  // namespace olt_host
