// What the model does to the outside world: its log lines, the bytes on its
// terminal, its use of locks, hooks and memory, all in call order.
//
// The model is a second reading of the system's rules, as plain as they can be
// written down; nothing of it is shared with the library. One thread only.
#ifndef TESTS_MODEL_RECORD_H
#define TESTS_MODEL_RECORD_H

#include <string>
#include <vector>

namespace model {

using u8 = unsigned char;
using u16 = unsigned short;
using u32 = unsigned int;

struct LogLine {
  u32 level;
  std::string text;  // without the common tail
  u32 module_id;
  bool has_tail;
};

struct LockCall {
  enum Kind { kConstruct, kLock, kUnlock, kDestroy } kind;
  int mutex;  // mutexes are numbered as they are constructed
};

struct HookCall {
  int id;
  u16 place;
  int onu;       // -1 for hook 7, which gets none
  u32 argument;  // stage, real type, report type, code, index, length, setting 3
};

// Of the allocator and the release only.
struct MemoryCall {
  std::string name;
  u32 count;
};

struct Record {
  std::vector<LogLine> log;
  std::string terminal;
  std::vector<LockCall> locks;
  std::vector<HookCall> hooks;
  std::vector<MemoryCall> memory;
};

Record& TheRecord();

// Format as printf does, `%s` with a terminated text.
std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));

// To the terminal.
void Print(const std::string& text);

// The level's bit of the log mask.
bool Enabled(u32 level);
void WriteLog(u32 level, const std::string& text, bool has_tail = true);

// Neither formats nor evaluates the arguments of a masked level.
#define MODEL_LOG(level, ...)                               \
  do {                                                      \
    if (model::Enabled(level)) {                            \
      model::WriteLog((level), model::Format(__VA_ARGS__)); \
    }                                                       \
  } while (false)

}  // namespace model

#endif  // TESTS_MODEL_RECORD_H
