#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "catalogue/input_error.h"
#include "catalogue/yaml_report_writer.h"
#include "confirmation/progress_bar.h"
#include "exit_status.h"
#include "generation/population_generator.h"
#include "jobs.h"
#include "network_generate_job.h"
#include "standard_output.h"
#include "startup.h"

namespace olt_host {

namespace {

FaultRates RatesOf(const GenerateOptions& options) {
  if (options.faults.empty()) return {};
  try {
    return ReadFaultRates(options.faults);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(std::string("--faults: ") + error.what());
  }
}

std::vector<Model> ModelsOf(const GenerateOptions& options) {
  try {
    return ReadModels(options.models);
  } catch (const TypeNameError& error) {
    throw std::runtime_error(std::string("--models: ") + error.what());
  }
}

std::string Remark(const GenerateOptions& options, std::size_t models) {
  return "Generated: " + std::to_string(options.onus) + " ONUs of " + std::to_string(models) +
         (models == 1 ? " type" : " types") + ", seed " + std::to_string(options.seed) +
         ", faults " + (options.faults.empty() ? "none" : options.faults) +
         (options.again ? ", asked again" : "") + ".";
}

void WritePopulation(const PopulationGenerator& generator, const GenerateOptions& options,
                     bool shows_progress, std::ostream& out) {
  YamlReportWriter writer(out);
  writer.Begin({"Generated, seed " + std::to_string(options.seed),
                Remark(options, generator.models().size()),
                {}});
  ProgressBar progress(std::cerr, shows_progress, options.onus);
  for (std::uint64_t onu = 0; onu < options.onus && out; ++onu) {
    writer.Write(generator.Onu(onu));
    progress.Show(onu + 1);
  }
  writer.End();
  out.flush();
}

// Which types the library cannot tell, so that nobody waits for expectations of them.
void SayWhatCannotBeTold(const std::vector<Model>& models, bool Model::*told,
                         const std::string& by) {
  constexpr std::size_t kMostNamed = 5;
  std::size_t count = 0;
  std::string keys;
  for (const Model& model : models) {
    if (model.*told) continue;
    if (++count <= kMostNamed) keys += (count == 1 ? "" : ", ") + std::to_string(model.key);
  }
  if (count == 0) return;
  std::cerr << "olt_host: " << count << " of " << models.size() << " types cannot be told by " << by
            << " (" << keys << (count > kMostNamed ? ", ..." : "")
            << "): no expectation for them\n";
}

void WriteReportsFile(const PopulationGenerator& generator, const GenerateOptions& options) {
  const bool is_watched = isatty(STDERR_FILENO) != 0;
  if (options.output.empty()) {
    WritePopulation(generator, options, is_watched && isatty(STDOUT_FILENO) == 0, std::cout);
    FlushStandardOutput();
  } else {
    errno = 0;
    std::ofstream file(options.output, std::ios::binary);
    WritePopulation(generator, options, is_watched, file);
    if (!file) {
      const std::string reason = errno != 0 ? std::strerror(errno) : "writing failed";
      throw std::runtime_error(options.output + " cannot be written: " + reason);
    }
  }
}

}  // namespace

int RunGenerateJob(const CommandLine& command_line) {
  const GenerateOptions& options = command_line.generate;
  const FaultRates rates = RatesOf(options);
  const bool is_network = WantsNetwork(command_line);
  const auto library = StartHost(command_line);
  const PopulationGenerator generator(ModelsOf(options), rates, options.seed, options.again);
  if (is_network) {
    WriteNetwork(generator, command_line);
  } else {
    WriteReportsFile(generator, options);
  }
  SayWhatCannotBeTold(generator.models(), &Model::told_by_type, "the type that they report");
  SayWhatCannotBeTold(generator.models(), &Model::told_by_abilities, "what they can do");
  return kExitOk;
}

}  // namespace olt_host
