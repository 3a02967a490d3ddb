// A catalogue to which some ONUs are unknown.
#ifndef TESTS_OLT_HOST_THINNED_CATALOGUE_H
#define TESTS_OLT_HOST_THINNED_CATALOGUE_H

#include <sstream>
#include <string>

#include "host_files.h"

namespace olt_host_test {

// The shipped catalogue without every third of its match profiles.
inline std::string ThinnedCatalogue() {
  std::istringstream lines(ReadFile(std::string(OLT_HOST_SHIPPED_DATA) + "/catalogue.yaml"));
  std::string thinned;
  bool is_match = false;
  std::size_t entries = 0;
  for (std::string line; std::getline(lines, line);) {
    is_match = is_match || line == "match_profiles:";
    if (is_match && line.rfind("  - key:", 0) == 0) ++entries;
    if (entries % 3 != 1) thinned += line + "\n";
  }
  return thinned;
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_THINNED_CATALOGUE_H
