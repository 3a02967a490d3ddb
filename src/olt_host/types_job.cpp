#include <cstdio>
#include <iostream>
#include <stdexcept>

#include "commands/type_output.h"
#include "exit_status.h"
#include "jobs.h"
#include "recognition/expression_words.h"
#include "startup.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

// Writes by `write` to a terminal that is standard output, with plain line breaks.
template <typename Write>
void WriteToStandardOutput(const Write& write) {
  struct vty terminal(0, [](const char* bytes, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
      if (bytes[i] != '\r') std::cout.put(bytes[i]);
    }
    return static_cast<bool>(std::cout);
  });
  write(terminal);
  if (!std::cout.flush()) throw std::runtime_error("standard output cannot be written");
}

}  // namespace

int RunTypesJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  const TypesOptions& options = command_line.types;
  try {
    WriteToStandardOutput([&options](struct vty& terminal) {
      if (options.json) {
        WriteJson(terminal, TypesJson(options.where));
      } else {
        WriteTypes(terminal, options.where);
      }
    });
  } catch (const ExpressionError& error) {
    throw std::runtime_error(std::string("--where, ") + error.what());
  }
  return kExitOk;
}

int RunCompareJob(const CommandLine& command_line) {
  const auto library = StartHost(command_line);
  const TypesOptions& options = command_line.types;
  WriteToStandardOutput([&options](struct vty& terminal) {
    if (options.json) {
      WriteJson(terminal, TypeComparisonJson(options.a, options.b));
    } else {
      WriteTypeComparison(terminal, options.a, options.b);
    }
  });
  return kExitOk;
}

}  // namespace olt_host
