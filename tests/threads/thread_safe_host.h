// A host that many threads may use at once. It keeps nothing of what the library says:
// it reads all of it, so that a thread sanitizer sees whatever changes under a reader,
// and now and then answers a log line with questions to the library, as a host's sink
// may: those that take a table's lock only where the thread holds none.
#ifndef TESTS_THREADS_THREAD_SAFE_HOST_H
#define TESTS_THREADS_THREAD_SAFE_HOST_H

#include <string>

#include "vty.h"

// The terminal of one thread.
struct vty {
  std::string text;
};

// Over all threads.
unsigned long LinesLogged();
unsigned long LinesAnswered();
// Answers no more lines of this thread: the library's singletons say their last when the
// process ends, one after another, and may not be asked then.
void StopAnswering();
// Locks that are held now, and calls of Unlock by a thread that held no lock.
long LocksHeld();
unsigned long WrongUnlocks();

#endif  // TESTS_THREADS_THREAD_SAFE_HOST_H
