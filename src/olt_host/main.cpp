#include <malloc.h>

#include <exception>
#include <iostream>

#include "catalogue/input_error.h"
#include "command_line.h"
#include "exit_status.h"
#include "jobs.h"

int main(int argc, char** argv) {
#ifdef __GLIBC__
  // A pool of memory a thread would keep what ended sessions gave back, while nearly
  // all work is done on one thread anyway.
  mallopt(M_ARENA_MAX, 1);
#endif
  try {
    const olt_host::ParsedCommandLine parsed = olt_host::ParseCommandLine(argc, argv);
    return parsed.command_line ? olt_host::RunJob(*parsed.command_line) : parsed.exit_status;
  } catch (const olt_host::InputError& error) {
    // Begins with FILE:LINE:, where editors look for it.
    std::cerr << error.what() << "\n";
    return olt_host::kExitBadInput;
  } catch (const std::exception& error) {
    std::cerr << "olt_host: " << error.what() << "\n";
    return olt_host::kExitBadInput;
  }
}
