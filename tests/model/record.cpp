#include "record.h"

#include <cstdarg>
#include <cstdio>

#include "settings.h"

namespace model {

Record& TheRecord() {
  static Record record;
  return record;
}

std::string Format(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list measured;
  va_copy(measured, arguments);
  const int length = std::vsnprintf(nullptr, 0, format, measured);
  va_end(measured);
  std::string text(static_cast<size_t>(length) + 1, '\0');
  std::vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
  text.pop_back();
  return text;
}

void Print(const std::string& text) { TheRecord().terminal += text; }

bool Enabled(u32 level) { return ((TheSettings().log_mask >> level) & 1U) != 0; }

void WriteLog(u32 level, const std::string& text, bool has_tail) {
  TheRecord().log.push_back({level, text, TheSettings().module_id, has_tail});
}

}  // namespace model
