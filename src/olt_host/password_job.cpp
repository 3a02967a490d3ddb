#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>

#include "exit_status.h"
#include "jobs.h"
#include "session/users.h"

namespace olt_host {

namespace {

// Keeps what is typed off the screen.
class EchoOff {
 public:
  EchoOff() {
    if (tcgetattr(STDIN_FILENO, &_before) != 0) return;
    termios silent = _before;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    _changed = tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent) == 0;
  }
  ~EchoOff() {
    if (_changed) tcsetattr(STDIN_FILENO, TCSAFLUSH, &_before);
  }
  EchoOff(const EchoOff&) = delete;
  EchoOff& operator=(const EchoOff&) = delete;

 private:
  termios _before = {};
  bool _changed = false;
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
  std::cout << PasswordLine(command_line.user, password, command_line.access) << std::endl;
  if (!std::cout) throw std::runtime_error("standard output cannot be written");
  return kExitOk;
}

}  // namespace olt_host
