#include "onu_ability_common_global/log_settings.h"

#include "onu_ability_common_global/log.h"

std::atomic<unsigned int> onu_ability_log_level_mask{0xFFFFFFFFU};

void onu_ability_set_log_level_mask(unsigned int mask) {
  onu_ability_log_level_mask.store(mask, std::memory_order_relaxed);
}

unsigned int onu_ability_get_log_level_mask() {
  return onu_ability_log_level_mask.load(std::memory_order_relaxed);
}
