// The traces of operations: each says when it starts and when it ends.
#ifndef TESTS_SUPPORT_TRACES_H
#define TESTS_SUPPORT_TRACES_H

#include <map>
#include <string>
#include <vector>

#include "support/recording_host.h"

// The functions that said more often that they start than that they end, or the reverse.
inline std::string UnevenTraces(const std::vector<LogLine>& lines) {
  std::map<std::string, int> running;
  for (const LogLine& line : lines) {
    if (line.level == 10) {
      running[line.function] += line.text.find("function start!") != std::string::npos ? 1 : 0;
      running[line.function] -= line.text.find("function end!") != std::string::npos ? 1 : 0;
    }
  }
  std::string uneven;
  for (const auto& [function, count] : running) {
    uneven += count != 0 ? function + " " : "";
  }
  return uneven;
}

// Who said `text`, by the tail of the first such line; empty when nobody did.
inline std::string SaidBy(const std::string& text, const std::vector<LogLine>& lines) {
  for (const LogLine& line : lines) {
    if (line.text == text) {
      return line.function;
    }
  }
  return "";
}

#endif  // TESTS_SUPPORT_TRACES_H
