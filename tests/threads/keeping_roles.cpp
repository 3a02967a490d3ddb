// The threads that add, change and delete profiles through the manager, each among keys
// of its own, so that it knows what must be found.
#include <algorithm>
#include <atomic>
#include <map>
#include <set>

#include "catalogue.h"
#include "role.h"

namespace {

constexpr auto kReal = ONU_ABILITY_PROFILE_TYPE_REAL;
constexpr auto kMatch = ONU_ABILITY_PROFILE_TYPE_MATCH;
constexpr auto kExternal = ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
constexpr auto kAll = ONU_ABILITY_PROFILE_SOURCE_ALL;
// A source of the pattern keepers', each of whom deletes all of it.
constexpr auto kCommonSource = static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(9);
constexpr unsigned int kKeys = 16;

OnuAbilityTableManager& Tables() { return *OnuAbilityTableManager::GetInstance(); }

unsigned int NumberOf(const OnuAbilityProfile& profile, unsigned short code) {
  const auto found = profile._common_ability.find(code);
  return found != profile._common_ability.end() ? found->second.ability_ushort_value : 0;
}

// What the caller's thread added and did not delete, with the ports and ONUs it gave it.
struct Kept {
  unsigned int fe_ports;
  unsigned int bound;
};

// Bindings of the shared profile by all keepers.
std::atomic<unsigned int> bound_by_all{0};

class ProfileKeeper : public Role {
 public:
  ProfileKeeper(unsigned int number, Violations& violations)
      : Role("profile keeper", 30 + number, violations), _first_key(1000 + number * kKeys) {}

  void Step() override {
    const unsigned int key = _first_key + Choose(kKeys);
    const auto kept = _kept.find(key);
    if (kept == _kept.end()) {
      AddProfile(key);
    } else if (kept->second.bound == 0 && Choose(3) == 0) {
      DeleteProfile(key);
    } else {
      Change(key, kept->second);
    }
    Look(_first_key + Choose(kKeys));
    BindShared();
    if (Choose(8) == 0) {
      LookAtAll();
    }
  }

  void CheckEnd() override {
    LookAtAll();
    OnuAbilityProfile shared = EmptyProfile(kReal, kExternal);
    Expect(Tables().Get(kReal, kExternal, kSharedKey, shared) == ONU_ABILITY_RET_OK,
           "the shared profile is missing");
    Expect(shared._bind_count == bound_by_all, "the bind counts of all keepers do not add up");
    for (unsigned int key = _first_key; key < _first_key + kKeys; ++key) {
      Look(key);
    }
    std::vector<OnuAbilityProfile> profiles;
    for (const auto& [key, kept] : _kept) {
      Tables().Get(kReal, kExternal, key, profiles);
      Expect(profiles.size() == 1 && profiles[0]._bind_count == kept.bound, "bind counts");
    }
  }

 private:
  void AddProfile(unsigned int key) {
    OnuAbilityProfile profile = RealProfile(key, kExternal, 2, 1);
    Expect(Tables().Add(profile) == ONU_ABILITY_RET_OK, "a profile is refused");
    _kept[key] = {2, 0};
    OnuAbilityProfile same_again = RealProfile(key, kExternal, 2, 1);
    Expect(Tables().Add(same_again) != ONU_ABILITY_RET_OK, "a second profile is taken");
  }

  void DeleteProfile(unsigned int key) {
    if (Choose(2) == 0) {
      Tables().Del(kExternal, kReal, key);
    } else {
      OnuAbilityProfile profile = RealProfile(key, kExternal, 2, 1);
      Tables().Del(profile);
    }
    _kept.erase(key);
  }

  void Change(unsigned int key, Kept& kept) {
    switch (Choose(4)) {
      case 0:
        kept.fe_ports = 1 + Choose(8);
        Expect(Tables().Add(kReal, kExternal, key, kFePorts, kept.fe_ports) == ONU_ABILITY_RET_OK,
               "a value is refused");
        break;
      case 1:
        Expect(Tables().Add(kReal, kExternal, key, 1083, NameOfType(key)) == ONU_ABILITY_RET_OK,
               "a name is refused");
        break;
      case 2:
        Expect(Tables().AddBindCount(kReal, key) == ONU_ABILITY_RET_OK, "a binding is refused");
        ++kept.bound;
        break;
      default:
        Expect(Tables().MinusBindCount(kReal, key) == ONU_ABILITY_RET_OK,
               "an unbinding is refused");
        kept.bound -= kept.bound > 0 ? 1 : 0;
        break;
    }
  }

  // Never more unbound than bound, so no count is lost at 0.
  void BindShared() {
    if (_bound_shared == 0 || Choose(3) != 0) {
      Expect(Tables().AddBindCount(kReal, kSharedKey) == ONU_ABILITY_RET_OK,
             "a binding of the shared profile is refused");
      ++_bound_shared;
      ++bound_by_all;
    } else {
      Expect(Tables().MinusBindCount(kReal, kSharedKey) == ONU_ABILITY_RET_OK,
             "an unbinding of the shared profile is refused");
      --_bound_shared;
      --bound_by_all;
    }
  }

  // Every way to one profile.
  void Look(unsigned int key) {
    const auto kept = _kept.find(key);
    const bool is_kept = kept != _kept.end();
    const auto real_type = static_cast<unsigned short>(key);
    const unsigned int found = is_kept ? 1 : 0;
    const unsigned int status = is_kept ? ONU_ABILITY_RET_OK : ONU_ABILITY_RET_NOT_FOUND;
    Expect(Tables().IsExist(kReal, kExternal, key) == found, "existence by key");
    Expect(Tables().IsEqual(kReal, kExternal, 1081, key) == found, "existence without the lock");
    OnuAbilityProfile profile = EmptyProfile(kReal, kExternal);
    Expect(Tables().Get(kReal, kExternal, key, profile) == status, "a copy by key");
    if (is_kept) {
      LookAt(profile);
      Expect(NumberOf(profile, kFePorts) == kept->second.fe_ports, "a value that was set");
      Expect(NumberOf(profile, kLamp) == kLampsOfEach, "a value that was never changed");
    }
    Expect(Tables().Get(kReal, kAll, real_type, profile) == status, "a copy by real type");
    std::vector<OnuAbilityProfile> profiles;
    Expect(Tables().Get(kReal, kAll, real_type, profiles) == status && profiles.size() == found,
           "copies by real type");
    Expect(Tables().Get(kReal, kExternal, key, profiles) == status && profiles.size() == found,
           "copies by key");
    unsigned int number = 0;
    Expect(Tables().Get(kReal, key, kLamp, number) == status, "a number by key");
    Expect(Tables().Get(kReal, real_type, kLamp, number) == status, "a number by real type");
    std::string text;
    Expect(Tables().Get(kReal, key, 1083, text) == status, "a string by key");
    Expect(Tables().Get(kReal, real_type, 1083, text) == status, "a string by real type");
  }

  // What holds in every copy of a real profile.
  void LookAt(const OnuAbilityProfile& profile) {
    Expect(profile._common_ability_num == profile._common_ability.size(),
           "the count is not the number of abilities");
    Expect(NumberOf(profile, 1001) == NumberOf(profile, kFePorts) + NumberOf(profile, kGePorts),
           "the LAN ports do not add up");
    Expect(NumberOf(profile, 65533) == NumberOf(profile, 1001), "the data UNIs do not add up");
  }

  void LookAtAll() {
    std::vector<OnuAbilityProfile> profiles;
    Tables().GetAll(kReal, kExternal, profiles);
    std::set<unsigned short> ids;
    for (const auto& profile : profiles) {
      LookAt(profile);
      Expect(ids.insert(profile._id).second, "two profiles have one id");
    }
    for (const auto& [key, kept] : _kept) {
      const auto is_it = [key = key](const auto& profile) {
        return NumberOf(profile, ONU_ABILITY_CODE_DEFAULT_KEY) == key;
      };
      Expect(std::count_if(profiles.begin(), profiles.end(), is_it) == 1,
             "a kept profile is not there once");
    }
  }

  const unsigned int _first_key;
  std::map<unsigned int, Kept> _kept;
  unsigned int _bound_shared = 0;
};

// Patterns that fit none of the storm's ONUs but are newer than those that do, some of
// them without the key code, which comparisons add.
class PatternKeeper : public Role {
 public:
  PatternKeeper(unsigned int number, Violations& violations)
      : Role("pattern keeper", 40 + number, violations), _first_key(2000 + number * kKeys) {}

  void Step() override {
    const unsigned int key = _first_key + Choose(kKeys);
    if (_ids.count(key) == 0) {
      AddPattern(key);
    } else {
      DeletePattern(key);
    }
    for (unsigned int other = _first_key; other < _first_key + kKeys; ++other) {
      Expect(Tables().IsEqual(kMatch, kExternal, kSerialPorts, other) == _ids.count(other),
             "a pattern's value without the lock");
    }
    Recognise(_first_key + Choose(kKeys));
    AddAndDropAll();
    if (Choose(8) == 0) {
      LookAtAll();
    }
  }

  void CheckEnd() override { LookAtAll(); }

 private:
  void AddPattern(unsigned int key) {
    OnuAbilityProfile pattern = Pattern(key, kExternal, key);
    if (Choose(2) == 0) {
      pattern.Del(ONU_ABILITY_CODE_DEFAULT_KEY);
      pattern.Del(ONU_ABILITY_CODE_REAL_TYPE);
    }
    Expect(Tables().Add(pattern) == ONU_ABILITY_RET_OK, "a pattern is refused");
    _ids[key] = pattern._id;
  }

  void DeletePattern(unsigned int key) {
    OnuAbilityProfile pattern = Pattern(key, kExternal, key);
    pattern._id = _ids[key];
    Tables().Del(pattern);
    _ids.erase(key);
  }

  void Recognise(unsigned int key) {
    OnuAbilityProfile report = EmptyProfile(kMatch, kAll);
    report.Add(kSerialPorts, key);
    Expect((Tables() == report) == _ids.count(key), "a pattern is recognised or not");
  }

  // All keepers at once, so that their ids meet.
  void AddAndDropAll() {
    constexpr unsigned int kBurst = 12;
    OnuAbilityProfile pattern = Pattern(_first_key, kCommonSource, _first_key + 500);
    for (unsigned int i = 0; i < kBurst; ++i) {
      pattern._id = ONU_ABILITY_INVALID_ID;
      Tables().Add(pattern);
    }
    ExpectIdsOfTheirOwn(kCommonSource);
    Tables().DelAll(kCommonSource, kMatch);
  }

  std::set<unsigned short> ExpectIdsOfTheirOwn(ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
    std::vector<OnuAbilityProfile> profiles;
    Tables().GetAll(kMatch, source, profiles);
    std::set<unsigned short> ids;
    for (const auto& profile : profiles) {
      Expect(ids.insert(profile._id).second, "two patterns have one id");
    }
    return ids;
  }

  void LookAtAll() {
    const std::set<unsigned short> ids = ExpectIdsOfTheirOwn(kExternal);
    for (const auto& [key, id] : _ids) {
      Expect(ids.count(id) == 1, "a kept pattern is missing");
    }
  }

  const unsigned int _first_key;
  std::map<unsigned int, unsigned short> _ids;
};

}  // namespace

std::unique_ptr<Role> MakeProfileKeeper(unsigned int number, Violations& violations) {
  return std::make_unique<ProfileKeeper>(number, violations);
}
std::unique_ptr<Role> MakePatternKeeper(unsigned int number, Violations& violations) {
  return std::make_unique<PatternKeeper>(number, violations);
}
