#include "recognition/reports_of_both.h"

#include <memory>
#include <set>
#include <tuple>

#include "catalogue/report_reader.h"

namespace olt_host {

namespace {

Populations Read(const std::vector<std::string>& files, const Catalogue& names) {
  Populations populations;
  for (const std::string& file : files) {
    populations.push_back(std::make_shared<const Population>(ReadReports(file, names)));
  }
  return populations;
}

std::map<std::uint16_t, CodeOfOne> OnlyIn(const Catalogue& one, const Catalogue& other,
                                          bool is_newer) {
  std::map<std::uint16_t, CodeOfOne> codes;
  for (const CodeEntry& code : one.codes) {
    if (other.FindCode(code.code) != nullptr) continue;
    codes[code.code] = {code.code, code.name, is_newer, 0};
  }
  return codes;
}

void CountCodes(const OnuReport& report, std::map<std::uint16_t, CodeOfOne>& codes) {
  if (codes.empty()) return;
  for (const auto& ability : report.abilities) {
    const auto code = codes.find(ability.first);
    if (code != codes.end()) ++code->second.onus;
  }
}

}  // namespace

CodesOfOne::CodesOfOne(const Catalogue& older, const Catalogue& newer)
    : _only_in_newer(OnlyIn(newer, older, true)), _only_in_older(OnlyIn(older, newer, false)) {}

void CodesOfOne::Count(const OnuReport& for_older, const OnuReport& for_newer) {
  CountCodes(for_older, _only_in_newer);
  CountCodes(for_newer, _only_in_older);
}

std::vector<CodeOfOne> CodesOfOne::Codes() const {
  std::vector<CodeOfOne> codes;
  for (const auto* const known : {&_only_in_newer, &_only_in_older}) {
    for (const auto& entry : *known) {
      if (entry.second.onus > 0) codes.push_back(entry.second);
    }
  }
  return codes;
}

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

ReportsOfBoth ReadReportsOfBoth(const std::vector<std::string>& files, const Catalogue& older,
                                const Catalogue& newer) {
  const Catalogue older_names = NamesOf(older, newer);
  const Catalogue newer_names = NamesOf(newer, older);
  ReportsOfBoth reports;
  reports.for_older = Read(files, older_names);
  reports.for_newer =
      MeanTheSame(older_names, newer_names) ? reports.for_older : Read(files, newer_names);
  CodesOfOne codes(older, newer);
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto& onus = reports.for_older[i]->Onus();
    for (std::size_t onu = 0; onu < onus.size(); ++onu) {
      codes.Count(onus[onu], reports.for_newer[i]->Onus()[onu]);
    }
  }
  reports.codes_of_one = codes.Codes();
  return reports;
}

}  // namespace olt_host
