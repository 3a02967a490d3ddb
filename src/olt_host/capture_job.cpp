// The jobs capture and replay.
#include <iostream>
#include <stdexcept>

#include "catalogue/report_reader.h"
#include "commands/capture_output.h"
#include "commands/host_context.h"
#include "commands/onu_argument.h"
#include "exit_status.h"
#include "jobs.h"
#include "standard_output.h"
#include "startup.h"

namespace olt_host {

namespace {

OnuReports ChosenOnus(const CommandLine& command_line) {
  const CaptureOptions& options = command_line.capture;
  if (!options.one_onu) return LiveOnus();
  const OnuReport* report = Host().population->Find(options.place, options.onu);
  if (report == nullptr) {
    throw std::runtime_error(command_line.reports + ": " + UnknownOnu(options.place, options.onu));
  }
  return {report};
}

}  // namespace

int RunCaptureJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  const OnuReports onus = ChosenOnus(command_line);
  WriteToStandardOutput([&](struct vty& terminal) {
    WriteCapture(terminal, onus, command_line.capture.file, command_line.capture.replace);
  });
  return kExitOk;
}

int RunReplayJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  ReplayResult result;
  for (const std::string& file : command_line.replay.reports) {
    Replay(std::make_shared<const Population>(ReadReports(file, Host().catalogue.catalogue)),
           result);
  }
  if (command_line.replay.json) {
    std::cout << ReplayJson(result).dump(2, ' ', false, nlohmann::json::error_handler_t::replace)
              << "\n";
  } else {
    std::cout << ReplayText(result);
  }
  FlushStandardOutput();
  return result.failures.empty() ? kExitOk : kExitNotAsExpected;
}

}  // namespace olt_host
