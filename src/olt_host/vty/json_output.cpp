#include "vty/json_output.h"

#include <cstring>
#include <string>

namespace olt_host {

void WriteJson(struct vty& terminal, const nlohmann::ordered_json& document) {
  const std::string text =
      document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
  std::string lines;
  for (const char c : text) {
    if (c == '\n') lines += '\r';
    lines += c;
  }
  lines += "\r\n";
  terminal.Write(lines.data(), lines.size());
}

bool WantsJson(int argc, char** argv) {
  return argc > 0 && std::strcmp(argv[argc - 1], "json") == 0;
}

}  // namespace olt_host
