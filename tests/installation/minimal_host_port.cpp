// The minimal host as a port that is filled in: the check of the port template has nothing
// to say against it.
#include "minimal_host.h"
#include "port.h"

struct vty* PortTerminal() { return &host_terminal; }
void RegisterHooks() { start_host(); }
