#include "network_generate_job.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include "commands/host_context.h"
#include "confirmation/progress_bar.h"
#include "network/network_generation.h"
#include "network/worker_pool.h"
#include "network_command_line.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

std::uint32_t OltsOf(const GenerateOptions& options) { return std::max(options.olts, 1U); }

// Everything on which the lines depend.
Json DependsOn(const GenerateOptions& options) {
  const LoadedCatalogue& loaded = Host().catalogue;
  return {{"job", "generate"},        {"catalogue", loaded.sha256}, {"onus", options.onus},
          {"olts", OltsOf(options)},  {"seed", options.seed},       {"models", options.models},
          {"faults", options.faults}, {"again", options.again},     {"output", options.output}};
}

// Whether or not they are there yet.
bool AreOneFile(const std::string& one, const std::string& other) {
  namespace fs = std::filesystem;
  return fs::weakly_canonical(fs::absolute(one)) == fs::weakly_canonical(fs::absolute(other));
}

// How far it came is kept of an output that the next run can go on in.
void ExpectFitting(const std::string& checkpoint, const std::string& output) {
  if (checkpoint.empty()) return;
  if (output.empty()) {
    throw std::runtime_error("--checkpoint needs an output to go on in; expected -o FILE");
  }
  if (AreOneFile(checkpoint, output)) {
    throw std::runtime_error("--checkpoint and -o are the same file; expected two");
  }
}

}  // namespace

bool WantsNetwork(const CommandLine& command_line) {
  const GenerateOptions& options = command_line.generate;
  const NetworkOptions& network = command_line.network;
  const std::uint32_t olts = OltsOf(options);
  if (options.onus > std::uint64_t{olts} * kMostOnus) {
    throw std::runtime_error("--onus: " + std::to_string(options.onus) + " ONUs are too many for " +
                             std::to_string(olts) + (olts == 1 ? " OLT" : " OLTs") +
                             "; expected at most " + std::to_string(kMostOnus) +
                             " an OLT, and --olts for more");
  }
  const bool wants = options.olts != 0 || IsJsonLines(options.output);
  if (!wants && (network.workers != 0 || !network.checkpoint.empty())) {
    throw std::runtime_error(std::string(network.workers != 0 ? "--workers" : "--checkpoint") +
                             " is for JSON lines; expected --olts, or an output FILE.jsonl");
  }
  ExpectFitting(network.checkpoint, options.output);
  return wants;
}

void WriteNetwork(const PopulationGenerator& population, const CommandLine& command_line) {
  const GenerateOptions& options = command_line.generate;
  const GeneratedNetwork network(population, options.onus, OltsOf(options), options.seed);
  NetworkGeneration run;
  run.output = options.output;
  run.workers = command_line.network.workers == 0 ? AllCores() : command_line.network.workers;
  run.checkpoint = command_line.network.checkpoint;
  run.depends_on = DependsOn(options);
  const bool is_watched =
      isatty(STDERR_FILENO) != 0 && (!options.output.empty() || isatty(STDOUT_FILENO) == 0);
  ProgressBar progress(std::cerr, is_watched, options.onus);
  GenerateNetwork(network, run, [&progress](std::uint64_t onus) { progress.Show(onus); });
}

}  // namespace olt_host
