// Replacing a state file, so that at no moment there is less than one whole file.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/file_descriptor.h"
#include "state/state_file.h"
#include "state/state_frame.h"

namespace olt_host {

namespace {

constexpr mode_t kMode = 0640;

[[noreturn]] void Fail(const std::string& what) {
  throw StateError(what + ": " + std::strerror(errno));
}

// The file behind a link, so that a link to a state file stays one.
std::string Resolved(const std::string& file) {
  std::error_code error;
  if (!std::filesystem::is_symlink(file, error)) return file;
  const std::filesystem::path resolved = std::filesystem::canonical(file, error);
  return error ? file : resolved.string();
}

bool Holds(const std::string& file, const std::string& content) {
  std::ifstream stream(file, std::ios::binary);
  const std::string held((std::istreambuf_iterator<char>(stream)), {});
  return stream && held == content;
}

// What is in the way under a name that is to be written; "" when it may go: nothing,
// or a file that begins as a state file, or, unless it must be `whole`, one that was cut
// before it could.
std::string InTheWay(const std::string& path, bool whole) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return errno == ENOENT ? "" : std::strerror(errno);
  if (!S_ISREG(status.st_mode)) return "it is no file";
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return std::strerror(errno);
  std::string begin(kStateMagic.size(), '\0');
  stream.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  begin.resize(static_cast<std::size_t>(stream.gcount()));
  const bool may_be_cut = !whole || begin.empty();
  const std::string_view wanted =
      kStateMagic.substr(0, may_be_cut ? begin.size() : kStateMagic.npos);
  return begin == wanted ? "" : "it is no state file";
}

void RequireOwn(const std::string& path, const char* what) {
  const std::string reason = InTheWay(path, false);
  if (!reason.empty()) {
    throw StateError(what + (path + ": ") + reason + "; expected one of olt_host, or nothing");
  }
}

// The new content beside the file. Its lock keeps a second process that saves to the same
// file away; what a killed one left has no lock and is removed.
class FileAside {
 public:
  explicit FileAside(const std::string& file) : _path(file + ".new"), _descriptor(Create(_path)) {}
  ~FileAside() {
    if (!_is_in_place) unlink(_path.c_str());
  }
  FileAside(const FileAside&) = delete;
  FileAside& operator=(const FileAside&) = delete;

  // The rights of the file that it replaces.
  void TakeRightsOf(const struct stat& status) {
    const bool same_owner = status.st_uid == geteuid() && status.st_gid == getegid();
    // Only a privileged process may give a file away; another one keeps it.
    if (!same_owner && fchown(_descriptor.get(), status.st_uid, status.st_gid) != 0 &&
        errno != EPERM) {
      Fail("cannot set the owner of " + _path);
    }
    if (fchmod(_descriptor.get(), status.st_mode & 07777U) != 0) {
      Fail("cannot set the mode of " + _path);
    }
  }

  void Write(const std::string& content) {
    std::size_t written = 0;
    while (written < content.size()) {
      const ssize_t count =
          write(_descriptor.get(), content.data() + written, content.size() - written);
      if (count < 0 && errno != EINTR) Fail("cannot write " + _path);
      if (count > 0) written += static_cast<std::size_t>(count);
    }
    if (fsync(_descriptor.get()) != 0) Fail("cannot flush " + _path + " to disk");
  }

  void Rename(const std::string& file) {
    if (rename(_path.c_str(), file.c_str()) != 0) Fail("cannot replace " + file);
    _is_in_place = true;
  }

 private:
  static FileDescriptor Create(const std::string& path) {
    for (;;) {
      FileDescriptor created(
          open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kMode));
      if (created.is_open() && IsLockedAt(path, created)) return created;
      if (!created.is_open() && errno != EEXIST) Fail("cannot create " + path);
      RemoveLeftover(path);
    }
  }

  // Between creating and locking, another process may have taken it for a leftover.
  static bool IsLockedAt(const std::string& path, const FileDescriptor& file) {
    struct stat opened {};
    struct stat named {};
    return flock(file.get(), LOCK_EX | LOCK_NB) == 0 && fstat(file.get(), &opened) == 0 &&
           lstat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
  }

  static void RemoveLeftover(const std::string& path) {
    const FileDescriptor left(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!left.is_open()) {
      if (errno == ENOENT) return;
      if (errno != ELOOP) Fail("cannot remove the old " + path);
      RequireOwn(path, "cannot replace ");
    } else if (flock(left.get(), LOCK_EX | LOCK_NB) != 0) {
      throw StateError("another process is writing " + path);
    } else if (!IsLockedAt(path, left)) {
      return;
    } else {
      RequireOwn(path, "cannot replace ");
    }
    if (unlink(path.c_str()) != 0 && errno != ENOENT) Fail("cannot remove the old " + path);
  }

  std::string _path;
  FileDescriptor _descriptor;
  bool _is_in_place = false;
};

std::string BackupAside(const std::string& target) { return target + ".bak.new"; }

// A second name for the old content, put in the place of an older backup in one step.
void KeepAsBackup(const std::string& file) {
  const std::string backup = BackupOf(file);
  const std::string aside = BackupAside(file);
  if (unlink(aside.c_str()) != 0 && errno != ENOENT) Fail("cannot remove the old " + aside);
  if (link(file.c_str(), aside.c_str()) != 0) Fail("cannot keep a backup as " + aside);
  if (rename(aside.c_str(), backup.c_str()) != 0) {
    const int reason = errno;
    unlink(aside.c_str());
    errno = reason;
    Fail("cannot keep a backup as " + backup);
  }
  // Renaming one name of a file to another of its names does nothing.
  unlink(aside.c_str());
}

// The names are on disk only when their folder is.
void FlushFolder(const std::string& file) {
  const std::filesystem::path folder = std::filesystem::path(file).parent_path();
  const FileDescriptor descriptor(
      open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.is_open() || fsync(descriptor.get()) != 0) {
    Fail("is replaced, but its folder cannot be flushed to disk");
  }
}

// The checks come before anything is written.
void RequireReplaceable(const std::string& target) {
  if (!InTheWay(target, true).empty()) {
    throw StateError("is no state file; expected one or a new name");
  }
  RequireOwn(BackupOf(target), "cannot keep a backup as ");
  RequireOwn(BackupAside(target), "cannot keep a backup as ");
}

}  // namespace

std::string BackupOf(const std::string& file) { return Resolved(file) + ".bak"; }

void WriteStateFile(const std::string& file, const std::string& content) {
  try {
    const std::string target = Resolved(file);
    std::error_code unknown;
    if (std::filesystem::is_symlink(target, unknown)) {
      throw StateError("is a link to a file that is not there; expected a file or a new name");
    }
    struct stat old {};
    const bool is_there = stat(target.c_str(), &old) == 0;
    if (is_there && !S_ISREG(old.st_mode)) {
      throw StateError("is no file; expected a file or a new name");
    }
    // Writing the same again would only lose the backup.
    if (is_there && Holds(target, content)) return;
    if (is_there) RequireReplaceable(target);
    FileAside aside(target);
    if (is_there) aside.TakeRightsOf(old);
    aside.Write(content);
    if (is_there) KeepAsBackup(target);
    aside.Rename(target);
    FlushFolder(target);
  } catch (const StateError& error) {
    throw StateError(file + ": " + error.what());
  }
}

}  // namespace olt_host
