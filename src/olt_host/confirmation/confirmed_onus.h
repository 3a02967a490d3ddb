// What became of the live ONUs when they were last confirmed.
//
// On the command thread.
#ifndef OLT_HOST_CONFIRMATION_CONFIRMED_ONUS_H
#define OLT_HOST_CONFIRMATION_CONFIRMED_ONUS_H

#include <chrono>
#include <cstdint>
#include <map>
#include <utility>

#include "confirmation/confirmation_result.h"

namespace olt_host {

struct ConfirmedOnu {
  ConfirmationResult result;
  std::uint32_t key = 0;  // key ability value of the real profile; 0 without one
  std::chrono::system_clock::time_point when;
};

// By place and ONU number.
using ConfirmedOnus = std::map<std::pair<std::uint16_t, std::uint8_t>, ConfirmedOnu>;

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_CONFIRMED_ONUS_H
