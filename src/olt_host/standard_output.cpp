#include "standard_output.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>

#include "commands/host_context.h"

namespace olt_host {

void FlushStandardOutput() {
  if (!std::cout.flush() || std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    throw std::runtime_error("standard output cannot be written");
  }
}

void WriteToStandardOutput(const std::function<void(struct vty& terminal)>& write) {
  struct vty terminal(kCommandNode, [](const char* bytes, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
      if (bytes[i] != '\r') std::cout.put(bytes[i]);
    }
    return static_cast<bool>(std::cout);
  });
  write(terminal);
  FlushStandardOutput();
}

}  // namespace olt_host
