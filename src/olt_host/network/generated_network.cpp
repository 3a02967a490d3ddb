#include "network/generated_network.h"

#include <algorithm>

#include "generation/random_stream.h"

namespace olt_host {

GeneratedNetwork::GeneratedNetwork(const PopulationGenerator& population, std::uint64_t onus,
                                   std::uint32_t olts, std::uint64_t seed)
    : _population(population),
      _onus(onus),
      _at_least(onus / olts),
      _larger(onus % olts),
      _seed(seed) {}

NetworkReport GeneratedNetwork::Onu(std::uint64_t number) const {
  const std::uint64_t of_larger = _larger * (_at_least + 1);
  const bool is_larger = number < of_larger;
  const std::uint64_t size = is_larger ? _at_least + 1 : _at_least;
  const std::uint64_t behind = is_larger ? number : number - of_larger;
  const std::uint64_t olt = (is_larger ? 0 : _larger) + behind / size;
  const std::uint64_t within = behind % size;
  NetworkReport result;
  result.olt = NameOf(olt);
  result.settings = SettingsOf(olt);
  result.report = _population.Onu(number);
  result.report.place = static_cast<std::uint16_t>(within / kOnusOfAPlace);
  result.report.onu = static_cast<std::uint8_t>(within % kOnusOfAPlace);
  return result;
}

std::string GeneratedNetwork::NameOf(std::uint64_t olt) const {
  constexpr std::size_t kDigits = 5;
  const std::string digits = std::to_string(olt + 1);
  return "olt-" + std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

// Every other OLT leaves types as they are reported.
IdentifySettings GeneratedNetwork::SettingsOf(std::uint64_t olt) const {
  constexpr std::uint64_t kSettingsOfOlt = 100;  // no purpose that an ONU has
  constexpr std::uint32_t kHguModes = 4;
  RandomStream random(_seed, olt, kSettingsOfOlt);
  IdentifySettings settings;
  if (random.Coin()) return settings;
  settings.sfu_mode = random.Coin() ? 1 : 0;
  settings.hgu_mode = static_cast<std::uint16_t>(1 + random.Below(kHguModes));
  return settings;
}

}  // namespace olt_host
