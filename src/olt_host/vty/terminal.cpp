#include "vty/terminal.h"

#include <cstdarg>
#include <cstdio>
#include <utility>
#include <vector>

vty::vty(unsigned int command_node, Sink sink) : _node(command_node), _sink(std::move(sink)) {}

void vty::Write(const char* bytes, std::size_t length) {
  if (_alive && length > 0 && !_sink(bytes, length)) _alive = false;
}

vty::Sink vty::Redirect(Sink sink) { return std::exchange(_sink, std::move(sink)); }

int vty::Refuse(const std::string& message) {
  _refusal = message;
  return -1;
}

std::string vty::TakeRefusal() { return std::exchange(_refusal, std::string()); }

int vty_out(struct vty* vty, const char* format, ...) {
  if (vty == nullptr) return -1;
  char line[512];
  va_list arguments;
  va_list again;
  va_start(arguments, format);
  va_copy(again, arguments);
  const int length = std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  if (length >= 0 && static_cast<std::size_t>(length) < sizeof line) {
    vty->Write(line, static_cast<std::size_t>(length));
  } else if (length >= 0) {
    // Longer than most: formatted again, in full.
    std::vector<char> text(static_cast<std::size_t>(length) + 1);
    std::vsnprintf(text.data(), text.size(), format, again);
    vty->Write(text.data(), static_cast<std::size_t>(length));
  }
  va_end(again);
  return length;
}
