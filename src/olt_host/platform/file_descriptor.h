// An open file that closes with its scope.
#ifndef OLT_HOST_PLATFORM_FILE_DESCRIPTOR_H
#define OLT_HOST_PLATFORM_FILE_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace olt_host {

class FileDescriptor {
 public:
  // Takes over what open returned, -1 included.
  explicit FileDescriptor(int descriptor) : _descriptor(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : _descriptor(std::exchange(other._descriptor, -1)) {}
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() {
    if (is_open()) close(_descriptor);
  }

  bool is_open() const { return _descriptor >= 0; }
  int get() const { return _descriptor; }

 private:
  int _descriptor;
};

}  // namespace olt_host

#endif  // OLT_HOST_PLATFORM_FILE_DESCRIPTOR_H
