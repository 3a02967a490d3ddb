#include "onu_ability_common_global/log_settings.h"

#include <mutex>

#include "onu_ability_common_global/log.h"
#include "onu_ability_common_global/short_ways.h"

namespace {

constexpr unsigned int kEveryLevel = 0xFFFFFFFFU;

// Two settings are kept as one word for the readers. Whoever changes one holds this, so
// that the word never stays behind.
std::mutex settings_mutex;

void RefreshWalkedLevels() {
  onu_ability_walked_levels.store(WalksOnly() ? kEveryLevel : onu_ability_get_log_level_mask(),
                                  std::memory_order_relaxed);
}

}  // namespace

std::atomic<unsigned int> onu_ability_log_level_mask{kEveryLevel};
std::atomic<unsigned int> onu_ability_walked_levels{kEveryLevel};
std::atomic<bool> onu_ability_walks_only{false};
std::atomic<unsigned int> onu_ability_module_id{19};

unsigned int onu_ability_get_module_id() {
  return onu_ability_module_id.load(std::memory_order_relaxed);
}

void onu_ability_set_log_level_mask(unsigned int mask) {
  const std::lock_guard<std::mutex> lock(settings_mutex);
  onu_ability_log_level_mask.store(mask, std::memory_order_relaxed);
  RefreshWalkedLevels();
}

unsigned int onu_ability_get_log_level_mask() {
  return onu_ability_log_level_mask.load(std::memory_order_relaxed);
}

void SetWalksOnly(bool walks_only) {
  const std::lock_guard<std::mutex> lock(settings_mutex);
  onu_ability_walks_only.store(walks_only, std::memory_order_relaxed);
  RefreshWalkedLevels();
}
