#include "recognition/unknown_onus.h"

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>

#include "recognition/fit_index.h"
#include "recognition/pattern_comparison.h"
#include "recognition/silent_observer.h"
#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

using Abilities = std::map<std::uint16_t, ONU_ABILITY_COMMON_ABILITY_VALUE>;
using Told = std::vector<std::tuple<std::uint16_t, unsigned int, unsigned int, std::string>>;

// Everything by which compared abilities can differ.
Told ToldBy(const OnuAbilityProfile& report) {
  Told told;
  for (const auto& [code, value] : ComparedAbilities(report)) {
    told.emplace_back(code, static_cast<unsigned int>(value.ability_value_type),
                      value.ability_ushort_value, value.ability_string_value);
  }
  return told;
}

// As it is compared with match profiles; nothing when the library does not compare, because
// it knows the reported type.
std::optional<OnuAbilityProfile> Compared(const Population& population, const OnuReport& report) {
  SilentObserver silent;
  const ScopedHookContext context(population, silent);
  ConfirmOnuType onu(report.place, report.onu);
  onu.Init();
  if (onu.IsValidOnuType() == ONU_ABILITY_RET_OK) return std::nullopt;
  onu.UpdateOnucapaFromSpecialMe();
  return onu;
}

// The ONUs of a population that are compared with match profiles, alike ones together.
std::vector<AlikeOnus> AlikeOnusOf(const Population& population) {
  std::vector<AlikeOnus> alike;
  std::map<Told, std::size_t> places;
  for (const OnuReport& report : population.Onus()) {
    const std::optional<OnuAbilityProfile> compared = Compared(population, report);
    if (!compared) continue;
    const auto [at, is_new] = places.emplace(ToldBy(*compared), alike.size());
    if (is_new) {
      alike.emplace_back();
      alike.back().report = *compared;
    }
    alike[at->second].onus.push_back(&report);
  }
  return alike;
}

// What nothing recognises first; of a kind the largest.
void Sort(std::vector<AlikeOnus>& groups) {
  std::stable_sort(groups.begin(), groups.end(), [](const AlikeOnus& a, const AlikeOnus& b) {
    return a.IsRecognised() != b.IsRecognised() ? b.IsRecognised() : a.onus.size() > b.onus.size();
  });
}

}  // namespace

Abilities ComparedAbilities(const OnuAbilityProfile& report) {
  Abilities abilities;
  for (const auto& [code, value] : report._common_ability) {
    if (IsCompared(code)) abilities.emplace(code, value);
  }
  return abilities;
}

UnknownOnus FindUnknownOnus(const Population& population) {
  const UndisturbedLibrary undisturbed;
  const std::vector<OnuAbilityProfile> patterns = MatchProfiles();
  FitIndex index(patterns);
  UnknownOnus unknown;
  for (AlikeOnus& alike : AlikeOnusOf(population)) {
    const std::vector<std::size_t> fitting = index.Fitting(alike.report);
    alike.fitting = fitting.size();
    if (!fitting.empty()) alike.winner = NameOf(patterns[fitting.back()]);
    if (fitting.empty()) unknown.unrecognised += alike.onus.size();
    if (fitting.size() > 1) unknown.by_luck += alike.onus.size();
    (fitting.size() == 1 ? unknown.safe : unknown.groups).push_back(alike);
  }
  Sort(unknown.groups);
  return unknown;
}

}  // namespace olt_host
