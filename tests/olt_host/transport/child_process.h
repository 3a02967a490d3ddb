// A process of the test's own that runs a function on a terminal or on pipes,
// while the test has the other end.
#ifndef TESTS_OLT_HOST_TRANSPORT_CHILD_PROCESS_H
#define TESTS_OLT_HOST_TRANSPORT_CHILD_PROCESS_H

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "test_host.h"

namespace olt_host_test {

// The process waits for Go, so that the test may start threads once it is there.
// Its status is what `job` returns, 70 with the message on standard output when
// that throws. Standard error stays the test's: on a terminal that the test does not
// read, a long report (of a sanitizer) would be lost, and hold the process up.
class ChildProcess {
 public:
  enum class On { kTerminal, kPipes };

  ChildProcess(On on, const std::function<int()>& job) {
    std::array<int, 2> go{};
    if (pipe(go.data()) != 0) throw std::runtime_error("no pipe");
    if (on == On::kTerminal) {
      StartOnTerminal();
    } else {
      StartOnPipes();
    }
    if (_process == 0) {
      close(go[1]);
      Work(go[0], job);
    }
    close(go[0]);
    _go = go[1];
  }
  ~ChildProcess() {
    CloseInput();
    if (_out >= 0) close(_out);
    Go();
    if (_process > 0) {
      kill(_process, SIGKILL);
      waitpid(_process, nullptr, 0);
    }
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  void Go() {
    if (_go >= 0) close(std::exchange(_go, -1));
  }

  void Type(const std::string& keys) {
    ASSERT_EQ(static_cast<ssize_t>(keys.size()), write(_in, keys.data(), keys.size()));
  }
  void CloseInput() {
    if (_in >= 0 && _in != _out) close(std::exchange(_in, -1));
  }
  // The terminal goes away.
  void HangUp() {
    close(std::exchange(_out, -1));
    _in = -1;
  }
  void Resize(unsigned short rows, unsigned short columns) const {
    const winsize size{rows, columns, 0, 0};
    ioctl(_out, TIOCSWINSZ, &size);
  }
  // As a shell does that takes the terminal over.
  void MakeCooked() const { tcsetattr(_out, TCSANOW, &_before); }
  void Signal(int signal) const { kill(_process, signal); }

  // What came until `text`, that included; a failure without it.
  std::string Until(const std::string& text) {
    const auto limit = std::chrono::steady_clock::now() + kLimit;
    for (;;) {
      const std::size_t found = _unread.find(text);
      if (found != std::string::npos) {
        std::string seen = _unread.substr(0, found + text.size());
        _unread.erase(0, seen.size());
        return seen;
      }
      if (std::chrono::steady_clock::now() > limit || !ReadMore()) break;
    }
    ADD_FAILURE() << "no \"" << text << "\" in " << testing::PrintToString(_unread);
    return std::exchange(_unread, std::string());
  }
  std::string UntilEnd() {
    while (ReadMore()) {
    }
    return std::exchange(_unread, std::string());
  }

  // The exit status, or 1000 and the signal that ended the process.
  int Status() {
    int status = 0;
    const bool has_ended = Becomes([&] { return waitpid(_process, &status, WNOHANG) == _process; });
    if (!has_ended) return -1;
    _process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
  }

  // Of the terminal: whether keys arrive one by one and unechoed.
  bool IsRaw() const {
    termios mode{};
    return tcgetattr(_out, &mode) == 0 && (mode.c_lflag & (ICANON | ECHO | ISIG)) == 0;
  }
  bool Echoes() const {
    termios mode{};
    return tcgetattr(_out, &mode) == 0 && (mode.c_lflag & ECHO) != 0;
  }
  bool IsAsBefore() const {
    termios mode{};
    return tcgetattr(_out, &mode) == 0 && mode.c_iflag == _before.c_iflag &&
           mode.c_oflag == _before.c_oflag && mode.c_lflag == _before.c_lflag;
  }

 private:
  void StartOnTerminal() {
    const winsize size{24, 80, 0, 0};
    const int errors = dup(STDERR_FILENO);
    _process = forkpty(&_out, nullptr, nullptr, &size);
    if (_process == 0) dup2(errors, STDERR_FILENO);
    close(errors);
    if (_process < 0) throw std::runtime_error(std::string("no terminal: ") + strerror(errno));
    if (_process == 0) return;
    _in = _out;
    tcgetattr(_out, &_before);
  }

  void StartOnPipes() {
    std::array<int, 2> in{};
    std::array<int, 2> out{};
    if (pipe(in.data()) != 0 || pipe(out.data()) != 0) throw std::runtime_error("no pipe");
    _process = fork();
    if (_process == 0) {
      dup2(in[0], STDIN_FILENO);
      dup2(out[1], STDOUT_FILENO);
      for (const int descriptor : {in[0], in[1], out[0], out[1]}) close(descriptor);
      return;
    }
    close(in[0]);
    close(out[1]);
    _in = in[1];
    _out = out[0];
  }

  [[noreturn]] static void Work(int go, const std::function<int()>& job) {
    setenv("TERM", "xterm", 1);
    char nothing = 0;
    while (read(go, &nothing, 1) < 0 && errno == EINTR) {
    }
    int status = 70;
    try {
      status = job();
    } catch (const std::exception& error) {
      std::printf("%s\n", error.what());
    }
    std::fflush(stdout);
    _exit(status);
  }

  bool ReadMore() {
    pollfd ready{_out, POLLIN, 0};
    if (poll(&ready, 1, static_cast<int>(std::chrono::milliseconds(kLimit).count())) != 1) {
      return false;
    }
    std::array<char, 4096> bytes;
    const ssize_t length = read(_out, bytes.data(), bytes.size());
    if (length <= 0) return false;
    _unread.append(bytes.data(), static_cast<std::size_t>(length));
    return true;
  }

  pid_t _process = -1;
  int _in = -1;
  int _out = -1;
  int _go = -1;
  termios _before{};
  std::string _unread;
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_TRANSPORT_CHILD_PROCESS_H
