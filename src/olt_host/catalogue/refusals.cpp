#include "catalogue/refusals.h"

#include <algorithm>

namespace olt_host {

void Refusals::Add(const InputError& error) {
  ++_count;
  const bool is_name = dynamic_cast<const UnknownNameError*>(&error) != nullptr;
  const std::string rule = is_name ? error.rule() : "";
  const auto same = std::find_if(_reasons.begin(), _reasons.end(), [&](const Reason& reason) {
    return is_name && reason.rule == rule;
  });
  if (same != _reasons.end()) {
    ++same->more_places;
    return;
  }
  _reasons.push_back({error.what(), rule, 0});
}

std::vector<std::string> Refusals::Messages() const {
  std::vector<std::string> messages;
  for (const Reason& reason : _reasons) {
    std::string message = reason.message;
    if (reason.more_places != 0) {
      message += " (and in " + std::to_string(reason.more_places) + " more " +
                 (reason.more_places == 1 ? "place)" : "places)");
    }
    messages.push_back(message);
  }
  return messages;
}

}  // namespace olt_host
