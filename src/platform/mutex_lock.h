/// @file
/// The host's mutex class. Each ability table owns one.
///
/// The class is declared with default visibility, so that a host compiled with
/// hidden visibility still offers it to the library.
#ifndef MUTEX_LOCK_H
#define MUTEX_LOCK_H

/// A mutex that keeps threads apart; it need not let one thread take it twice. The host
/// defines its four operations and what `_handle` points to; nothing else may be added,
/// for the library lays the object out. To clang's thread-safety analysis it is a lock.
#if defined(__clang__)
class __attribute__((visibility("default"), capability("mutex"))) CMutexLock {
#else
class __attribute__((visibility("default"))) CMutexLock {
#endif
 public:
  /// Makes a mutex that nobody holds.
  CMutexLock();
  /// Destroys a mutex that nobody holds.
  ~CMutexLock();

  CMutexLock(const CMutexLock&) = delete;
  CMutexLock& operator=(const CMutexLock&) = delete;

  /// Takes the mutex. `wait_limit` is in milliseconds, -1 waits without limit.
  /// `file` and `line` name the caller for the host's diagnostics; `file` may be
  /// null. Returns 0 when the mutex was taken, anything else when it was not. The
  /// library passes -1, null and 0.
  unsigned int Lock(int wait_limit, const char* file, unsigned int line);

  /// Releases the mutex that the calling thread holds. Returns 0 on success.
  unsigned int Unlock(const char* file, unsigned int line);

 private:
  [[maybe_unused]] void* _handle;  // the host's own
};

#endif  // MUTEX_LOCK_H
