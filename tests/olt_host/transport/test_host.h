// A host in the test's own process: a few commands, sessions and transports.
#ifndef TESTS_OLT_HOST_TRANSPORT_TEST_HOST_H
#define TESTS_OLT_HOST_TRANSPORT_TEST_HOST_H

#include <dirent.h>
#include <pthread.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "session/command_thread.h"
#include "session/session_server.h"
#include "session/users.h"
#include "transport/transports.h"
#include "vty.h"
#include "vty/builtin_commands.h"

namespace olt_host_test {

constexpr unsigned int kNode = 41;
// Machines that run tests are shared and slow.
constexpr std::chrono::seconds kLimit{60};

inline int Say(cmd_element*, struct vty* terminal, int, char** argv) {
  return vty_out(terminal, "<%s>\r\n", argv[0]) < 0;
}

inline int Lines(cmd_element*, struct vty* terminal, int, char** argv) {
  const int lines = std::atoi(argv[0]);
  for (int i = 1; i <= lines; ++i) vty_out(terminal, "line %d of %d\r\n", i, lines);
  return 0;
}

// The byte that telnet escapes.
inline int Escape(cmd_element*, struct vty* terminal, int, char**) {
  return vty_out(terminal, "[\xff]\r\n") < 0;
}

inline void InstallTestCommands() {
  static cmd_element say = {"say <string>", Say, ""};
  static cmd_element lines = {"lines <1-10000000>", Lines, ""};
  static cmd_element escape = {"escape", Escape, ""};
  for (cmd_element* command : {&say, &lines, &escape}) install_element(kNode, command);
  olt_host::InstallBuiltinCommands(kNode);
}

// The command thread as a thread beside the test's.
class CommandService {
 public:
  CommandService() {
    std::promise<olt_host::CommandThread*> made;
    std::future<olt_host::CommandThread*> commands = made.get_future();
    _thread = std::thread([&made] {
      // As in the program, where this is the thread that made the transports.
      sigset_t signals;
      sigfillset(&signals);
      pthread_sigmask(SIG_BLOCK, &signals, nullptr);
      olt_host::CommandThread own;
      made.set_value(&own);
      own.Serve();
    });
    _commands = commands.get();
  }
  ~CommandService() {
    _commands->Stop();
    _thread.join();
  }
  CommandService(const CommandService&) = delete;
  CommandService& operator=(const CommandService&) = delete;

  olt_host::CommandThread& commands() { return *_commands; }

 private:
  std::thread _thread;
  olt_host::CommandThread* _commands = nullptr;
};

class TestHost {
 public:
  explicit TestHost(const olt_host::Users* users = nullptr)
      : sessions(kNode, _service.commands(), users, olt_host::SessionLimits()),
        transports(std::make_unique<olt_host::Transports>(sessions)) {
    InstallTestCommands();
  }

  // Listens on TCP on loopback, and starts.
  unsigned short StartOnTcp() {
    const unsigned short port =
        transports->ListenTcp(olt_host::TcpAddress{"127.0.0.1", 0, true}, false);
    transports->Start();
    return port;
  }

  void StartOnUnix(const std::string& path) {
    transports->ListenUnix(path);
    transports->Start();
  }

 private:
  CommandService _service;

 public:
  olt_host::SessionServer sessions;
  std::unique_ptr<olt_host::Transports> transports;
};

// Whether `condition` came true in time.
inline bool Becomes(const std::function<bool()>& condition) {
  const auto limit = std::chrono::steady_clock::now() + kLimit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > limit) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return true;
}

// The number of open descriptors of this process.
inline std::size_t OpenDescriptors() {
  std::size_t number = 0;
  DIR* const directory = opendir("/proc/self/fd");
  while (readdir(directory) != nullptr) ++number;
  closedir(directory);
  return number;
}

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_TRANSPORT_TEST_HOST_H
