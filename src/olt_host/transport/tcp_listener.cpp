#include "transport/tcp_listener.h"

#include <asio/ip/tcp.hpp>
#include <asio/ip/v6_only.hpp>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace olt_host {
namespace {

// An endpoint of TCP out of a generic one.
asio::ip::tcp::endpoint TcpEndpoint(const ClientSocket::endpoint_type& generic) {
  asio::ip::tcp::endpoint endpoint;
  if (generic.size() > endpoint.capacity()) throw std::runtime_error("no TCP endpoint");
  std::memcpy(endpoint.data(), generic.data(), generic.size());
  endpoint.resize(generic.size());
  return endpoint;
}

asio::ip::tcp::acceptor Bind(asio::io_context& io, const asio::ip::tcp::endpoint& endpoint) {
  asio::ip::tcp::acceptor acceptor(io);
  acceptor.open(endpoint.protocol());
  acceptor.set_option(asio::socket_base::reuse_address(true));
  // As asked for: [::] does not take IPv4 along.
  if (endpoint.address().is_v6()) acceptor.set_option(asio::ip::v6_only(true));
  acceptor.bind(endpoint);
  acceptor.listen();
  return acceptor;
}

}  // namespace

TcpListener ListenOnTcp(asio::io_context& io, const TcpAddress& address) {
  try {
    const asio::ip::tcp::endpoint endpoint(asio::ip::make_address(address.host), address.port);
    asio::ip::tcp::acceptor acceptor = Bind(io, endpoint);
    const unsigned short port = acceptor.local_endpoint().port();
    const asio::generic::stream_protocol protocol(endpoint.protocol());
    return {AcceptLoop::Acceptor(io, protocol, acceptor.release()), port};
  } catch (const asio::system_error& error) {
    throw std::runtime_error("cannot listen on " + TcpPlace(address.host, address.port) + ": " +
                             error.code().message());
  }
}

std::string TcpPlace(const std::string& host, unsigned short port) {
  const bool is_v6 = host.find(':') != std::string::npos;
  return (is_v6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

SessionOrigin PrepareTcpClient(ClientSocket& client, bool must_log_in) {
  client.set_option(asio::ip::tcp::no_delay(true));
  // A client that vanished without a word is found out some day.
  client.set_option(asio::socket_base::keep_alive(true));
  const asio::ip::tcp::endpoint endpoint = TcpEndpoint(client.remote_endpoint());
  SessionOrigin origin;
  origin.origin = TcpPlace(endpoint.address().to_string(), endpoint.port());
  origin.must_log_in = must_log_in;
  return origin;
}

}  // namespace olt_host
