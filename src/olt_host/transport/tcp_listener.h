// Listening on TCP, and where its clients come from.
#ifndef OLT_HOST_TRANSPORT_TCP_LISTENER_H
#define OLT_HOST_TRANSPORT_TCP_LISTENER_H

#include <asio/io_context.hpp>
#include <string>

#include "session/session_server.h"
#include "transport/accept_loop.h"
#include "transport/transports.h"

namespace olt_host {

struct TcpListener {
  AcceptLoop::Acceptor acceptor;
  unsigned short port;
};

// Throws std::runtime_error when the address cannot be listened on.
TcpListener ListenOnTcp(asio::io_context& io, const TcpAddress& address);

// "127.0.0.1:2323" or "[::1]:2323".
std::string TcpPlace(const std::string& host, unsigned short port);

// Makes the connection one of single keys, and reports where it comes from.
SessionOrigin PrepareTcpClient(ClientSocket& client, bool must_log_in);

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TCP_LISTENER_H
