#include "commands/onu_argument.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <vector>

#include "commands/host_context.h"

namespace olt_host {

namespace {

// The members of `known` nearest to `wanted`, in order.
std::vector<int> Nearest(const std::set<int>& known, int wanted) {
  constexpr std::size_t kMostNamed = 5;
  std::vector<int> nearest(known.begin(), known.end());
  std::stable_sort(nearest.begin(), nearest.end(),
                   [wanted](int a, int b) { return std::abs(a - wanted) < std::abs(b - wanted); });
  nearest.resize(std::min(nearest.size(), kMostNamed));
  std::sort(nearest.begin(), nearest.end());
  return nearest;
}

// "only 1/1 and 1/2", "the nearest are ...".
std::string Named(const std::set<int>& known, int wanted, const std::string& before) {
  const std::vector<int> nearest = Nearest(known, wanted);
  std::string text = nearest.size() < known.size() ? "the nearest are" : "there is only";
  for (std::size_t i = 0; i < nearest.size(); ++i) {
    text += (i == 0 ? " " : ", ") + before + std::to_string(nearest[i]);
  }
  return text;
}

}  // namespace

std::string NoOnus() { return "No ONUs: the host was started without reports"; }

std::string UnknownOnu(std::uint16_t place, std::optional<std::uint8_t> onu) {
  if (Host().population == nullptr || Host().population->Onus().empty()) {
    return NoOnus();
  }
  std::set<int> places;
  std::set<int> numbers;
  for (const OnuReport& report : Host().population->Onus()) {
    places.insert(report.place);
    if (report.place == place) {
      numbers.insert(report.onu);
    }
  }
  const std::string wanted_place = std::to_string(place);
  if (!onu || numbers.empty()) {
    return "No ONU at place " + wanted_place + ", " + Named(places, place, "place ");
  }
  return "No ONU " + wanted_place + "/" + std::to_string(*onu) + ", " +
         Named(numbers, *onu, wanted_place + "/");
}

const OnuReport* FindOnuArgument(struct vty& terminal, char** argv) {
  const auto place = static_cast<std::uint16_t>(std::strtoul(argv[0], nullptr, 10));
  const auto onu = static_cast<std::uint8_t>(std::strtoul(argv[1], nullptr, 10));
  const OnuReport* report =
      Host().population == nullptr ? nullptr : Host().population->Find(place, onu);
  if (report == nullptr) {
    terminal.Refuse(UnknownOnu(place, onu));
  }
  return report;
}

}  // namespace olt_host
