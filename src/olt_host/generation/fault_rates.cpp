#include <algorithm>
#include <stdexcept>

#include "catalogue/input_error.h"
#include "catalogue/nearest_name.h"
#include "generation/faults.h"

namespace olt_host {

namespace {

// "12", "0.5": at most four digits behind the point, up to 100.
bool ReadPercent(const std::string& text, std::uint32_t& of_a_million) {
  constexpr std::size_t kMostDecimals = 4;
  const std::size_t point = text.find('.');
  const std::string whole = text.substr(0, point);
  std::string decimals = point == std::string::npos ? "" : text.substr(point + 1);
  const std::string digits = whole + decimals;
  if (whole.empty() || whole.size() > 3 || decimals.size() > kMostDecimals ||
      (point != std::string::npos && decimals.empty()) ||
      digits.find_first_not_of("0123456789") != std::string::npos) {
    return false;
  }
  decimals.resize(kMostDecimals, '0');
  of_a_million = static_cast<std::uint32_t>(std::stoul(whole + decimals));
  return of_a_million <= kAlways;
}

std::vector<std::string> Names() {
  std::vector<std::string> names = {"all"};
  for (const FaultKind kind : kFaultKinds) names.emplace_back(ToText(kind));
  return names;
}

void ReadRate(const std::string& entry, FaultRates& rates) {
  const std::size_t equals = entry.find('=');
  const std::string name = entry.substr(0, equals);
  bool known = false;
  for (const std::string& each : Names()) known = known || each == name;
  if (!known) {
    throw std::runtime_error(Quoted(name) + " is no fault; expected " +
                             ExpectedName(name, Names()));
  }
  std::uint32_t rate = 0;
  if (equals == std::string::npos || !ReadPercent(entry.substr(equals + 1), rate)) {
    throw std::runtime_error(Quoted(entry) + " states no rate; expected " + name +
                             "=PERCENT, 0 to 100 with up to 4 decimals");
  }
  for (std::size_t i = 0; i < kFaultKinds.size(); ++i) {
    if (name == "all" || name == ToText(kFaultKinds[i])) rates[i] = rate;
  }
}

}  // namespace

FaultRates ReadFaultRates(const std::string& text) {
  FaultRates rates = {};
  std::size_t start = 0;
  while (start <= text.size()) {
    const std::size_t comma = std::min(text.find(',', start), text.size());
    ReadRate(text.substr(start, comma - start), rates);
    start = comma + 1;
  }
  return rates;
}

}  // namespace olt_host
