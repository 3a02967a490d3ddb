// Holds a table's mutex for a scope. Not for hosts.
#ifndef ONU_ABILITY_COMMON_TABLE_TABLE_LOCK_H
#define ONU_ABILITY_COMMON_TABLE_TABLE_LOCK_H

#include "mutex_lock.h"
#include "onu_ability_common_global/thread_annotations.h"

class ONU_ABILITY_SCOPED_LOCK TableLock {
 public:
  // Waits without limit; no file and line 0, by agreement with the host. A mutex that
  // reports a failure is used all the same: there is no limit to the wait.
  explicit TableLock(CMutexLock& mutex) ONU_ABILITY_TAKES(mutex) : _mutex(mutex) {
    _mutex.Lock(-1, nullptr, 0);
  }
  ~TableLock() ONU_ABILITY_GIVES_BACK() { _mutex.Unlock(nullptr, 0); }
  TableLock(const TableLock&) = delete;
  TableLock& operator=(const TableLock&) = delete;

 private:
  CMutexLock& _mutex;
};

#endif  // ONU_ABILITY_COMMON_TABLE_TABLE_LOCK_H
