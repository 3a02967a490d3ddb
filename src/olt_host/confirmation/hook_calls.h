// How often the library called each of the host's hooks, by the ids under which they are
// registered.
#ifndef OLT_HOST_CONFIRMATION_HOOK_CALLS_H
#define OLT_HOST_CONFIRMATION_HOOK_CALLS_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace olt_host {

constexpr std::size_t kHooks = 10;

using HookCalls = std::array<std::uint64_t, kHooks>;

// What each is for.
constexpr std::array<const char*, kHooks> kHookNames = {
    "vendor_id",   "reported_type", "private_capability", "profile",         "real_type",
    "report_type", "ability",       "identify_setting",   "read_one_by_one", "device_name"};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_HOOK_CALLS_H
