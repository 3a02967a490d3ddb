#include "catalogue/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "catalogue/input_error.h"

namespace olt_host {

namespace {

constexpr const char* kAlreadyThere = "is already there; expected a new name, or replace";

// The content under a name of its own beside the file.
class FileBeside {
 public:
  explicit FileBeside(const std::string& file) : _path(file + ".XXXXXX") {
    _descriptor = mkostemp(_path.data(), O_CLOEXEC);
    if (_descriptor < 0) Fail("cannot be made");
  }
  ~FileBeside() {
    if (_descriptor < 0) return;
    close(_descriptor);
    unlink(_path.c_str());
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  void Write(const std::string& content) const {
    std::size_t written = 0;
    while (written < content.size()) {
      const ssize_t count = write(_descriptor, content.data() + written, content.size() - written);
      if (count < 0 && errno != EINTR) Fail("cannot be written");
      if (count > 0) written += static_cast<std::size_t>(count);
    }
    constexpr mode_t kMode = 0640;
    if (fchmod(_descriptor, kMode) != 0 || fsync(_descriptor) != 0) Fail("cannot be written");
  }

  // A link refuses a name that is taken, even by one that came this moment.
  void PutInPlaceOf(const std::string& file, bool replace) const {
    if (replace ? rename(_path.c_str(), file.c_str()) == 0
                : link(_path.c_str(), file.c_str()) == 0) {
      return;
    }
    if (errno == EEXIST) throw std::runtime_error(kAlreadyThere);
    Fail("cannot be written");
  }

 private:
  [[noreturn]] static void Fail(const char* what) {
    throw std::runtime_error(std::string(what) + ": " + std::strerror(errno) +
                             "; expected a file that can be written");
  }

  std::string _path;
  int _descriptor = -1;
};

void RequireFree(const std::string& file, bool replace) {
  struct stat status {};
  if (file.empty()) throw std::runtime_error("is no name; expected the name of a file");
  if (lstat(file.c_str(), &status) != 0) return;
  if (!S_ISREG(status.st_mode)) throw std::runtime_error("is no file; expected a new name");
  if (!replace) throw std::runtime_error(kAlreadyThere);
}

}  // namespace

std::string ReadWholeFile(const std::string& file, const char* expectation) {
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  // Reading sets errno for a directory, which opens like a file.
  if (!stream ||
      (stream.peek() != std::ifstream::traits_type::eof() && !(text << stream.rdbuf())) ||
      stream.bad() || errno == EISDIR) {
    const std::string reason = errno != 0 ? std::strerror(errno) : "reading failed";
    throw InputError({file, 0}, "cannot be read: " + reason, expectation);
  }
  return text.str();
}

void WriteWholeFile(const std::string& file, const std::string& content, bool replace) {
  try {
    RequireFree(file, replace);
    const FileBeside beside(file);
    beside.Write(content);
    beside.PutInPlaceOf(file, replace);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error((file.empty() ? "\"\"" : file) + ": " + error.what());
  }
}

}  // namespace olt_host
