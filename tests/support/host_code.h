// Marks a stretch of code as the host's own. Memory that is asked for there is not the
// library's: tests that let the library run out of memory leave it alone.
#ifndef TESTS_SUPPORT_HOST_CODE_H
#define TESTS_SUPPORT_HOST_CODE_H

class HostCode {
 public:
  HostCode() { ++depth_; }
  ~HostCode() { --depth_; }
  HostCode(const HostCode&) = delete;
  HostCode& operator=(const HostCode&) = delete;

  // Whether the calling thread is inside one.
  static bool Runs() { return depth_ != 0; }

 private:
  static thread_local unsigned int depth_;
};

#endif  // TESTS_SUPPORT_HOST_CODE_H
