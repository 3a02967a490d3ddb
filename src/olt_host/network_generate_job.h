// The part of `generate` that writes whole networks, as lines of JSON.
#ifndef OLT_HOST_NETWORK_GENERATE_JOB_H
#define OLT_HOST_NETWORK_GENERATE_JOB_H

#include "command_line.h"
#include "generation/population_generator.h"

namespace olt_host {

// Whether lines of JSON are asked for. Throws std::runtime_error for options that do not go
// together.
bool WantsNetwork(const CommandLine& command_line);

// REQUIRES: WantsNetwork, and the host is started. Throws std::runtime_error.
void WriteNetwork(const PopulationGenerator& population, const CommandLine& command_line);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_GENERATE_JOB_H
