#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <iostream>
#include <stdexcept>
#include <string>

#include "exit_status.h"
#include "jobs.h"
#include "session/users.h"
#include "standard_output.h"

namespace olt_host {

namespace {

// What would end the program while the terminal is silent.
constexpr std::array<int, 4> kEnds = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// How the terminal was, for the handler; written before that is installed.
termios& ModeBefore() {
  static termios mode = {};
  return mode;
}

// What was typed of the password is not for the shell either.
void RestoreMode() {
  tcflush(STDIN_FILENO, TCIFLUSH);
  tcsetattr(STDIN_FILENO, TCSANOW, &ModeBefore());
}

// The signal comes again when this returns, and has its usual effect then.
void RestoreModeAndEnd(int signal) {
  RestoreMode();
  raise(signal);
}

// Keeps what is typed off the screen.
class EchoOff {
 public:
  EchoOff() : _has_terminal(tcgetattr(STDIN_FILENO, &ModeBefore()) == 0) {
    if (!_has_terminal) return;
    for (std::size_t i = 0; i < kEnds.size(); ++i) Catch(kEnds[i], _actions[i]);
    termios silent = ModeBefore();
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
  }
  ~EchoOff() {
    if (!_has_terminal) return;
    RestoreMode();
    for (std::size_t i = 0; i < kEnds.size(); ++i) sigaction(kEnds[i], &_actions[i], nullptr);
  }
  EchoOff(const EchoOff&) = delete;
  EchoOff& operator=(const EchoOff&) = delete;

 private:
  static void Catch(int signal, struct sigaction& before) {
    sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN) return;
    struct sigaction action = {};
    action.sa_handler = RestoreModeAndEnd;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(signal, &action, nullptr);
  }

  const bool _has_terminal;
  std::array<struct sigaction, kEnds.size()> _actions = {};
};

std::string Ask(const std::string& question) {
  const bool somebody_types = isatty(STDIN_FILENO) != 0;
  if (somebody_types) std::cerr << question << std::flush;
  std::string answer;
  {
    const EchoOff silence;
    if (!std::getline(std::cin, answer)) throw std::runtime_error("no password was given");
  }
  if (somebody_types) std::cerr << "\n";
  return answer;
}

}  // namespace

int RunPasswordJob(const CommandLine& command_line) {
  const std::string password = Ask("Password for " + command_line.user + ": ");
  // Nobody mistypes into a pipe.
  if (isatty(STDIN_FILENO) != 0 && Ask("Again: ") != password) {
    throw std::runtime_error("the two passwords differ");
  }
  std::cout << PasswordLine(command_line.user, password, command_line.access) << "\n";
  FlushStandardOutput();
  return kExitOk;
}

}  // namespace olt_host
