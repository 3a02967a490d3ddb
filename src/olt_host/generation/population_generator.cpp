#include "generation/population_generator.h"

#include <utility>

namespace olt_host {

PopulationGenerator::PopulationGenerator(std::vector<Model> models, const FaultRates& rates,
                                         std::uint64_t seed, bool asked_again)
    : _models(std::move(models)), _rates(rates), _seed(seed), _asked_again(asked_again) {
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> codes;
  onu_ability_get_all_ability_attr_info(codes);
  for (const ONU_ABILITY_CODE_ATTR_INFO& record : codes) {
    _known_codes.insert(record.ability_code);
  }
}

OnuReport PopulationGenerator::Onu(std::uint64_t number) const {
  RandomStream choices(_seed, number, 0);
  const Model& model = _models[choices.Below(static_cast<std::uint32_t>(_models.size()))];
  const bool tells_type = choices.Coin();
  OnuReport report = model.report;
  report.place = static_cast<std::uint16_t>(number / kOnusOfAPlace % (kMostOnus / kOnusOfAPlace));
  report.onu = static_cast<std::uint8_t>(number % kOnusOfAPlace);
  if (!tells_type) report.reported_type = kUnknownReportedType;
  report.truth = Truth{model.real_type, {}};
  bool is_told = tells_type ? model.told_by_type : model.told_by_abilities;
  const FaultContext context{_known_codes, _asked_again, model.key};
  for (std::size_t i = 0; i < kFaultKinds.size(); ++i) {
    // Drawn for every kind, so that one rate does not change what the others do.
    if (choices.Below(kAlways) >= _rates[i]) continue;
    RandomStream random(_seed, number, i + 1);
    const FaultEffect effect = BringFault(kFaultKinds[i], context, random, report);
    if (effect == FaultEffect::kNone) continue;
    report.truth->faults.emplace_back(ToText(kFaultKinds[i]));
    is_told = is_told && effect == FaultEffect::kHarmless;
  }
  if (is_told) {
    Expectation expect;
    expect.real_type = model.real_type;
    report.expect = expect;
  }
  return report;
}

}  // namespace olt_host
