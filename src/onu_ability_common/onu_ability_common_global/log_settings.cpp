#include "onu_ability_common_global/log_settings.h"

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"

namespace {

constexpr unsigned int kEveryLevel = 0xFFFFFFFFU;

std::atomic<bool> walks_only{false};

void RefreshWalkedLevels() {
  onu_ability_walked_levels.store(walks_only ? kEveryLevel : onu_ability_get_log_level_mask(),
                                  std::memory_order_relaxed);
}

}  // namespace

std::atomic<unsigned int> onu_ability_log_level_mask{kEveryLevel};
std::atomic<unsigned int> onu_ability_walked_levels{kEveryLevel};

void onu_ability_set_log_level_mask(unsigned int mask) {
  onu_ability_log_level_mask.store(mask, std::memory_order_relaxed);
  RefreshWalkedLevels();
}

unsigned int onu_ability_get_log_level_mask() {
  return onu_ability_log_level_mask.load(std::memory_order_relaxed);
}

void SetWalksOnly(bool only) {
  walks_only = only;
  RefreshWalkedLevels();
}

bool WalksOnly() { return walks_only; }
