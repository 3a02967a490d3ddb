// Takes clients from a listening socket, one after another.
//
// For the carrying thread, and before it starts for the one that sets up.
#ifndef OLT_HOST_TRANSPORT_ACCEPT_LOOP_H
#define OLT_HOST_TRANSPORT_ACCEPT_LOOP_H

#include <asio/basic_socket_acceptor.hpp>
#include <asio/generic/stream_protocol.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <functional>
#include <string>

#include "transport/telnet_connection.h"

namespace olt_host {

class AcceptLoop {
 public:
  using Acceptor = asio::basic_socket_acceptor<asio::generic::stream_protocol>;

  // `name` is the place in log lines. `serve` gets each client; what it throws
  // costs that client only.
  AcceptLoop(Acceptor acceptor, std::string name, std::function<void(ClientSocket)> serve);
  AcceptLoop(const AcceptLoop&) = delete;
  AcceptLoop& operator=(const AcceptLoop&) = delete;

  void Start() { Accept(); }
  void Stop();

 private:
  // Between attempts while the process has no room for another client.
  static constexpr std::chrono::milliseconds kPause{500};

  void Accept();
  void OnAccepted(const asio::error_code& error, ClientSocket client);
  void Serve(ClientSocket client);

  Acceptor _acceptor;
  asio::steady_timer _pause;
  const std::string _name;
  const std::function<void(ClientSocket)> _serve;
  bool _is_failing = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_ACCEPT_LOOP_H
