#include "recognition/real_types.h"

#include <algorithm>
#include <functional>
#include <set>

#include "catalogue/input_error.h"
#include "catalogue/nearest_name.h"
#include "recognition/ability_reading.h"
#include "recognition/letter_case.h"
#include "text/number.h"

namespace olt_host {

namespace {

using Rule = std::function<bool(const RealType&)>;

bool HasKey(const RealType& type, unsigned int key) {
  return HeldUnder(type.profile, type.profile._key_ability_code) != nullptr && type.Key() == key;
}

bool HasReal(const RealType& type, unsigned int real) {
  return HeldUnder(type.profile, ONU_ABILITY_CODE_REAL_TYPE) != nullptr && type.Real() == real;
}

std::vector<Rule> NameRules(const std::string& name) {
  const std::string wanted = LowerCase(name);
  return {[name](const RealType& type) { return type.Name() == name; },
          [wanted](const RealType& type) { return LowerCase(type.Name()) == wanted; },
          [wanted](const RealType& type) {
            return !wanted.empty() && LowerCase(type.Name()).compare(0, wanted.size(), wanted) == 0;
          }};
}

// What `call` may mean; the first rule that any type follows counts.
std::vector<Rule> RulesOf(const std::string& call) {
  const std::size_t equals = call.find('=');
  const std::string kind = equals == std::string::npos ? "" : LowerCase(call.substr(0, equals));
  const std::string rest = equals == std::string::npos ? call : call.substr(equals + 1);
  unsigned int number = 0;
  const bool is_number = ReadNumber(rest, number);
  if (kind == "name") return NameRules(rest);
  if (is_number && kind == "key") {
    return {[number](const RealType& type) { return HasKey(type, number); }};
  }
  if (is_number && kind == "real") {
    return {[number](const RealType& type) { return HasReal(type, number); }};
  }
  if (is_number && (kind == "shipped" || kind == "operator")) {
    return {[number, kind](const RealType& type) {
      return HasKey(type, number) && kind == type.Source();
    }};
  }
  std::vector<Rule> rules = NameRules(call);
  if (is_number && equals == std::string::npos) {
    rules.insert(rules.begin(), [number](const RealType& type) {
      return HasKey(type, number) || HasReal(type, number);
    });
  }
  return rules;
}

std::string Ambiguity(const std::string& call, const std::vector<const RealType*>& meant) {
  constexpr std::size_t kMostNamed = 6;
  std::string message = Quoted(call) + " may be ";
  for (std::size_t i = 0; i < meant.size() && i < kMostNamed; ++i) {
    message += (i == 0 ? "" : ", ") + ("key=" + std::to_string(meant[i]->Key()));
    if (!meant[i]->Name().empty()) message += " (" + Quoted(meant[i]->Name()) + ")";
  }
  if (meant.size() > kMostNamed) {
    message += " or " + std::to_string(meant.size() - kMostNamed) + " more";
  }
  return message + "; expected one of them";
}

std::string NothingCalled(const std::vector<RealType>& types, const std::string& call) {
  std::vector<std::string> names;
  names.reserve(types.size());
  for (const RealType& type : types) names.push_back(type.Name());
  const std::string nearest = NearestName(call, names);
  return "No type is called " + Quoted(call) + "; expected " +
         (nearest.empty() ? "a key, a real type or a type name that \"show type\" lists"
                          : Quoted(nearest));
}

}  // namespace

std::uint32_t RealType::Key() const { return NumberUnder(profile, profile._key_ability_code); }

std::uint32_t RealType::Real() const { return NumberUnder(profile, ONU_ABILITY_CODE_REAL_TYPE); }

std::string RealType::Name() const { return TextUnder(profile, ONU_ABILITY_CODE_TYPE_NAME); }

const char* RealType::Source() const {
  return profile._profile_source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL ? "operator" : "shipped";
}

std::vector<RealType> RealTypes() {
  std::vector<OnuAbilityProfile> profiles;
  OnuAbilityTableManager::GetInstance()->GetAll(ONU_ABILITY_PROFILE_TYPE_REAL,
                                                ONU_ABILITY_PROFILE_SOURCE_ALL, profiles);
  std::vector<RealType> types;
  std::set<std::uint32_t> keys;
  for (auto profile = profiles.rbegin(); profile != profiles.rend(); ++profile) {
    RealType type{std::move(*profile), false};
    type.hidden = !keys.insert(type.Key()).second;
    types.push_back(std::move(type));
  }
  return types;
}

const RealType& FindType(const std::vector<RealType>& types, const std::string& call) {
  for (const Rule& rule : RulesOf(call)) {
    std::vector<const RealType*> meant;
    std::set<std::uint32_t> keys;
    for (const RealType& type : types) {
      if (rule(type) && keys.insert(type.Key()).second) meant.push_back(&type);
    }
    if (meant.size() > 1) throw TypeNameError(Ambiguity(call, meant));
    if (meant.size() == 1) return *meant.front();
  }
  throw TypeNameError(NothingCalled(types, call));
}

}  // namespace olt_host
