// The exit statuses of the program.
#ifndef OLT_HOST_EXIT_STATUS_H
#define OLT_HOST_EXIT_STATUS_H

namespace olt_host {

constexpr int kExitOk = 0;
constexpr int kExitNotAsExpected = 1;  // some ONU, or some command of a piped console
constexpr int kExitBadInput = 2;       // usage, files, or an output that cannot be written

}  // namespace olt_host

#endif  // OLT_HOST_EXIT_STATUS_H
