#include "transport/terminal_stream.h"

#include <fcntl.h>
#include <unistd.h>

#include <asio/write.hpp>
#include <csignal>
#include <stdexcept>
#include <utility>

namespace olt_host {
namespace {

int OpenStandard(int descriptor, int access) {
  if (isatty(descriptor) == 0) {
    throw std::runtime_error("standard input and output are no terminal");
  }
  return OpenTerminalAgain(descriptor, access);
}

}  // namespace

TerminalStream::TerminalStream(asio::io_context& io, std::shared_ptr<Channel> channel,
                               std::function<void()> ended)
    : Carrier(io, std::move(channel)),
      _in(io, OpenStandard(STDIN_FILENO, O_RDONLY)),
      _out(io, OpenStandard(STDOUT_FILENO, O_WRONLY)),
      _raw_mode(_in.native_handle()),
      _signals(io, SIGWINCH, SIGCONT),
      _ended(std::move(ended)) {
  this->channel().SetWindow(TerminalWindow(_out.native_handle()));
}

void TerminalStream::AsyncRead(asio::mutable_buffer into, Done done) {
  _in.async_read_some(into, std::move(done));
}

void TerminalStream::AsyncWrite(asio::const_buffer bytes, Done done) {
  asio::async_write(_out, bytes, std::move(done));
}

bool TerminalStream::Decode(const char* bytes, std::size_t length) {
  _typed.append(bytes, length);
  return true;
}

void TerminalStream::Encode(const char* bytes, std::size_t length) {
  _outgoing += ForTerminal(bytes, length);
}

std::string TerminalStream::TakeOutgoing() { return std::exchange(_outgoing, std::string()); }

void TerminalStream::AwaitSignal() {
  _signals.async_wait([this, weak = weak_from_this()](const asio::error_code& error, int signal) {
    const std::shared_ptr<Carrier> self = weak.lock();
    if (error || !self) return;
    if (signal == SIGCONT) _raw_mode.Renew();
    channel().SetWindow(TerminalWindow(_out.native_handle()));
    AwaitSignal();
  });
}

void TerminalStream::CloseStream(bool /*orderly*/) {
  _raw_mode.Restore();
  asio::error_code ignored;
  _signals.cancel(ignored);
  _in.close(ignored);
  _out.close(ignored);
  if (_ended) _ended();
}

}  // namespace olt_host
