#include "catalogue/catalogue_checks.h"

#include <algorithm>
#include <map>
#include <utility>

namespace olt_host {

namespace {

// Calls `rules`, which throw, and tells of the entry that breaks one.
template <typename Rules>
void Hold(const RuleBreach& breach, unsigned int order, Rules rules) {
  try {
    rules();
  } catch (const InputError& error) {
    breach(order, error);
  }
}

// In the order in which the entries were read, so that the later of two is at
// fault wherever it has been put.
template <typename Entry>
std::vector<const Entry*> AsRead(const std::vector<Entry>& entries) {
  std::vector<const Entry*> pointers;
  pointers.reserve(entries.size());
  for (const Entry& entry : entries) {
    pointers.push_back(&entry);
  }
  std::stable_sort(pointers.begin(), pointers.end(),
                   [](const Entry* a, const Entry* b) { return a->order < b->order; });
  return pointers;
}

// Holds that a property of entries is unique; `what` names it with its value.
template <typename Key>
class Uniqueness {
 public:
  explicit Uniqueness(std::string expectation) : _expectation(std::move(expectation)) {}

  void Require(const Key& key, const std::string& what, const SourcePosition& position) {
    const auto [earlier, is_new] = _seen.emplace(key, position);
    if (!is_new) {
      throw InputError(position,
                       what + " is already taken in " + RelativeText(earlier->second, position),
                       _expectation);
    }
  }

 private:
  std::string _expectation;
  std::map<Key, SourcePosition> _seen;
};

std::string CodeText(const CodeEntry& code) {
  return "code " + std::to_string(code.code) + " (" + code.name + ")";
}

// The codes that the library reads or writes itself, and what it keeps there.
const std::map<std::uint16_t, bool>& FixedCodesHoldText() {
  static const std::map<std::uint16_t, bool> fixed = {
      {48, false},   {kAllLanCode, false}, {1002, false},         {1023, false},
      {1080, false}, {1081, false},        {kVendorIdCode, true}, {kTypeNameCode, true},
      {1093, true},  {kDataUniCode, false}};
  return fixed;
}

void CheckFixedCode(const CodeEntry& code) {
  const auto fixed = FixedCodesHoldText().find(code.code);
  if (fixed != FixedCodesHoldText().end() && fixed->second != code.HoldsText()) {
    throw InputError(code.position,
                     CodeText(code) + " holds a " + (code.HoldsText() ? "text" : "number"),
                     std::string("value type ") + (fixed->second ? "string" : "number") +
                         ", which the library keeps there");
  }
  // A total that counts as a port would be added to itself at every update.
  const bool is_total = code.code == kAllLanCode || code.code == kDataUniCode;
  const std::uint16_t port_type = code.Attribute(kPortTypeAttribute);
  if (is_total && (port_type == kLanPort || port_type == kOtherDataUni)) {
    throw InputError(code.position,
                     CodeText(code) + " is a total of ports but counts as a port itself",
                     "no port type 3 or 7");
  }
}

void CheckKeyAbilityCode(const Catalogue& catalogue, const RuleBreach& breach) {
  const SourcePosition& position = catalogue.key_ability_code_position;
  const CodeEntry* key_code = catalogue.FindCode(catalogue.key_ability_code);
  if (key_code == nullptr) {
    breach(0, InputError(position,
                         "key ability code " + std::to_string(catalogue.key_ability_code) +
                             " is not defined",
                         "it under codes"));
  } else if (key_code->HoldsText()) {
    breach(key_code->order, InputError(key_code->position, CodeText(*key_code) + " holds a text",
                                       "a number, for it is the key ability code"));
  } else if (key_code->code == kAllLanCode || key_code->code == kDataUniCode) {
    breach(0, InputError(position,
                         CodeText(*key_code) + " is a total of ports, which the library overwrites",
                         "another key ability code, such as 1085"));
  }
}

// Follows how the library gives ids: the lowest one free when the profile's turn
// comes. A later profile must not state an id given by then.
void CheckIds(const std::vector<ProfileEntry>& profiles, const RuleBreach& breach) {
  std::map<unsigned int, const ProfileEntry*> taken;
  unsigned int next = kFirstGivenId;
  for (const ProfileEntry& profile : profiles) {
    unsigned int id = profile.id;
    if (id == 0) {
      while (taken.count(next) != 0) {
        ++next;
      }
      id = next;
    }
    if (id > kLastGivenId && profile.id == 0) {
      breach(profile.order, InputError(profile.position, "no id is left for this profile",
                                       "at most 35533 profiles without an id"));
      continue;
    }
    const auto [earlier, is_new] = taken.emplace(id, &profile);
    if (!is_new) {
      const bool earlier_at_fault = earlier->second->order > profile.order;
      const ProfileEntry& other = earlier_at_fault ? profile : *earlier->second;
      const ProfileEntry& at_fault = earlier_at_fault ? *earlier->second : profile;
      breach(at_fault.order,
             InputError(at_fault.position,
                        "id " + std::to_string(id) + " already belongs to the profile in " +
                            RelativeText(other.position, at_fault.position),
                        "an id of its own, below 30001 or none at all"));
    }
  }
}

// The key is the value of the key ability code; stating another one is a
// contradiction.
void CheckStatedKey(const Catalogue& catalogue, const ProfileEntry& profile) {
  for (const AbilityEntry& ability : profile.abilities) {
    if (ability.code == catalogue.key_ability_code &&
        (ability.kind != AbilityKind::kNumber || ability.number != profile.key)) {
      throw InputError(ability.position,
                       CodeText(*catalogue.FindCode(ability.code)) + " differs from the key " +
                           std::to_string(profile.key),
                       "the key alone: it is stored under this code");
    }
  }
}

bool CountsFor(const CodeEntry& code, std::uint16_t total_code) {
  const std::uint16_t port_type = code.Attribute(kPortTypeAttribute);
  if (total_code == kAllLanCode) {
    return port_type == kLanPort;
  }
  return !code.HoldsText() && (port_type == kLanPort || port_type == kOtherDataUni);
}

// The library overwrites a stated total with the sum of the ports.
void CheckStatedTotal(const Catalogue& catalogue, const ProfileEntry& profile,
                      const AbilityEntry& stated) {
  std::uint32_t sum = 0;
  bool derived = false;
  for (const AbilityEntry& ability : profile.abilities) {
    if (ability.kind == AbilityKind::kNumber && ability.number != 0 &&
        ability.number != kAnyNumber && CountsFor(*catalogue.FindCode(ability.code), stated.code)) {
      sum += ability.number;
      derived = true;
    }
  }
  if (derived && (stated.kind != AbilityKind::kNumber || stated.number != sum)) {
    throw InputError(stated.position,
                     CodeText(*catalogue.FindCode(stated.code)) + " is not the sum of the ports",
                     std::to_string(sum) + ", or no entry: the library derives it");
  }
}

// A code may have been defined anew since the profile was read.
void CheckKind(const Catalogue& catalogue, const AbilityEntry& ability) {
  const CodeEntry* code = catalogue.FindCode(ability.code);
  if (code == nullptr) {
    throw InputError(ability.position, "code " + std::to_string(ability.code) + " is not defined",
                     "a code that is defined under codes");
  }
  const bool is_text =
      ability.kind == AbilityKind::kAny ? ability.holds_text : ability.kind == AbilityKind::kText;
  if (code->HoldsText() != is_text) {
    throw InputError(ability.position,
                     CodeText(*code) + " holds a " + (code->HoldsText() ? "text" : "number") +
                         " since " + RelativeText(code->position, ability.position),
                     code->HoldsText() ? "a text" : "a number");
  }
}

void CheckContents(const Catalogue& catalogue, const std::vector<ProfileEntry>& profiles,
                   const RuleBreach& breach) {
  for (const ProfileEntry* profile : AsRead(profiles)) {
    Hold(breach, profile->order, [&] {
      for (const AbilityEntry& ability : profile->abilities) {
        CheckKind(catalogue, ability);
      }
      CheckStatedKey(catalogue, *profile);
      for (const AbilityEntry& ability : profile->abilities) {
        if (ability.code == kAllLanCode || ability.code == kDataUniCode) {
          CheckStatedTotal(catalogue, *profile, ability);
        }
      }
    });
  }
}

}  // namespace

void CheckAttributes(const Catalogue& catalogue, const RuleBreach& breach) {
  Uniqueness<std::uint16_t> ids("an id of its own for every attribute");
  Uniqueness<std::string> names("a name of its own for every attribute");
  for (const AttributeEntry* attribute : AsRead(catalogue.attributes)) {
    Hold(breach, attribute->order, [&] {
      ids.Require(attribute->id, "attribute id " + std::to_string(attribute->id),
                  attribute->position);
      names.Require(attribute->name, "attribute name " + Quoted(attribute->name),
                    attribute->position);
    });
  }
  if (catalogue.FindAttribute(kValueTypeAttribute) == nullptr) {
    breach(0,
           InputError(catalogue.position, "attribute 5, the value type of a code, is not defined",
                      "it under attributes, such as {id: 5, name: VALUE_TYPE}"));
  }
}

void CheckCodes(const Catalogue& catalogue, const RuleBreach& breach) {
  Uniqueness<std::uint16_t> codes("a number of its own for every code");
  Uniqueness<std::string> names("a name of its own for every code");
  for (const CodeEntry* code : AsRead(catalogue.codes)) {
    Hold(breach, code->order, [&] {
      codes.Require(code->code, "code " + std::to_string(code->code), code->position);
      names.Require(code->name, "code name " + Quoted(code->name), code->position);
      CheckFixedCode(*code);
    });
  }
  CheckKeyAbilityCode(catalogue, breach);
}

void CheckProfiles(const Catalogue& catalogue, const RuleBreach& breach) {
  Uniqueness<std::uint32_t> keys("a key of its own for every real profile");
  for (const ProfileEntry* profile : AsRead(catalogue.real_profiles)) {
    Hold(breach, profile->order, [&] {
      keys.Require(profile->key, "key " + std::to_string(profile->key), profile->position);
    });
  }
  CheckIds(catalogue.real_profiles, breach);
  CheckIds(catalogue.match_profiles, breach);
  CheckContents(catalogue, catalogue.real_profiles, breach);
  CheckContents(catalogue, catalogue.match_profiles, breach);
}

}  // namespace olt_host
