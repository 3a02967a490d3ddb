// The difference that a change makes to a population, as text for a screen of 80 columns
// and as JSON.
#ifndef OLT_HOST_RECOGNITION_DIFFERENCE_TEXT_H
#define OLT_HOST_RECOGNITION_DIFFERENCE_TEXT_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "recognition/population_difference.h"

namespace olt_host {

// Everything that is shown; what it refers to must outlive it.
struct DifferenceView {
  const PopulationDifference& difference;
  // The report files by their names; one of them is not named beside ONUs, and none where
  // OLTs are.
  const std::vector<std::string>& files;
  const char* before_name = "OLD";  // as in "under OLD"
  const char* after_name = "NEW";
};

// Lines that end in "\n". Of each kind of change the largest groups.
std::string DifferenceText(const DifferenceView& view);

// All groups.
nlohmann::ordered_json DifferenceJson(const DifferenceView& view);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_DIFFERENCE_TEXT_H
