// The traces of operations: each says when it starts and when it ends.
#ifndef TESTS_SUPPORT_TRACES_H
#define TESTS_SUPPORT_TRACES_H

#include <map>
#include <string>
#include <vector>

#include "support/recording_host.h"

// "function start!" and the like, which name what starts or say more after it.
inline bool SaysStart(const LogLine& line) {
  return line.level == 10 && line.text.find("start!") != std::string::npos;
}

inline bool SaysEnd(const LogLine& line) {
  return line.level == 10 && line.text.find("end!") != std::string::npos;
}

// The functions that said more often that they start than that they end, or the reverse.
inline std::string UnevenTraces(const std::vector<LogLine>& lines) {
  std::map<std::string, int> running;
  for (const LogLine& line : lines) {
    running[line.function] += SaysStart(line) ? 1 : 0;
    running[line.function] -= SaysEnd(line) ? 1 : 0;
  }
  std::string uneven;
  for (const auto& [function, count] : running) {
    uneven += count != 0 ? function + " " : "";
  }
  return uneven;
}

// Who said a line with `text` in it, by the tail of the first one; empty when nobody did.
inline std::string SaidBy(const std::string& text, const std::vector<LogLine>& lines) {
  for (const LogLine& line : lines) {
    if (line.text.find(text) != std::string::npos) {
      return line.function;
    }
  }
  return "";
}

#endif  // TESTS_SUPPORT_TRACES_H
