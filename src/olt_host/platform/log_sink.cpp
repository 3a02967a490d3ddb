#include "platform/log_sink.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#include "onu_ability_common_global.h"
#include "ulog.h"

namespace olt_host {
namespace {

// The masks change while other threads log; a line around that moment may be
// judged by either.
struct Log {
  spdlog::logger logger;
  const std::string file;
  const bool stream_wanted;
  std::atomic<unsigned int> mask;
  std::atomic<unsigned int> ring_mask;
  Log* replaced = nullptr;  // the log before this one, which some thread may still be writing to

  Log(spdlog::sink_ptr sink, const LogSettings& settings)
      : logger("olt_host", std::move(sink)),
        file(settings.file),
        stream_wanted(settings.mask != 0),
        mask(settings.mask),
        ring_mask(settings.ring_mask) {
    logger.set_pattern("%Y-%m-%d %H:%M:%S.%e %v");
    logger.set_level(spdlog::level::trace);
    logger.flush_on(spdlog::level::err);
  }
};

// Never deleted, as the ring: the library's singletons log until the very end of
// the process.
std::atomic<Log*>& CurrentLog() {
  static std::atomic<Log*> current{
      new Log(std::make_shared<spdlog::sinks::stderr_sink_mt>(), LogSettings())};
  return current;
}

LogRing& Ring() {
  static LogRing& ring = *new LogRing;
  return ring;
}

bool Holds(unsigned int mask, unsigned int level) {
  return level < 32 && ((mask >> level) & 1U) != 0;
}

bool IsListenedTo(const Log& log, unsigned int level) {
  return Holds(log.mask | log.ring_mask, level);
}

// One text line: line breaks at the end are dropped, inside they become blanks,
// and other control characters are shown, not sent.
std::string OneLine(const char* text, std::size_t length) {
  while (length > 0 && (text[length - 1] == '\n' || text[length - 1] == '\r')) --length;
  std::string line;
  line.reserve(length);
  for (std::size_t i = 0; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte == '\n' || byte == '\t') {
      line += ' ';
    } else if (byte == '\r' && i + 1 < length && text[i + 1] == '\n') {
      continue;
    } else if (byte < 0x20 || byte == 0x7F) {
      char shown[5];
      std::snprintf(shown, sizeof shown, "\\x%02x", static_cast<unsigned int>(byte));
      line += shown;
    } else {
      line += text[i];
    }
  }
  return line;
}

void WriteLine(Log& log, unsigned int module_id, unsigned int level, const char* text,
               std::size_t length) {
  std::string line = OneLine(text, length);
  if (Holds(log.mask, level)) {
    // What an operator must see even after a crash is flushed at once.
    const bool urgent = level <= 1 || level == 13;
    log.logger.log(urgent ? spdlog::level::err : spdlog::level::info, "level {} module {} {}",
                   level, module_id, line);
  }
  if (Holds(log.ring_mask, level)) {
    Ring().Add({std::chrono::system_clock::now(), level, module_id, std::move(line)});
  }
}

}  // namespace

void OpenLog(const LogSettings& settings) {
  spdlog::sink_ptr sink;
  try {
    if (settings.file.empty()) {
      sink = std::make_shared<spdlog::sinks::stderr_sink_mt>();
    } else {
      sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(settings.file);
    }
  } catch (const spdlog::spdlog_ex& error) {
    throw std::runtime_error("cannot open the log file " + settings.file + ": " + error.what());
  }
  Log* const opened = new Log(std::move(sink), settings);
  opened->replaced = CurrentLog().exchange(opened);
  opened->replaced->logger.flush();
  onu_ability_set_log_level_mask(settings.mask | settings.ring_mask);
}

void SetLogMask(unsigned int mask) {
  Log& log = *CurrentLog();
  log.ring_mask = mask;
  if (log.stream_wanted) log.mask = mask;
  onu_ability_set_log_level_mask(mask);
}

LogSettings CurrentLogSettings() {
  const Log& log = *CurrentLog();
  return {log.file, log.mask, log.ring_mask};
}

const LogRing& RecentLogLines() { return Ring(); }

void LogHostLine(unsigned int level, const std::string& text) {
  Log& log = *CurrentLog();
  if (IsListenedTo(log, level)) WriteLine(log, 0, level, text.data(), text.size());
}

}  // namespace olt_host

void ulogPrintf(unsigned int module_id, unsigned int level, const char* format, ...) {
  olt_host::Log& log = *olt_host::CurrentLog();
  if (!olt_host::IsListenedTo(log, level)) return;
  char line[512];
  va_list arguments;
  va_list again;
  va_start(arguments, format);
  va_copy(again, arguments);
  const int needed = std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  const auto length = static_cast<std::size_t>(needed < 0 ? 0 : needed);
  if (length < sizeof line) {
    olt_host::WriteLine(log, module_id, level, line, length);
  } else {
    std::vector<char> text(length + 1);
    std::vsnprintf(text.data(), text.size(), format, again);
    olt_host::WriteLine(log, module_id, level, text.data(), length);
  }
  va_end(again);
}
