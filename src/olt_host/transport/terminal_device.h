// The terminal of this process as a device: descriptions of its own, its mode,
// its size, and text made fit for it.
#ifndef OLT_HOST_TRANSPORT_TERMINAL_DEVICE_H
#define OLT_HOST_TRANSPORT_TERMINAL_DEVICE_H

#include <termios.h>

#include <string>

#include "session/channel.h"

namespace olt_host {

// Opens the terminal behind `descriptor` anew, for reading or writing (O_RDONLY,
// O_WRONLY). The event loop makes what it serves non-blocking, and the shell
// shares the description behind `descriptor` itself: it would inherit the mode.
// Throws std::runtime_error.
int OpenTerminalAgain(int descriptor, int access);

// 80x24 where the terminal does not know.
Channel::Window TerminalWindow(int descriptor);

// Sessions end their lines in CR LF; a terminal in RawMode adds the CR itself.
std::string ForTerminal(const char* bytes, std::size_t length);

// Single keys, no echo, no signals from keys; output as before, so that log lines
// of the process still look right. One at a time. The mode before comes back with
// Restore, the object's end, or the process's exit, whichever is first.
class RawMode {
 public:
  // `descriptor` stays open as long. Throws std::runtime_error for no terminal.
  explicit RawMode(int descriptor);
  ~RawMode() { Restore(); }
  RawMode(const RawMode&) = delete;
  RawMode& operator=(const RawMode&) = delete;

  // Once more, after the process was stopped and the shell had the terminal.
  void Renew() const;
  void Restore() const;

 private:
  termios _raw{};
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TERMINAL_DEVICE_H
