#include <stdexcept>

#include "commands/type_output.h"
#include "exit_status.h"
#include "jobs.h"
#include "recognition/expression_words.h"
#include "standard_output.h"
#include "startup.h"
#include "vty/json_output.h"

namespace olt_host {

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
