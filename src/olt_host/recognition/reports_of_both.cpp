#include "recognition/reports_of_both.h"

#include <map>
#include <memory>
#include <set>
#include <tuple>

#include "catalogue/report_reader.h"

namespace olt_host {

namespace {

// The codes of `own`, and those that only `other` has or names so.
Catalogue NamesOf(const Catalogue& own, const Catalogue& other) {
  Catalogue names;
  names.codes = own.codes;
  for (const CodeEntry& code : other.codes) {
    if (own.FindCode(code.name) == nullptr) names.codes.push_back(code);
  }
  return names;
}

bool MeanTheSame(const Catalogue& one, const Catalogue& other) {
  using Meanings = std::set<std::tuple<std::uint16_t, std::string, bool>>;
  const auto meanings = [](const Catalogue& catalogue) {
    Meanings all;
    for (const CodeEntry& code : catalogue.codes) {
      all.emplace(code.code, code.name, code.HoldsText());
    }
    return all;
  };
  return meanings(one) == meanings(other);
}

Populations Read(const std::vector<std::string>& files, const Catalogue& names) {
  Populations populations;
  for (const std::string& file : files) {
    populations.push_back(std::make_shared<const Population>(ReadReports(file, names)));
  }
  return populations;
}

void AddCodesLacking(const Populations& populations, const Catalogue& own, const Catalogue& other,
                     bool only_in_newer, std::vector<CodeOfOne>& codes) {
  std::map<std::uint16_t, CodeOfOne> lacking;
  for (const auto& population : populations) {
    for (const OnuReport& report : population->Onus()) {
      for (const auto& ability : report.abilities) {
        if (own.FindCode(ability.first) != nullptr) continue;
        CodeOfOne& code = lacking[ability.first];
        code.code = ability.first;
        code.only_in_newer = only_in_newer;
        ++code.onus;
      }
    }
  }
  for (auto& entry : lacking) {
    const CodeEntry* const known = other.FindCode(entry.first);
    if (known != nullptr) entry.second.name = known->name;
    codes.push_back(std::move(entry.second));
  }
}

}  // namespace

ReportsOfBoth ReadReportsOfBoth(const std::vector<std::string>& files, const Catalogue& older,
                                const Catalogue& newer) {
  const Catalogue older_names = NamesOf(older, newer);
  const Catalogue newer_names = NamesOf(newer, older);
  ReportsOfBoth reports;
  reports.for_older = Read(files, older_names);
  reports.for_newer =
      MeanTheSame(older_names, newer_names) ? reports.for_older : Read(files, newer_names);
  AddCodesLacking(reports.for_older, older, newer, true, reports.codes_of_one);
  AddCodesLacking(reports.for_newer, newer, older, false, reports.codes_of_one);
  return reports;
}

}  // namespace olt_host
