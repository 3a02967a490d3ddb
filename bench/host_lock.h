// Holds a mutex of the host for a scope.
#ifndef BENCH_HOST_LOCK_H
#define BENCH_HOST_LOCK_H

#include "mutex_lock.h"

class HostLock {
 public:
  explicit HostLock(CMutexLock& mutex) : _mutex(mutex) { _mutex.Lock(-1, nullptr, 0); }
  ~HostLock() { _mutex.Unlock(nullptr, 0); }
  HostLock(const HostLock&) = delete;
  HostLock& operator=(const HostLock&) = delete;

 private:
  CMutexLock& _mutex;
};

#endif  // BENCH_HOST_LOCK_H
