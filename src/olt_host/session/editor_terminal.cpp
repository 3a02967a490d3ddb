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

}  // namespace

EditorTerminal::EditorTerminal() {
  std::array<char, 64> name{};
  _master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (_master >= 0 && grantpt(_master) == 0 && unlockpt(_master) == 0 &&
      ptsname_r(_master, name.data(), name.size()) == 0) {
    _slave = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  }
  if (_slave >= 0) {
    cookie_io_functions_t functions = {};
    functions.write = [](void* terminal, const char* bytes, std::size_t length) -> ssize_t {
      return static_cast<EditorTerminal*>(terminal)->Append(bytes, length);
    };
    _stream = fopencookie(this, "w", functions);
  }
  if (_stream == nullptr) {
    const int error = errno;
    Close();
    throw std::system_error(error, std::generic_category(), "cannot open a pseudo-terminal");
  }
}

EditorTerminal::~EditorTerminal() { Close(); }

void EditorTerminal::Close() {
  if (_stream != nullptr) std::fclose(_stream);
  if (_slave >= 0) close(_slave);
  if (_master >= 0) close(_master);
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
  struct winsize size = {};
  size.ws_col = static_cast<unsigned short>(_columns);
  size.ws_row = static_cast<unsigned short>(std::clamp(window.rows, kFewestRows, kMostRows));
  ioctl(_slave, TIOCSWINSZ, &size);
}

std::string EditorTerminal::TakeOutput() {
  std::fflush(_stream);
  return std::exchange(_output, std::string());
}

}  // namespace olt_host
