#include "session/owner_name.h"

#include <pwd.h>

#include <array>

namespace olt_host {

std::string OwnerName(uid_t owner) {
  passwd record{};
  passwd* found = nullptr;
  std::array<char, 4096> texts{};
  getpwuid_r(owner, &record, texts.data(), texts.size(), &found);
  return found != nullptr ? found->pw_name : "uid " + std::to_string(owner);
}

}  // namespace olt_host
