// A network to test with: the ONUs of a generated population, dealt out to OLTs that are
// set in different ways.
#ifndef OLT_HOST_NETWORK_GENERATED_NETWORK_H
#define OLT_HOST_NETWORK_GENERATED_NETWORK_H

#include <cstdint>
#include <string>

#include "catalogue/reports.h"
#include "generation/population_generator.h"

namespace olt_host {

constexpr std::uint32_t kMostOlts = 65535;

class GeneratedNetwork {
 public:
  // OLTs that have as many ONUs each, or one more. REQUIRES: `olts` is 1 to kMostOlts, and
  // `onus` at most `olts` times kMostOnus.
  GeneratedNetwork(const PopulationGenerator& population, std::uint64_t onus, std::uint32_t olts,
                   std::uint64_t seed);

  std::uint64_t onus() const { return _onus; }

  // The ONU with this number of the population, 0 to onus() - 1, where it stands: one OLT
  // after the other, an OLT's places in turn.
  NetworkReport Onu(std::uint64_t number) const;

 private:
  std::string NameOf(std::uint64_t olt) const;
  IdentifySettings SettingsOf(std::uint64_t olt) const;

  const PopulationGenerator& _population;
  std::uint64_t _onus;
  std::uint64_t _at_least;  // ONUs that every OLT has
  std::uint64_t _larger;    // OLTs that have one more, the first ones
  std::uint64_t _seed;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_GENERATED_NETWORK_H
