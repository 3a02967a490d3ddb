/// @file
/// A guard that many may hold to read or one to write, and the scopes that hold it.
///
/// The guards of the library lie below the host's mutexes and are not seen by the host:
/// nobody holds one while a function of the host runs, a log line included, and nobody
/// holds two. So they cannot take part in a deadlock, and a host function may call
/// back into the library as far as the table locks allow.
#ifndef ONU_ABILITY_COMMON_GLOBAL_READER_WRITER_GUARD_H
#define ONU_ABILITY_COMMON_GLOBAL_READER_WRITER_GUARD_H

#include <shared_mutex>

#include "onu_ability_common_global/api.h"
#include "onu_ability_common_global/thread_annotations.h"

/// The guard itself: nothing can be done with it but hold it for a scope. A host has no
/// use for it but as the member that some classes show.
class ONU_ABILITY_LOCK("guard") ReaderWriterGuard {
 public:
  /// Nobody holds it.
  ReaderWriterGuard() = default;
  ReaderWriterGuard(const ReaderWriterGuard&) = delete;
  ReaderWriterGuard& operator=(const ReaderWriterGuard&) = delete;

 private:
  friend class ReadScope;
  friend class WriteScope;

  std::shared_mutex _mutex;
};

/// Holds a guard for reading, with others who read, while it lives.
class ONU_ABILITY_SCOPED_LOCK ReadScope {
 public:
  /// Waits until nobody writes.
  explicit ReadScope(ReaderWriterGuard& guard) ONU_ABILITY_TAKES_SHARED(guard)
      : _mutex(guard._mutex) {
    _mutex.lock_shared();
  }
  /// Lets go.
  ~ReadScope() ONU_ABILITY_GIVES_BACK() { _mutex.unlock_shared(); }
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

 private:
  std::shared_mutex& _mutex;
};

/// Holds a guard alone while it lives.
class ONU_ABILITY_SCOPED_LOCK WriteScope {
 public:
  /// Waits until nobody else holds it.
  explicit WriteScope(ReaderWriterGuard& guard) ONU_ABILITY_TAKES(guard) : _mutex(guard._mutex) {
    _mutex.lock();
  }
  /// Lets go.
  ~WriteScope() ONU_ABILITY_GIVES_BACK() { _mutex.unlock(); }
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;

 private:
  std::shared_mutex& _mutex;
};

/// Guards both registries and the common types. One for all of them, since a change of
/// one registry is judged by the other.
extern ONU_ABILITY_LOCAL ReaderWriterGuard onu_ability_settings_guard;

#endif  // ONU_ABILITY_COMMON_GLOBAL_READER_WRITER_GUARD_H
