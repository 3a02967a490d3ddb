#include "recognition/met_expectations.h"

#include <algorithm>

#include "recognition/fit_index.h"
#include "recognition/population_outcome.h"
#include "recognition/undisturbed_library.h"

namespace olt_host {

namespace {

class FittingKeys {
 public:
  FittingKeys() : _patterns(MatchProfiles()), _index(_patterns) {}

  // Newest first.
  std::vector<std::uint32_t> Of(const ReportSource& source, const OnuReport& report) {
    const std::vector<std::size_t> fitting = _index.Fitting(GatherForComparison(source, report));
    std::vector<std::uint32_t> keys;
    for (auto position = fitting.rbegin(); position != fitting.rend(); ++position) {
      keys.push_back(NameOf(_patterns[*position]).key);
    }
    return keys;
  }

 private:
  const std::vector<OnuAbilityProfile> _patterns;
  FitIndex _index;
};

}  // namespace

std::vector<Expectation> MetExpectations(const std::shared_ptr<const Population>& population) {
  const UndisturbedLibrary undisturbed;
  const PopulationOutcome outcome = OutcomeOf({population});
  FittingKeys fitting;
  std::vector<Expectation> met;
  for (std::size_t i = 0; i < outcome.onus.size(); ++i) {
    const OnuOutcome& onu = outcome.onus[i];
    Expectation expectation;
    expectation.real_type = onu.real_type;
    expectation.how = onu.how;
    expectation.report_type = onu.report_type;
    if (onu.ByLuck()) expectation.ambiguous = fitting.Of(*population, population->Onus()[i]);
    met.push_back(expectation);
  }
  return met;
}

bool TypesAsStated(const Expectation& stated, const Expectation& met) {
  return stated.real_type == met.real_type && (!stated.how || stated.how == met.how) &&
         (!stated.report_type || stated.report_type == met.report_type);
}

bool AmbiguityAsStated(const Expectation& stated, const Expectation& met) {
  return stated.ambiguous.size() == met.ambiguous.size() &&
         std::is_permutation(stated.ambiguous.begin(), stated.ambiguous.end(),
                             met.ambiguous.begin());
}

}  // namespace olt_host
