#include "network/resumable_output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace olt_host {

namespace {

int Open(const std::string& path) {
  if (path.empty()) return dup(STDOUT_FILENO);
  return open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
}

}  // namespace

ResumableOutput::ResumableOutput(std::string path, std::uint64_t written)
    : _path(std::move(path)), _file(Open(_path)), _written(written) {
  if (!_file.is_open()) Fail();
  struct stat status {};
  // A pipe or a device has no length to cut.
  if (_path.empty() || fstat(_file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    if (written != 0) throw std::runtime_error(_path + " is no file: nothing can go on in it");
    return;
  }
  if (static_cast<std::uint64_t>(status.st_size) < written) {
    throw std::runtime_error(_path + " has " + std::to_string(status.st_size) + " of the " +
                             std::to_string(written) + " bytes that its checkpoint counts");
  }
  const auto end = static_cast<off_t>(written);
  if (ftruncate(_file.get(), end) != 0 || lseek(_file.get(), end, SEEK_SET) != end) Fail();
}

void ResumableOutput::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(_file.get(), bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) Fail();
    if (count <= 0) continue;
    bytes.remove_prefix(static_cast<std::size_t>(count));
    _written += static_cast<std::uint64_t>(count);
  }
}

void ResumableOutput::Flush() {
  // What is no file refuses it, and needs it not.
  if (fdatasync(_file.get()) != 0 && errno != EINVAL && errno != EROFS) Fail();
}

void ResumableOutput::Fail() const {
  throw std::runtime_error((_path.empty() ? "standard output" : _path) +
                           " cannot be written: " + std::strerror(errno));
}

}  // namespace olt_host
