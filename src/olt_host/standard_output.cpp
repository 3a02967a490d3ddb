#include "standard_output.h"

#include <iostream>
#include <stdexcept>

#include "commands/host_context.h"

namespace olt_host {

void WriteToStandardOutput(const std::function<void(struct vty& terminal)>& write) {
  struct vty terminal(kCommandNode, [](const char* bytes, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
      if (bytes[i] != '\r') std::cout.put(bytes[i]);
    }
    return static_cast<bool>(std::cout);
  });
  write(terminal);
  if (!std::cout.flush()) throw std::runtime_error("standard output cannot be written");
}

}  // namespace olt_host
