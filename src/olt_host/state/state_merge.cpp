#include "state/state_merge.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "state/state_file.h"

namespace olt_host {

namespace {

using CodeRecord = ONU_ABILITY_CODE_ATTR_INFO;

ONU_ABILITY_ENUM_ABILITY_ATTR_ID AttributeId(unsigned short id) {
  return static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id);
}

// An attribute that a record does not list reads as 0.
bool RepeatsEntry(const CodeRecord& record, const CodeEntry& entry) {
  const auto same = [&record, &entry](unsigned short id) {
    const auto held = record.ability_attr.find(AttributeId(id));
    return (held != record.ability_attr.end() ? held->second : 0) == entry.Attribute(id);
  };
  return record.ability_name == entry.name && same(kValueTypeAttribute) &&
         std::all_of(entry.attributes.begin(), entry.attributes.end(),
                     [&same](const auto& attribute) { return same(attribute.first); }) &&
         std::all_of(record.ability_attr.begin(), record.ability_attr.end(),
                     [&same](const auto& attribute) {
                       return same(static_cast<unsigned short>(attribute.first));
                     });
}

// The record that loading the catalogue makes.
CodeRecord RecordOf(const CodeEntry& entry, const Catalogue& catalogue) {
  CodeRecord record;
  record.ability_code = entry.code;
  record.ability_name = entry.name;
  record.ability_attr.clear();
  record.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = entry.Attribute(kValueTypeAttribute);
  for (const AttributeEntry& attribute : catalogue.attributes) {
    record.ability_attr[AttributeId(attribute.id)] = entry.Attribute(attribute.id);
  }
  return record;
}

Stored<unsigned short> Setting(unsigned short value, unsigned short in_catalogue) {
  return {value, value != in_catalogue};
}

std::vector<OnuAbilityProfile> OfSource(const std::vector<OnuAbilityProfile>& profiles,
                                        ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  std::vector<OnuAbilityProfile> chosen;
  std::copy_if(profiles.begin(), profiles.end(), std::back_inserter(chosen),
               [source](const auto& profile) { return profile._profile_source == source; });
  return chosen;
}

std::vector<OnuAbilityProfile> Together(const std::vector<OnuAbilityProfile>& current,
                                        const std::vector<OnuAbilityProfile>& stored) {
  std::vector<OnuAbilityProfile> profiles = OfSource(current, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
  profiles.insert(profiles.end(), stored.begin(), stored.end());
  return profiles;
}

unsigned short Choose(const Stored<unsigned short>& setting, unsigned short in_catalogue) {
  return setting.changed ? setting.value : in_catalogue;
}

std::map<unsigned short, std::string> MergeAttributes(const StoredState& stored,
                                                      const Catalogue& catalogue) {
  std::map<unsigned short, std::string> attributes;
  for (const AttributeEntry& entry : catalogue.attributes) attributes[entry.id] = entry.name;
  for (const auto& [attribute, changed] : stored.attributes) {
    if (changed || catalogue.FindAttribute(attribute.id) == nullptr) {
      attributes[attribute.id] = attribute.name;
    }
  }
  std::map<std::string, unsigned short> by_name;
  for (const auto& [id, name] : attributes) {
    const auto [earlier, is_new] = by_name.emplace(name, id);
    if (!is_new) {
      throw StateError("does not go with this catalogue: attributes " +
                       std::to_string(earlier->second) + " and " + std::to_string(id) +
                       " would both be named " + Quoted(name));
    }
  }
  return attributes;
}

// Gathers the codes of the result, each number and name once.
class CodeMerge {
 public:
  CodeMerge(const StoredState& stored, const Catalogue& catalogue, const LibraryState& current,
            std::vector<std::string>& remarks)
      : _stored(stored), _catalogue(catalogue), _current(current), _remarks(remarks) {}

  std::vector<CodeRecord> Run() {
    for (const auto& [code, changed] : _stored.codes) {
      if (changed) _names.emplace(code.ability_name, code.ability_code);
    }
    for (const auto& entry : _stored.codes) TakeStored(entry);
    for (const CodeEntry& entry : _catalogue.codes) TakeUnmentioned(entry);
    return std::move(_codes);
  }

 private:
  // False when another code has the name.
  bool TakeName(const CodeRecord& record) {
    return _names.emplace(record.ability_name, record.ability_code).first->second ==
           record.ability_code;
  }

  void Take(const CodeRecord& record) {
    if (!TakeName(record)) {
      throw StateError("does not go with this catalogue: codes " +
                       std::to_string(_names.at(record.ability_name)) + " and " +
                       std::to_string(record.ability_code) + " would both be named " +
                       Quoted(record.ability_name));
    }
    _taken.insert(record.ability_code);
    _codes.push_back(record);
  }

  void TakeStored(const Stored<CodeRecord>& entry) {
    const CodeRecord& record = entry.value;
    const CodeEntry* today = _catalogue.FindCode(record.ability_code);
    if (entry.changed) {
      Take(record);
    } else if (today == nullptr) {
      TakeGone(record);
    } else {
      // As stored where it says the same, so that nothing is touched without need.
      Take(RepeatsEntry(record, *today) ? record : RecordOf(*today, _catalogue));
    }
  }

  // A code that only repeated a catalogue which since gave it up. Where its name has
  // gone to another code, it is missed only if an operator's profile uses it.
  void TakeGone(const CodeRecord& record) {
    const bool is_used = AnyHolds(_stored.match_profiles, record.ability_code) ||
                         AnyHolds(_stored.real_profiles, record.ability_code);
    const CodeEntry* heir = _catalogue.FindCode(record.ability_name);
    if (is_used || heir == nullptr) {
      Take(record);
    } else {
      _remarks.push_back(
          "code " + std::to_string(record.ability_code) + " " + Quoted(record.ability_name) +
          " is left out: the catalogue gives its name to code " + std::to_string(heir->code));
    }
  }

  // A code of the catalogue that the file does not list: deleted by an operator, or new.
  void TakeUnmentioned(const CodeEntry& entry) {
    if (_taken.count(entry.code) != 0) return;
    const auto& deleted = _stored.deleted_codes;
    if (std::find(deleted.begin(), deleted.end(), entry.code) == deleted.end()) {
      Take(RecordOf(entry, _catalogue));
      return;
    }
    const bool is_used =
        AnyHolds(OfSource(_current.real_profiles, ONU_ABILITY_PROFILE_SOURCE_DEFAULT), entry.code);
    const CodeRecord record = RecordOf(entry, _catalogue);
    if (is_used && TakeName(record)) {
      Take(record);
      _remarks.push_back("code " + std::to_string(entry.code) + " " + Quoted(entry.name) +
                         " is not deleted: a real profile of the catalogue uses it");
    }
  }

  const StoredState& _stored;
  const Catalogue& _catalogue;
  const LibraryState& _current;
  std::vector<std::string>& _remarks;
  std::vector<CodeRecord> _codes;
  std::set<unsigned short> _taken;
  std::map<std::string, unsigned short> _names;
};

}  // namespace

StoredState CompareWithCatalogue(const LibraryState& state, const Catalogue& catalogue) {
  StoredState stored;
  stored.key_ability_code = Setting(state.key_ability_code, catalogue.key_ability_code);
  stored.sfu_common_type = Setting(state.sfu_common_type, catalogue.sfu_common_type);
  stored.hgu_common_type = Setting(state.hgu_common_type, catalogue.hgu_common_type);
  for (const auto& [id, name] : state.attributes) {
    const AttributeEntry* entry = catalogue.FindAttribute(id);
    stored.attributes.push_back({{id, name}, entry == nullptr || entry->name != name});
  }
  std::set<unsigned short> held;
  for (const CodeRecord& record : state.codes) {
    held.insert(record.ability_code);
    const CodeEntry* entry = catalogue.FindCode(record.ability_code);
    stored.codes.push_back({record, entry == nullptr || !RepeatsEntry(record, *entry)});
  }
  for (const CodeEntry& entry : catalogue.codes) {
    if (held.count(entry.code) == 0) stored.deleted_codes.push_back(entry.code);
  }
  stored.match_profiles = OfSource(state.match_profiles, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  stored.real_profiles = OfSource(state.real_profiles, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
  return stored;
}

LibraryState MergeWithCatalogue(const StoredState& stored, const Catalogue& catalogue,
                                const LibraryState& current, std::vector<std::string>& remarks) {
  LibraryState state;
  state.attributes = MergeAttributes(stored, catalogue);
  state.codes = CodeMerge(stored, catalogue, current, remarks).Run();
  state.key_ability_code = Choose(stored.key_ability_code, catalogue.key_ability_code);
  state.sfu_common_type = Choose(stored.sfu_common_type, catalogue.sfu_common_type);
  state.hgu_common_type = Choose(stored.hgu_common_type, catalogue.hgu_common_type);
  state.match_profiles = Together(current.match_profiles, stored.match_profiles);
  state.real_profiles = Together(current.real_profiles, stored.real_profiles);
  return state;
}

}  // namespace olt_host
