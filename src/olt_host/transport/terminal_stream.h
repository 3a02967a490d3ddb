// The terminal of this process, joined to a session.
#ifndef OLT_HOST_TRANSPORT_TERMINAL_STREAM_H
#define OLT_HOST_TRANSPORT_TERMINAL_STREAM_H

#include <asio/posix/stream_descriptor.hpp>
#include <asio/signal_set.hpp>
#include <functional>
#include <memory>
#include <string>

#include "transport/carrier.h"
#include "transport/terminal_device.h"

namespace olt_host {

class TerminalStream final : public Carrier {
 public:
  // Puts the terminal of standard input and output in raw mode, and tells the
  // channel its size; `ended` is called once it is as before. Throws
  // std::runtime_error where standard input or output is no terminal.
  TerminalStream(asio::io_context& io, std::shared_ptr<Channel> channel,
                 std::function<void()> ended);

 private:
  void OnStart() override { AwaitSignal(); }
  void AsyncRead(asio::mutable_buffer into, Done done) override;
  void AsyncWrite(asio::const_buffer bytes, Done done) override;
  bool Decode(const char* bytes, std::size_t length) override;
  std::string& typed() override { return _typed; }
  void Encode(const char* bytes, std::size_t length) override;
  std::string TakeOutgoing() override;
  bool EndOutput() override { return false; }
  void CloseStream(bool orderly) override;
  void AwaitSignal();

  asio::posix::stream_descriptor _in;
  asio::posix::stream_descriptor _out;
  RawMode _raw_mode;  // ends before the descriptor that it uses
  asio::signal_set _signals;
  std::function<void()> _ended;
  std::string _typed;
  std::string _outgoing;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TERMINAL_STREAM_H
