// Captured reports, held against the library as it is: every ONU must come to what is
// expected of it, and no profile may win by the order alone unless that is declared.
//
// Stricter than a confirmation: an ONU without an expectation fails, and so does an
// ambiguity that is not declared or is declared and none.
//
// REQUIRES: the hooks are registered, the library is loaded. On the thread that works with
// the library.
#ifndef OLT_HOST_RECOGNITION_REPLAY_H
#define OLT_HOST_RECOGNITION_REPLAY_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/population.h"

namespace olt_host {

struct ReplayFailure {
  SourcePosition position;
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
  std::string came;
  std::string expected;
};

struct ReplayResult {
  std::size_t onus = 0;
  std::size_t ambiguous = 0;  // as declared
  std::vector<ReplayFailure> failures;
};

// Adds to `result`.
void Replay(const std::shared_ptr<const Population>& population, ReplayResult& result);

// A line a failure, "FILE:LINE: ONU A/B came; expected ...", then how many there are.
std::string ReplayText(const ReplayResult& result);
nlohmann::ordered_json ReplayJson(const ReplayResult& result);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_REPLAY_H
