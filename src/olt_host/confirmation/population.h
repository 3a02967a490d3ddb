// The ONUs of a reports file, for the hooks to find. Immutable once made, so any
// number of threads may read it.
#ifndef OLT_HOST_CONFIRMATION_POPULATION_H
#define OLT_HOST_CONFIRMATION_POPULATION_H

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/hooks.h"

namespace olt_host {

class Population : public ReportSource {
 public:
  explicit Population(Reports reports);

  const std::string& Name() const { return _reports.name; }
  // In the order of the file.
  const std::vector<OnuReport>& Onus() const { return _reports.onus; }

  const OnuReport* Find(std::uint16_t place, std::uint8_t onu) const override;
  const IdentifySettings& Settings(std::uint16_t place) const override;

 private:
  Reports _reports;
  std::unordered_map<std::uint32_t, std::size_t> _index;
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_POPULATION_H
