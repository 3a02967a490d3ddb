#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "commands/host_context.h"
#include "commands/statistics_exposition.h"
#include "exit_status.h"
#include "jobs.h"
#include "session/line_session.h"
#include "session/owner_name.h"
#include "standard_output.h"
#include "startup.h"
#include "transport/transports.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

void Listen(const ServingOptions& serving, CommandThread& commands, Transports& transports) {
  if (!serving.socket.empty()) {
    transports.ListenUnix(serving.socket);
    std::cerr << "olt_host: operators may attach to " << serving.socket << std::endl;
  }
  if (!serving.listen.empty()) {
    TcpAddress address = ParseTcpAddress(serving.listen);
    address.port = transports.ListenTcp(address, !serving.passwords.empty());
    std::cerr << "olt_host: operators may telnet to " << address.host << " port " << address.port
              << std::endl;
  }
  if (!serving.metrics.empty()) {
    transports.ListenMetrics(serving.metrics, [&commands](auto ready) {
      commands.Post([ready = std::move(ready)] { ready(ExpositionText(ReportStatistics())); });
    });
    std::cerr << "olt_host: metrics are at " << serving.metrics << ", GET /metrics" << std::endl;
  }
}

// Operators on the terminal and the network, until told to stop.
int ServeOperators(const CommandLine& command_line) {
  const ServingOptions& serving = command_line.serving;
  std::unique_ptr<const Users> users;
  if (!serving.passwords.empty()) {
    users = std::make_unique<const Users>(Users::Read(serving.passwords));
  }
  CommandThread commands;
  SessionServer sessions(kCommandNode, commands, users.get(), serving.limits);
  Transports transports(sessions);
  Listen(serving, commands, transports);
  transports.OnStopSignal([&commands] { commands.Stop(); });
  if (command_line.job == Job::kConsole) {
    transports.OpenTerminal(OwnerName(geteuid()), [&commands] { commands.Stop(); });
  }
  Host().sessions = &sessions;
  Host().commands = &commands;
  transports.Start();
  commands.Serve();
  Host().sessions = nullptr;
  Host().commands = nullptr;
  sessions.CloseAll("olt_host stops");
  return kExitOk;
}

int RunPipedCommands(const CommandLine& command_line) {
  const ServingOptions& serving = command_line.serving;
  if (!serving.socket.empty() || !serving.listen.empty() || !serving.metrics.empty()) {
    throw std::runtime_error(
        "the console's standard input is no terminal; expected \"serve\" for --socket, "
        "--listen and --metrics");
  }
  struct vty terminal(kCommandNode, [](const char* bytes, std::size_t length) {
    return std::fwrite(bytes, 1, length, stdout) == length;
  });
  terminal.settings().origin = "pipe";
  const int failed = RunLines(std::cin, terminal, false);
  FlushStandardOutput();
  return failed == 0 ? kExitOk : kExitNotAsExpected;
}

}  // namespace

int RunOperatorJob(const CommandLine& command_line) {
  const ServingOptions& serving = command_line.serving;
  if (command_line.job == Job::kServe && serving.socket.empty() && serving.listen.empty()) {
    throw std::runtime_error("no way in for operators; expected --socket or --listen");
  }
  const auto library = StartHost(command_line);
  if (Host().population != nullptr) ConfirmPopulation(OutputFormat::kTable, true);
  const bool on_terminal = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  if (command_line.job == Job::kConsole && !on_terminal) return RunPipedCommands(command_line);
  return ServeOperators(command_line);
}

}  // namespace olt_host
