#include "onu_ability_common_global/log_settings.h"

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"

namespace {

constexpr unsigned int kEveryLevel = 0xFFFFFFFFU;

void RefreshWalkedLevels() {
  onu_ability_walked_levels.store(WalksOnly() ? kEveryLevel : onu_ability_get_log_level_mask(),
                                  std::memory_order_relaxed);
}

}  // namespace

std::atomic<unsigned int> onu_ability_log_level_mask{kEveryLevel};
std::atomic<unsigned int> onu_ability_walked_levels{kEveryLevel};
std::atomic<bool> onu_ability_walks_only{false};
unsigned int onu_ability_module_id = 19;

unsigned int onu_ability_get_module_id() { return onu_ability_module_id; }

void onu_ability_set_log_level_mask(unsigned int mask) {
  onu_ability_log_level_mask.store(mask, std::memory_order_relaxed);
  RefreshWalkedLevels();
}

unsigned int onu_ability_get_log_level_mask() {
  return onu_ability_log_level_mask.load(std::memory_order_relaxed);
}

void SetWalksOnly(bool walks_only) {
  onu_ability_walks_only.store(walks_only, std::memory_order_relaxed);
  RefreshWalkedLevels();
}
