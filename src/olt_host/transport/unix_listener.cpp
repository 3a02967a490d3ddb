#include "transport/unix_listener.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "platform/file_descriptor.h"

namespace olt_host {
namespace {

constexpr mode_t kMode = 0660;
constexpr std::chrono::seconds kLockPatience{5};

[[noreturn]] void Fail(const std::string& path, const std::string& problem) {
  throw std::runtime_error("cannot listen on the socket " + path + ": " + problem);
}

std::string ErrorText(int error) { return std::generic_category().message(error); }

// Keeps other servers out of a directory while one looks whether a socket in it is
// served and replaces it. A directory that cannot be read cannot be locked; there
// the look alone has to do.
class DirectoryLock {
 public:
  explicit DirectoryLock(const std::string& path)
      : _directory(DirectoryOf(path)),
        _descriptor(open(_directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!_descriptor.is_open()) return;
    const auto limit = std::chrono::steady_clock::now() + kLockPatience;
    while (flock(_descriptor.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      if (std::chrono::steady_clock::now() > limit) {
        Fail(path, "another process holds a lock on " + _directory);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  }

 private:
  static std::string DirectoryOf(const std::string& path) {
    const std::filesystem::path directory = std::filesystem::path(path).parent_path();
    return directory.empty() ? "." : directory.string();
  }

  const std::string _directory;
  const FileDescriptor _descriptor;
};

// Removes a socket that nobody serves; refuses whatever else is at the path.
void MakeWay(const std::string& path) {
  struct stat file {};
  if (lstat(path.c_str(), &file) != 0) {
    if (errno == ENOENT) return;
    Fail(path, ErrorText(errno));
  }
  if (!S_ISSOCK(file.st_mode)) Fail(path, "the file is there and is no socket");
  asio::io_context io;
  asio::local::stream_protocol::socket probe(io);
  asio::error_code error;
  probe.open(asio::local::stream_protocol(), error);
  // A full queue answers at once, instead of making this process wait.
  if (!error) probe.non_blocking(true, error);
  if (!error) probe.connect(UnixEndpoint(path), error);
  if (error == asio::error::connection_refused) {
    if (unlink(path.c_str()) != 0 && errno != ENOENT) Fail(path, ErrorText(errno));
    return;
  }
  // asio's name for a server whose queue of connections is full.
  if (!error || error == asio::error::no_buffer_space) {
    Fail(path, "another process serves it");
  }
  Fail(path, error.message());
}

}  // namespace

asio::local::stream_protocol::endpoint UnixEndpoint(const std::string& path) {
  constexpr std::size_t kLongest = sizeof(sockaddr_un::sun_path) - 1;
  if (path.empty()) throw std::runtime_error("the path of the socket is empty");
  if (path.size() > kLongest) {
    throw std::runtime_error("the path of the socket " + path +
                             " is too long: " + std::to_string(path.size()) +
                             " bytes; expected at most " + std::to_string(kLongest));
  }
  return {path};
}

UnixListener::UnixListener(asio::io_context& io, const std::string& path)
    : _path(path), _acceptor(io) {
  UnixEndpoint(path);
  const DirectoryLock lock(path);
  MakeWay(path);
  Bind();
}

void UnixListener::Bind() {
  const asio::local::stream_protocol::endpoint endpoint = UnixEndpoint(_path);
  asio::error_code error;
  _acceptor.open(asio::generic::stream_protocol(endpoint.protocol()), error);
  if (error) Fail(_path, error.message());
  // The file gets the mode of the socket, less the umask: never more than it may
  // have, not even for a moment.
  if (fchmod(_acceptor.native_handle(), kMode) != 0) Fail(_path, ErrorText(errno));
  _acceptor.bind(endpoint, error);
  if (error) Fail(_path, error.message());
  _acceptor.listen(asio::socket_base::max_listen_connections, error);
  struct stat file {};
  if (error || chmod(_path.c_str(), kMode) != 0 || lstat(_path.c_str(), &file) != 0) {
    const std::string problem = error ? error.message() : ErrorText(errno);
    unlink(_path.c_str());
    Fail(_path, problem);
  }
  _device = file.st_dev;
  _inode = file.st_ino;
}

UnixListener::~UnixListener() {
  struct stat file {};
  if (lstat(_path.c_str(), &file) == 0 && S_ISSOCK(file.st_mode) && file.st_dev == _device &&
      file.st_ino == _inode) {
    unlink(_path.c_str());
  }
}

SessionOrigin UnixClientOrigin(ClientSocket& client) {
  ucred peer{};
  socklen_t length = sizeof peer;
  if (getsockopt(client.native_handle(), SOL_SOCKET, SO_PEERCRED, &peer, &length) != 0) {
    throw std::system_error(errno, std::generic_category(), "the client's owner is not known");
  }
  SessionOrigin origin;
  origin.origin = "unix";
  origin.owner = peer.uid;
  return origin;
}

}  // namespace olt_host
