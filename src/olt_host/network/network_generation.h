// Writing a generated network as lines of JSON, on all cores, the same bytes however many
// work and however often they were interrupted.
#ifndef OLT_HOST_NETWORK_NETWORK_GENERATION_H
#define OLT_HOST_NETWORK_NETWORK_GENERATION_H

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>

#include "network/generated_network.h"

namespace olt_host {

// Moving JSON does not throw, though the linter thinks so.
// NOLINTNEXTLINE(bugprone-exception-escape)
struct NetworkGeneration {
  std::string output;  // path; empty for standard output
  unsigned int workers = 1;
  std::string checkpoint;  // path; empty for none. REQUIRES: an output, if not
  // What the lines depend on: job, catalogue, options.
  nlohmann::ordered_json depends_on;
};

// Goes on where the checkpoint says. The workers are copies of this process as it is now.
// `show` is told how many ONUs are written. Throws std::runtime_error; then the checkpoint
// is of what was done before.
void GenerateNetwork(const GeneratedNetwork& network, const NetworkGeneration& run,
                     const std::function<void(std::uint64_t)>& show);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_NETWORK_GENERATION_H
