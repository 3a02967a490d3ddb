// Holds a table's mutex for a scope. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_TABLE_LOCK_H
#define ONU_ABILITY_COMMON_TABLE_TABLE_LOCK_H

#include "mutex_lock.h"

class TableLock {
 public:
  // Waits without limit; no file and line 0, by agreement with the host.
  explicit TableLock(CMutexLock& mutex) : _mutex(mutex) { _mutex.Lock(-1, nullptr, 0); }
  ~TableLock() { _mutex.Unlock(nullptr, 0); }
  TableLock(const TableLock&) = delete;
  TableLock& operator=(const TableLock&) = delete;

 private:
  CMutexLock& _mutex;
};

#endif  // ONU_ABILITY_COMMON_TABLE_TABLE_LOCK_H
