// A client's telnet connection, over TCP or a Unix socket, joined to a session.
#ifndef OLT_HOST_TRANSPORT_TELNET_CONNECTION_H
#define OLT_HOST_TRANSPORT_TELNET_CONNECTION_H

#include <asio/generic/stream_protocol.hpp>
#include <memory>
#include <string>

#include "transport/carrier.h"
#include "transport/telnet_server_stream.h"

namespace olt_host {

using ClientSocket = asio::generic::stream_protocol::socket;

class TelnetConnection final : public Carrier {
 public:
  // Negotiates as soon as it is started.
  TelnetConnection(asio::io_context& io, ClientSocket socket, std::shared_ptr<Channel> channel);

 private:
  void AsyncRead(asio::mutable_buffer into, Done done) override;
  void AsyncWrite(asio::const_buffer bytes, Done done) override;
  bool Decode(const char* bytes, std::size_t length) override;
  std::string& typed() override { return _telnet.typed(); }
  void Encode(const char* bytes, std::size_t length) override { _telnet.Send(bytes, length); }
  std::string TakeOutgoing() override { return _telnet.TakeOutgoing(); }
  bool EndOutput() override;
  void CloseStream(bool orderly) override;

  ClientSocket _socket;
  TelnetServerStream _telnet;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TELNET_CONNECTION_H
