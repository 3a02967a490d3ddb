#include "commands/host_context.h"

namespace olt_host {

HostContext& Host() {
  static HostContext context;
  return context;
}

}  // namespace olt_host
