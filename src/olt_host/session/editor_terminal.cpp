#include "session/editor_terminal.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace olt_host {
namespace {

// The editor keeps two pictures of the window in memory.
constexpr unsigned int kFewestColumns = 10;
constexpr unsigned int kMostColumns = 500;
constexpr unsigned int kFewestRows = 2;
constexpr unsigned int kMostRows = 200;

// -1, and errno, when there is none.
int OpenSlave(const FileDescriptor& master) {
  std::array<char, 64> name{};
  const bool is_there = master.is_open() && grantpt(master.get()) == 0 &&
                        unlockpt(master.get()) == 0 &&
                        ptsname_r(master.get(), name.data(), name.size()) == 0;
  return is_there ? open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC) : -1;
}

}  // namespace

EditorTerminal::EditorTerminal()
    : _master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)),
      _slave(OpenSlave(_master)),
      _stream(_slave.is_open() ? OpenStream() : nullptr) {
  if (_stream == nullptr) {
    throw std::system_error(errno, std::generic_category(), "cannot open a pseudo-terminal");
  }
}

std::FILE* EditorTerminal::OpenStream() {
  cookie_io_functions_t functions = {};
  functions.write = [](void* terminal, const char* bytes, std::size_t length) -> ssize_t {
    return static_cast<EditorTerminal*>(terminal)->Append(bytes, length);
  };
  return fopencookie(this, "w", functions);
}

long EditorTerminal::Append(const char* bytes, unsigned long length) noexcept {
  for (const char* byte = bytes; byte != bytes + length; ++byte) {
    if (*byte == '\n' && (_output.empty() || _output.back() != '\r')) _output += '\r';
    _output += *byte;
  }
  return static_cast<long>(length);
}

void EditorTerminal::SetWindow(Channel::Window window) {
  // 0 is a window of unknown size.
  if (window.columns == 0) window.columns = 80;
  if (window.rows == 0) window.rows = 24;
  _columns = std::clamp(window.columns, kFewestColumns, kMostColumns);
  _rows = std::clamp(window.rows, kFewestRows, kMostRows);
  struct winsize size = {};
  size.ws_col = static_cast<unsigned short>(_columns);
  size.ws_row = static_cast<unsigned short>(_rows);
  ioctl(_slave.get(), TIOCSWINSZ, &size);
}

std::string EditorTerminal::TakeOutput() {
  std::fflush(_stream.get());
  return std::exchange(_output, std::string());
}

}  // namespace olt_host
