// What to call the owner of a process.
#ifndef OLT_HOST_SESSION_OWNER_NAME_H
#define OLT_HOST_SESSION_OWNER_NAME_H

#include <sys/types.h>

#include <string>

namespace olt_host {

// The name of the system's user, or "uid 1000" for one without a name. May wait for a
// directory service.
std::string OwnerName(uid_t owner);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_OWNER_NAME_H
