// Keeps a state file to one process: what two hosts write would take turns, and each
// would lose what the other one's operators made.
//
// On the command thread, or before it serves.
#ifndef OLT_HOST_STATE_STATE_LOCK_H
#define OLT_HOST_STATE_STATE_LOCK_H

#include <string>

namespace olt_host {

// Holds `file` from now on until the process ends or another file is held instead, by a
// lock on FILE.lock, which stays behind empty. Nothing is held where that cannot be
// made, because nothing can be saved there either; the next call tries again. Throws
// StateError when another process holds it.
void HoldStateFile(const std::string& file);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_STATE_LOCK_H
