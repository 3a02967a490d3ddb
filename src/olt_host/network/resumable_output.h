// A file that a long run writes from front to back, and in which the run after an
// interruption goes on; or standard output, where nothing can go on.
#ifndef OLT_HOST_NETWORK_RESUMABLE_OUTPUT_H
#define OLT_HOST_NETWORK_RESUMABLE_OUTPUT_H

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_descriptor.h"

namespace olt_host {

class ResumableOutput {
 public:
  // Goes on behind the first `written` bytes of the file and drops the others, the ones
  // that were written behind the last checkpoint. `path`: empty for standard output.
  // Throws std::runtime_error when the file cannot be written or has not so many bytes.
  ResumableOutput(std::string path, std::uint64_t written);

  // Throws std::runtime_error.
  void Write(std::string_view bytes);
  // Brings what was written to disk, so that a checkpoint may count on it.
  void Flush();

  std::uint64_t written() const { return _written; }

 private:
  [[noreturn]] void Fail() const;

  std::string _path;
  FileDescriptor _file;
  std::uint64_t _written;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_RESUMABLE_OUTPUT_H
