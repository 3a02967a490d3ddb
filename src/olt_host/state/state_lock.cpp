#include "state/state_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <utility>

#include "platform/file_descriptor.h"
#include "state/state_file.h"

namespace olt_host {

namespace {

constexpr mode_t kMode = 0640;

struct HeldFile {
  std::string file;  // as it was named
  std::unique_ptr<FileDescriptor> descriptor;
};

HeldFile& Held() {
  static HeldFile held;
  return held;
}

// By whatever link the file is named.
std::string LockOf(const std::string& file) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::weakly_canonical(file, error);
  return (error ? file : target.string()) + ".lock";
}

bool IsThere(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::symlink_status(path, ignored).type() !=
         std::filesystem::file_type::not_found;
}

[[noreturn]] void Fail(const std::string& file, const std::string& lock, int reason) {
  throw StateError(file + ": cannot be kept by " + lock + ": " + std::strerror(reason));
}

}  // namespace

void HoldStateFile(const std::string& file) {
  if (Held().file == file) return;
  const std::string lock = LockOf(file);
  auto descriptor = std::make_unique<FileDescriptor>(
      open(lock.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, kMode));
  if (!descriptor->is_open()) {
    const int reason = errno;
    if (!IsThere(lock)) return;
    Fail(file, lock, reason);
  }
  while (flock(descriptor->get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) throw StateError(file + " is kept by another olt_host");
    if (errno != EINTR) Fail(file, lock, errno);
  }
  Held() = {file, std::move(descriptor)};
}

}  // namespace olt_host
