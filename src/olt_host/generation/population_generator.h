// Makes the reports of a population, one by one and each by itself: the ONU with a number
// is always the same, whichever others are made.
//
// A report of a type that can be told, without faults or with harmless ones only, states
// what the confirmation must come to.
#ifndef OLT_HOST_GENERATION_POPULATION_GENERATOR_H
#define OLT_HOST_GENERATION_POPULATION_GENERATOR_H

#include <cstdint>
#include <set>
#include <vector>

#include "generation/faults.h"
#include "generation/models.h"

namespace olt_host {

// Every place with every number.
constexpr std::uint32_t kMostOnus = 65536U * 256U;
constexpr std::uint32_t kOnusOfAPlace = 256;

class PopulationGenerator {
 public:
  // `asked_again`: the same population asked a second time, when the ONUs with the
  // fault kChanged tell something else. REQUIRES: there is a model.
  PopulationGenerator(std::vector<Model> models, const FaultRates& rates, std::uint64_t seed,
                      bool asked_again);

  // Its place and its number there are those in an OLT with all ONUs up to this one, and
  // start anew behind the last that an OLT has.
  OnuReport Onu(std::uint64_t number) const;

  const std::vector<Model>& models() const { return _models; }

 private:
  std::vector<Model> _models;
  FaultRates _rates;
  std::uint64_t _seed;
  bool _asked_again;
  std::set<std::uint16_t> _known_codes;
};

}  // namespace olt_host

#endif  // OLT_HOST_GENERATION_POPULATION_GENERATOR_H
