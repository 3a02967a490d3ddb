// Match profiles made in a line, in the real library, and what that says to reports.
#ifndef TESTS_OLT_HOST_RECOGNITION_MATCH_TABLE_H
#define TESTS_OLT_HOST_RECOGNITION_MATCH_TABLE_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_profile.h"
#include "confirmation/hooks.h"
#include "host_files.h"
#include "recognition/silent_observer.h"

namespace olt_host_test {

// What a profile holds under a code: nothing, a wildcard, an entry without a tag, a number
// or a text.
struct Cell {
  enum Kind { kAbsent, kAny, kUnset, kNumber, kText } kind = kAbsent;
  std::uint32_t number = 0;
  std::string text;
};

inline Cell Number(std::uint32_t number) { return {Cell::kNumber, number, ""}; }
inline Cell Text(const std::string& text) { return {Cell::kText, 0, text}; }

using Cells = std::map<std::uint16_t, Cell>;  // by code

// A source that knows one report.
class OneReport : public olt_host::ReportSource {
 public:
  explicit OneReport(const olt_host::OnuReport& report) : _report(report) {}
  const olt_host::OnuReport* Find(std::uint16_t /*place*/, std::uint8_t /*onu*/) const override {
    return &_report;
  }
  const olt_host::IdentifySettings& Settings(std::uint16_t /*place*/) const override {
    return _settings;
  }

 private:
  const olt_host::OnuReport& _report;
  olt_host::IdentifySettings _settings;
};

// A library with these codes and a match table that a test fills as often as it likes.
class MatchTable {
 public:
  static constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

  // By code: the confirm type, the port type and whether it holds texts.
  struct Code {
    std::uint16_t confirm_type = 3;
    bool text = false;
    std::uint16_t port_type = 0;
  };

  explicit MatchTable(std::map<std::uint16_t, Code> codes) {
    // Each comparison with an entry that has no tag says so in a line.
    onu_ability_set_log_level_mask(0);
    codes.emplace(1085, Code{0, false, 0});
    _catalogue.attributes = {{1, "CONFIRM", {}, 1}, {4, "PORT", {}, 2}, {5, "TYPE", {}, 3}};
    for (const auto& [code, facts] : codes) {
      olt_host::CodeEntry entry;
      entry.code = code;
      entry.name = "C" + std::to_string(code);
      entry.attributes = {{std::uint16_t{1}, facts.confirm_type},
                          {std::uint16_t{4}, facts.port_type},
                          {std::uint16_t{5}, facts.text ? std::uint16_t{3} : std::uint16_t{2}}};
      _catalogue.codes.push_back(entry);
    }
    olt_host::RegisterHooks();
    olt_host::LoadCatalogue(_catalogue);
  }

  ~MatchTable() { onu_ability_set_log_level_mask(_log_mask); }
  MatchTable(const MatchTable&) = delete;
  MatchTable& operator=(const MatchTable&) = delete;

  // From the oldest to the newest, with keys from 1 on, and as they are in the table then.
  const std::vector<OnuAbilityProfile>& Fill(const std::vector<Cells>& patterns) {
    OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
    manager->DelAll(ONU_ABILITY_PROFILE_SOURCE_DEFAULT, ONU_ABILITY_PROFILE_TYPE_MATCH);
    std::uint32_t key = 0;
    for (const Cells& pattern : patterns) {
      OnuAbilityProfile profile = Make(pattern, ++key);
      profile._id = static_cast<std::uint16_t>(key);
      manager->Add(profile);
    }
    manager->GetAll(ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_SOURCE_ALL, _profiles);
    return _profiles;
  }

  const olt_host::Catalogue& catalogue() const { return _catalogue; }

  // The report as the library gathers it.
  static ConfirmOnuType Gather(const olt_host::OnuReport& report) {
    const OneReport source(report);
    olt_host::SilentObserver observer;
    const olt_host::ScopedHookContext context(source, observer);
    ConfirmOnuType gathered(report.place, report.onu);
    gathered.Init();
    return gathered;
  }

  // The position of the profile that takes the report by its abilities; kNobody when none
  // does, or when its type is known.
  static std::size_t Winner(const ConfirmOnuType& gathered) {
    ConfirmOnuType confirmed = gathered;
    if (confirmed.IsValidOnuType() == ONU_ABILITY_RET_OK) return kNobody;
    confirmed.ConfirmOnuTypeByAbilities();
    return confirmed._flag_match_type == ONU_ABILITY_MATCH_TYPE_EXACT ? confirmed._id - 1U
                                                                      : kNobody;
  }
  static bool IsKnownByType(const ConfirmOnuType& gathered) {
    ConfirmOnuType confirmed = gathered;
    return confirmed.IsValidOnuType() == ONU_ABILITY_RET_OK;
  }
  // Whether the library finds the profile at the position to fit.
  bool Fits(std::size_t position, const ConfirmOnuType& gathered) const {
    ConfirmOnuType compared = gathered;
    compared.UpdateOnucapaFromSpecialMe();
    OnuAbilityProfile profile = _profiles.at(position);
    return (profile == static_cast<const OnuAbilityProfile&>(compared)) != 0;
  }

 private:
  static OnuAbilityProfile Make(const Cells& pattern, std::uint32_t key) {
    olt_host::ProfileEntry entry;
    entry.key = key;
    OnuAbilityProfile profile = olt_host::MakeProfile(entry, ONU_ABILITY_PROFILE_TYPE_MATCH, 1085);
    for (const auto& [code, cell] : pattern) {
      switch (cell.kind) {
        case Cell::kAbsent:
          break;
        case Cell::kAny:
          profile.UpdateInit(code, 0xFFFFFFFFU);
          break;
        case Cell::kUnset:
          profile._common_ability[code] = ONU_ABILITY_COMMON_ABILITY_VALUE();
          break;
        case Cell::kNumber:
          profile.UpdateInit(code, cell.number);
          break;
        case Cell::kText:
          profile.UpdateInit(code, cell.text);
          break;
      }
    }
    return profile;
  }

  unsigned int _log_mask = onu_ability_get_log_level_mask();
  CleanLibrary _library;
  olt_host::Catalogue _catalogue;
  std::vector<OnuAbilityProfile> _profiles;
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_RECOGNITION_MATCH_TABLE_H
