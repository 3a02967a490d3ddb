#include "transport/telnet_connection.h"

#include <asio/write.hpp>
#include <utility>

namespace olt_host {
namespace {

// The kernel reports room for more when a good part of its buffer is free. With
// its usual megabytes a slow client would look like one that takes nothing.
constexpr int kSendBuffer = 32 << 10;

}  // namespace

TelnetConnection::TelnetConnection(asio::io_context& io, ClientSocket socket,
                                   std::shared_ptr<Channel> channel)
    : Carrier(io, std::move(channel)), _socket(std::move(socket)), _telnet(this->channel()) {
  asio::error_code ignored;
  _socket.set_option(asio::socket_base::send_buffer_size(kSendBuffer), ignored);
  _telnet.Negotiate();
}

void TelnetConnection::AsyncRead(asio::mutable_buffer into, Done done) {
  _socket.async_read_some(into, std::move(done));
}

void TelnetConnection::AsyncWrite(asio::const_buffer bytes, Done done) {
  asio::async_write(_socket, bytes, std::move(done));
}

bool TelnetConnection::Decode(const char* bytes, std::size_t length) {
  _telnet.Receive(bytes, length);
  return !_telnet.broken();
}

bool TelnetConnection::EndOutput() {
  asio::error_code error;
  _socket.shutdown(asio::socket_base::shutdown_send, error);
  return !error;
}

void TelnetConnection::CloseStream(bool orderly) {
  asio::error_code ignored;
  // What a dropped client has not taken is not to be kept by the kernel either.
  if (!orderly) _socket.set_option(asio::socket_base::linger(true, 0), ignored);
  _socket.close(ignored);
}

}  // namespace olt_host
