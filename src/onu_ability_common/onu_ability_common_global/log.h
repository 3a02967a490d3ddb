// The one way in which the library's sources write a log line. Not for hosts.
//
// A line is a call of the host, which may call back: no guard of the library is held
// where one is written (see reader_writer_guard.h).
#ifndef ONU_ABILITY_COMMON_GLOBAL_LOG_H
#define ONU_ABILITY_COMMON_GLOBAL_LOG_H

#include <atomic>

#include "onu_ability_common_global/log_settings.h"
#include "ulog.h"

// The mask of onu_ability_set_log_level_mask: one word, tested before anything
// else of a line is evaluated.
extern std::atomic<unsigned int> onu_ability_log_level_mask;

// The module id of every line: asked too often to be searched for behind a singleton.
extern std::atomic<unsigned int> onu_ability_module_id;

// Writes a line of `level` (a constant below 32): a format literal and its
// arguments, to which module id, function name, source line and the common tail
// are added.
#define ONU_ABILITY_LOG(level, ...) \
  ONU_ABILITY_LOG_WITH_TAIL(level, __VA_ARGS__, __func__, __LINE__)

// The same from a function that does a part of an operation: the line carries
// the name of the operation, which is what its reader knows.
#define ONU_ABILITY_LOG_FOR(operation, level, ...) \
  ONU_ABILITY_LOG_WITH_TAIL(level, __VA_ARGS__, operation, __LINE__)

// The format and the two arguments of the tail; use one of the above.
#define ONU_ABILITY_LOG_WITH_TAIL(level, format, ...) \
  ONU_ABILITY_LOG_BARE(level, format " func:%s,line:%d\r\n\r\n", __VA_ARGS__)

// A line without the tail, for the one listing that may go to the log.
#define ONU_ABILITY_LOG_BARE(level, ...)                                                       \
  do {                                                                                         \
    if ((onu_ability_log_level_mask.load(std::memory_order_relaxed) >> (level)) & 1U) {        \
      ulogPrintf(onu_ability_module_id.load(std::memory_order_relaxed), (level), __VA_ARGS__); \
    }                                                                                          \
  } while (false)

#endif  // ONU_ABILITY_COMMON_GLOBAL_LOG_H
