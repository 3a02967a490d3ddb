#include "session/editor_library.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "session/editor_turn.h"

namespace olt_host {
namespace {

constexpr std::size_t kLongestType = 40;

// Names of terminals go into the path of a file.
bool IsTypeName(const std::string& type) {
  return !type.empty() && type.size() <= kLongestType && type.front() != '.' &&
         std::all_of(type.begin(), type.end(), [](unsigned char c) {
           return c < 0x80 && (std::isalnum(c) != 0 ||
                               std::string("-+._").find(static_cast<char>(c)) != std::string::npos);
         });
}

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

Editor::Library::~Library() {
  const EditorTurn turn;
  if (line != nullptr) el_end(line);
  if (history != nullptr) history_end(history);
}

void Editor::Library::SetType(const std::string& named) {
  const std::array<std::string, 4> types = {named, Lower(named), "vt100", "dumb"};
  for (const std::string& type : types) {
    // The library does not edit on a terminal of this name.
    if (!IsTypeName(type) || type == "emacs") continue;
    _type = type;
    if (el_set(line, EL_TERMINAL, _type.c_str()) == 0) return;
  }
}

}  // namespace olt_host
