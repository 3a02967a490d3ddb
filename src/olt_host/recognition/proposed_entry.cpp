#include "recognition/proposed_entry.h"

#include <set>

#include "catalogue/yaml_words.h"
#include "recognition/ability_value.h"
#include "recognition/fit_index.h"
#include "recognition/population_outcome.h"
#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

using Abilities = ProposedEntry::Abilities;
using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

constexpr std::uint32_t kHighestType = 65534;  // a real type has 16 bits, all ones is none

bool IsText(const Value& value) {
  return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING;
}

// What a catalogue can state: not a wildcard, an unset value, a text with control characters.
bool CanBeStated(const Value& value) {
  if (!IsText(value)) {
    return value.ability_value_type == ONU_ABILITY_VALUE_TYPE_USHORT &&
           value.ability_ushort_value != ONU_ABILITY_WILDCARD;
  }
  for (const char c : value.ability_string_value) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) return false;
  }
  return !value.ability_string_value.empty();
}

// The library derives them.
bool IsTotal(std::uint16_t code) {
  return code == ONU_ABILITY_CODE_ALL_LAN || code == ONU_ABILITY_CODE_DATA_UNI;
}

// The keys that entries may have.
class Keys {
 public:
  explicit Keys(const Population& population) {
    for (const ONU_ABILITY_ENUM_PROFILE_TYPE profile_type :
         {ONU_ABILITY_PROFILE_TYPE_REAL, ONU_ABILITY_PROFILE_TYPE_MATCH}) {
      TakeKeysOf(profile_type);
    }
    for (const OnuReport& report : population.Onus()) ++_reported[report.reported_type];
  }

  // Of the group: the type that all of it and nobody else reports, or else the lowest free
  // one behind all that are taken.
  std::uint32_t Choose(const AlikeOnus& group) {
    const std::uint32_t type = group.onus.front()->reported_type;
    bool is_shared = type > 0 && type <= kHighestType && _taken.count(type) == 0 &&
                     _reported[type] == group.onus.size();
    for (const OnuReport* onu : group.onus) is_shared = is_shared && onu->reported_type == type;
    const std::uint32_t key = is_shared ? type : LowestFree();
    _taken.insert(key);
    return key;
  }

 private:
  void TakeKeysOf(ONU_ABILITY_ENUM_PROFILE_TYPE profile_type) {
    std::vector<OnuAbilityProfile> profiles;
    OnuAbilityTableManager::GetInstance()->GetAll(profile_type, ONU_ABILITY_PROFILE_SOURCE_ALL,
                                                  profiles);
    for (const OnuAbilityProfile& profile : profiles) {
      _taken.insert(NameOf(profile).key);
      for (const std::uint16_t code : {ONU_ABILITY_CODE_REAL_TYPE, ONU_ABILITY_CODE_REPORT_TYPE}) {
        unsigned int type = 0;
        if (profile.Get(code, type) == ONU_ABILITY_RET_OK) _taken.insert(type);
      }
    }
  }

  // 0 when there is none left.
  std::uint32_t LowestFree() {
    for (; _next <= kHighestType; ++_next) {
      if (_taken.count(_next) == 0 && _reported.count(_next) == 0) return _next;
    }
    return 0;
  }

  std::uint32_t _next = 50001;  // far from the types of makers
  std::set<std::uint32_t> _taken;
  std::map<std::uint32_t, std::size_t> _reported;  // types, by how many ONUs
};

std::string SourceText(const AlikeOnus& group) {
  const OnuReport& first = *group.onus.front();
  std::string text =
      "reported by ONU " + std::to_string(first.place) + "/" + std::to_string(first.onu);
  if (group.onus.size() > 1) text += " and " + std::to_string(group.onus.size() - 1) + " more";
  return text;
}

void FillMatch(const AlikeOnus& group, ProposedEntry& entry) {
  for (const auto& [code, value] : ComparedAbilities(group.report)) {
    if (!IsTotal(code) && CanBeStated(value)) entry.match.emplace(code, value);
  }
}

// What the first of the group reported, asked codes that nobody compares included.
void FillReal(const AlikeOnus& group, std::uint16_t key_code, ProposedEntry& entry) {
  for (const auto& [code, value] : group.report._common_ability) {
    const bool is_about_type = code == key_code || code == ONU_ABILITY_CODE_REPORT_TYPE;
    if (is_about_type || IsText(value) || IsTotal(code) || !CanBeStated(value)) continue;
    if (value.ability_ushort_value != 0) entry.real.emplace(code, value);
  }
  const auto name = group.report._common_ability.find(ONU_ABILITY_CODE_TYPE_NAME);
  const bool is_named = name != group.report._common_ability.end() && IsText(name->second) &&
                        CanBeStated(name->second);
  entry.real[ONU_ABILITY_CODE_TYPE_NAME] =
      is_named ? name->second : Text("TYPE-" + std::to_string(entry.key));
}

// An operator's match profile is asked before all of the catalogue.
bool BelongsToOperator(const AlikeOnus& alike) {
  return alike.IsRecognised() && alike.winner.source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
}

ProposedEntry Propose(const AlikeOnus& group, Keys& keys) {
  const std::uint16_t key_code = OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
  ProposedEntry entry;
  entry.source = SourceText(group);
  FillMatch(group, entry);
  entry.match.erase(key_code);
  // A profile that demands nothing would take every ONU.
  if (entry.match.empty()) return entry;
  entry.why_none = BelongsToOperator(group) ? NoEntry::kOperatorIsFirst : NoEntry::kNoKey;
  if (entry.why_none == NoEntry::kOperatorIsFirst) return entry;
  entry.key = keys.Choose(group);
  if (entry.key == 0) return entry;
  FillReal(group, key_code, entry);
  entry.match.emplace(ONU_ABILITY_CODE_REPORT_TYPE, Number(entry.key));
  entry.real[ONU_ABILITY_CODE_REAL_TYPE] = Number(entry.key);
  entry.match[ONU_ABILITY_CODE_REAL_TYPE] = Number(entry.key);
  entry.why_none = NoEntry::kThereIsOne;
  return entry;
}

OnuAbilityProfile PatternOf(const ProposedEntry& entry) {
  OnuAbilityProfile pattern;
  pattern.Init(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_DEFAULT,
               ONU_ABILITY_MATCH_TYPE_EXACT);
  for (const auto& [code, value] : entry.match) {
    if (IsText(value)) {
      pattern.UpdateInit(code, value.ability_string_value);
    } else {
      pattern.UpdateInit(code, value.ability_ushort_value);
    }
  }
  pattern.UpdateInit(OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode(), entry.key);
  return pattern;
}

constexpr std::size_t kMostNamed = 100;

// Which ONUs each entry would take, by the library's comparison.
class Takers {
 public:
  explicit Takers(std::vector<ProposedEntry>& entries)
      : _entries(entries), _positions(PositionsOf(entries)), _index(PatternsOf(entries)) {}

  // `own`: the entry of the ONUs, which takes them unless the key is compared and another
  // one was reported.
  void CountGroup(const AlikeOnus& group, ProposedEntry& own) {
    bool fits_own = false;
    for (ProposedEntry* entry : Of(group)) {
      fits_own = fits_own || entry == &own;
      if (entry == &own) continue;
      (group.IsRecognised() ? entry->takes_by_luck : entry->takes_unrecognised) +=
          group.onus.size();
    }
    if (own.Exists() && !fits_own) own.why_none = NoEntry::kNoKey;
  }
  void CountSafe(const AlikeOnus& alike) {
    for (ProposedEntry* entry : Of(alike)) {
      entry->takes_safe += alike.onus.size();
      for (const OnuReport* onu : alike.onus) {
        if (entry->safe_onus.size() < kMostNamed) entry->safe_onus.push_back(onu);
      }
    }
  }

 private:
  static std::vector<std::size_t> PositionsOf(const std::vector<ProposedEntry>& entries) {
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (entries[i].Exists()) positions.push_back(i);
    }
    return positions;
  }
  static std::vector<OnuAbilityProfile> PatternsOf(const std::vector<ProposedEntry>& entries) {
    std::vector<OnuAbilityProfile> patterns;
    for (const ProposedEntry& entry : entries) {
      if (entry.Exists()) patterns.push_back(PatternOf(entry));
    }
    return patterns;
  }
  std::vector<ProposedEntry*> Of(const AlikeOnus& alike) {
    std::vector<ProposedEntry*> takers;
    if (BelongsToOperator(alike)) return takers;
    for (const std::size_t fitting : _index.Fitting(alike.report)) {
      takers.push_back(&_entries[_positions[fitting]]);
    }
    return takers;
  }

  std::vector<ProposedEntry>& _entries;
  std::vector<std::size_t> _positions;  // of the entries that exist
  FitIndex _index;
};

std::string ProfileYaml(const ProposedEntry& entry, const Abilities& abilities,
                        const std::map<std::uint16_t, std::string>& names) {
  std::string text = "  - key: " + std::to_string(entry.key) +
                     "\n    source: " + QuotedYaml(entry.source) + "\n    abilities:\n";
  for (const auto& [code, value] : abilities) {
    const auto name = names.find(code);
    text += "      " + (name == names.end() ? std::to_string(code) : name->second) + ": " +
            (IsText(value) ? QuotedYaml(value.ability_string_value)
                           : std::to_string(value.ability_ushort_value)) +
            "\n";
  }
  return text;
}

}  // namespace

std::vector<ProposedEntry> ProposeEntries(const UnknownOnus& unknown,
                                          const Population& population) {
  const UndisturbedLibrary undisturbed;
  Keys keys(population);
  std::vector<ProposedEntry> entries;
  for (const AlikeOnus& group : unknown.groups) entries.push_back(Propose(group, keys));
  Takers takers(entries);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    takers.CountGroup(unknown.groups[i], entries[i]);
  }
  for (const AlikeOnus& alike : unknown.safe) takers.CountSafe(alike);
  return entries;
}

std::string EntriesYaml(const std::vector<ProposedEntry>& entries) {
  const std::map<std::uint16_t, std::string> names = PlainCodeNames();
  std::string real;
  std::string match;
  for (const ProposedEntry& entry : entries) {
    if (!entry.Exists()) continue;
    real += ProfileYaml(entry, entry.real, names);
    match += ProfileYaml(entry, entry.match, names);
  }
  return real.empty() ? "" : "real_profiles:\n" + real + "match_profiles:\n" + match;
}

}  // namespace olt_host
