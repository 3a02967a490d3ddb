// Listening on a Unix socket: the rules for its file, and who its clients are.
#ifndef OLT_HOST_TRANSPORT_UNIX_LISTENER_H
#define OLT_HOST_TRANSPORT_UNIX_LISTENER_H

#include <sys/types.h>

#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <string>

#include "session/session_server.h"
#include "transport/accept_loop.h"

namespace olt_host {

// Throws std::runtime_error for a path that is empty or too long for a socket.
asio::local::stream_protocol::endpoint UnixEndpoint(const std::string& path);

// A listening socket's file, mode 0660; removed with the object, if it is still
// the one that was made.
class UnixListener {
 public:
  // Replaces a socket that nobody serves. Throws std::runtime_error, nothing
  // changed, for a served one, any other file, or where no socket can be made.
  UnixListener(asio::io_context& io, const std::string& path);
  ~UnixListener();
  UnixListener(const UnixListener&) = delete;
  UnixListener& operator=(const UnixListener&) = delete;

  // The listening socket, once.
  AcceptLoop::Acceptor TakeAcceptor() { return std::move(_acceptor); }

 private:
  void Bind();

  const std::string _path;
  AcceptLoop::Acceptor _acceptor;
  dev_t _device = 0;
  ino_t _inode = 0;
};

// The owner of the process at the other end.
SessionOrigin UnixClientOrigin(ClientSocket& client);

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_UNIX_LISTENER_H
