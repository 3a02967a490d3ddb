#include "transport/terminal_device.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <system_error>

namespace olt_host {
namespace {

// What has to be restored, where a function that runs at exit finds it.
struct ModeBefore {
  std::mutex mutex;
  int descriptor = -1;  // -1: nothing to restore
  termios mode{};
};

ModeBefore& Before() {
  static ModeBefore before;
  return before;
}

void RestoreMode() {
  ModeBefore& before = Before();
  const std::lock_guard<std::mutex> lock(before.mutex);
  if (before.descriptor < 0) return;
  // At once: output that the terminal holds back must not hold back the end.
  tcsetattr(before.descriptor, TCSANOW, &before.mode);
  before.descriptor = -1;
}

termios RawFrom(termios mode) {
  const tcflag_t output = mode.c_oflag | OPOST | ONLCR;
  cfmakeraw(&mode);
  mode.c_oflag = output;
  mode.c_cc[VMIN] = 1;
  mode.c_cc[VTIME] = 0;
  return mode;
}

}  // namespace

int OpenTerminalAgain(int descriptor, int access) {
  const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
  const int flags = access | O_NOCTTY | O_NONBLOCK | O_CLOEXEC;
  int opened = open(path.c_str(), flags);
  // After su the terminal still belongs to somebody else, but is this process's own.
  if (opened < 0) opened = open("/dev/tty", flags);
  if (opened < 0) {
    throw std::runtime_error("the terminal cannot be opened: " +
                             std::generic_category().message(errno));
  }
  return opened;
}

Channel::Window TerminalWindow(int descriptor) {
  winsize size{};
  Channel::Window window;
  if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && size.ws_row > 0) {
    window.columns = size.ws_col;
    window.rows = size.ws_row;
  }
  return window;
}

std::string ForTerminal(const char* bytes, std::size_t length) {
  std::string text;
  text.reserve(length);
  for (std::size_t i = 0; i < length; ++i) {
    if (bytes[i] == '\r' && i + 1 < length && bytes[i + 1] == '\n') continue;
    text += bytes[i];
  }
  return text;
}

RawMode::RawMode(int descriptor) {
  ModeBefore& before = Before();
  static const int kRegistered = std::atexit(RestoreMode);
  static_cast<void>(kRegistered);
  const std::lock_guard<std::mutex> lock(before.mutex);
  if (tcgetattr(descriptor, &before.mode) != 0) {
    throw std::runtime_error("the terminal's mode cannot be read: " +
                             std::generic_category().message(errno));
  }
  before.descriptor = descriptor;
  _raw = RawFrom(before.mode);
  tcsetattr(descriptor, TCSANOW, &_raw);
}

void RawMode::Renew() const {
  ModeBefore& before = Before();
  const std::lock_guard<std::mutex> lock(before.mutex);
  if (before.descriptor >= 0) tcsetattr(before.descriptor, TCSANOW, &_raw);
}

void RawMode::Restore() const { RestoreMode(); }

}  // namespace olt_host
