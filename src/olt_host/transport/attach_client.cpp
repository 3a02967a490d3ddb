// The client behind `attach`: this process's standard input and output on one
// side, the socket of a host on the other.
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <asio/posix/stream_descriptor.hpp>
#include <asio/signal_set.hpp>
#include <asio/write.hpp>
#include <cerrno>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "transport/telnet_client_stream.h"
#include "transport/terminal_device.h"
#include "transport/transports.h"
#include "transport/unix_listener.h"

namespace olt_host {
namespace {

// Standard input or output in the event loop. A terminal is opened anew. For
// anything else that is not possible (a socket) or not the same (a file has a
// place in it), so there the description is borrowed and its mode given back.
class StandardStream {
 public:
  StandardStream(asio::io_context& io, int descriptor, int access)
      : _is_terminal(isatty(descriptor) != 0),
        _borrowed(descriptor),
        _flags(fcntl(descriptor, F_GETFL)),
        _stream(io, _is_terminal ? OpenTerminalAgain(descriptor, access)
                                 : fcntl(descriptor, F_DUPFD_CLOEXEC, 0)) {}
  ~StandardStream() {
    if (!_is_terminal) fcntl(_borrowed, F_SETFL, _flags);
  }
  StandardStream(const StandardStream&) = delete;
  StandardStream& operator=(const StandardStream&) = delete;

  bool is_terminal() const { return _is_terminal; }
  asio::posix::stream_descriptor& stream() { return _stream; }

 private:
  const bool _is_terminal;
  const int _borrowed;
  const int _flags;
  asio::posix::stream_descriptor _stream;
};

class AttachClient {
 public:
  explicit AttachClient(const std::string& path);

  int Run();

 private:
  void ReadHost();
  void Print();
  void ReadTyped();
  void SendTyped(std::size_t length);
  void WriteToHost();
  void EndInput();
  void AwaitSignal();
  void OnSignal(int signal);
  void End(int status);
  Channel::Window Window();

  asio::io_context _io{1};
  asio::local::stream_protocol::socket _socket;
  StandardStream _in;
  StandardStream _out;
  TelnetClientStream _telnet;
  std::unique_ptr<RawMode> _raw_mode;
  asio::signal_set _signals;
  std::array<char, 4096> _typed{};
  std::array<char, 8192> _received{};
  std::string _sent;
  std::string _printed;
  bool _after_return = false;
  bool _may_type = false;
  bool _reading_typed = false;
  bool _input_ended = false;
  bool _writing = false;
  int _status = 0;
};

AttachClient::AttachClient(const std::string& path)
    : _socket(_io),
      _in(_io, STDIN_FILENO, O_RDONLY),
      _out(_io, STDOUT_FILENO, O_WRONLY),
      _telnet(Window()),
      _signals(_io, SIGTERM, SIGHUP, SIGINT) {
  asio::error_code error;
  _socket.connect(UnixEndpoint(path), error);
  if (error) throw std::runtime_error("nobody serves the socket " + path + ": " + error.message());
}

// Where nobody types nobody could leave a pager: 0x0 is no screen.
Channel::Window AttachClient::Window() {
  return _in.is_terminal() ? TerminalWindow(_in.stream().native_handle()) : Channel::Window{0, 0};
}

int AttachClient::Run() {
  // A reader of standard output that leaves is an error of a write here, so that
  // the terminal gets its mode back.
  std::signal(SIGPIPE, SIG_IGN);
  if (_in.is_terminal()) {
    _raw_mode = std::make_unique<RawMode>(_in.stream().native_handle());
    _signals.add(SIGWINCH);
    _signals.add(SIGCONT);
  }
  AwaitSignal();
  ReadHost();
  _io.run();
  return _status;
}

void AttachClient::ReadHost() {
  _socket.async_read_some(asio::buffer(_received),
                          [this](const asio::error_code& error, std::size_t length) {
                            if (!error) _telnet.Receive(_received.data(), length);
                            if (error || _telnet.broken()) {
                              End(0);
                              return;
                            }
                            _printed = _telnet.TakePrinted();
                            _may_type = _may_type || _telnet.has_told_window() || !_printed.empty();
                            WriteToHost();
                            Print();
                          });
}

// Reads on from the host once what it said is printed.
void AttachClient::Print() {
  if (_out.is_terminal() && _in.is_terminal()) {
    _printed = ForTerminal(_printed.data(), _printed.size());
  }
  asio::async_write(
      _out.stream(), asio::buffer(_printed), [this](const asio::error_code& error, std::size_t) {
        if (error == asio::error::operation_aborted) return;
        if (error) {
          throw std::runtime_error("standard output cannot be written: " + error.message());
        }
        ReadHost();
      });
}

// Not before the host knows that there is no screen: at the end of a pipe nothing
// more could be told, and output would wait for a pager's key.
void AttachClient::ReadTyped() {
  if (!_may_type || _reading_typed || _input_ended) return;
  _reading_typed = true;
  _in.stream().async_read_some(asio::buffer(_typed),
                               [this](const asio::error_code& error, std::size_t length) {
                                 _reading_typed = false;
                                 if (error == asio::error::operation_aborted) return;
                                 if (error) {
                                   EndInput();
                                 } else {
                                   SendTyped(length);
                                 }
                               });
}

// On the wire a line ends in CR LF, and the enter key is CR NUL.
void AttachClient::SendTyped(std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length; ++i) {
    const char c = _typed[i];
    if (c == '\n' && !_in.is_terminal() && !_after_return) text += '\r';
    text += c;
    if (c == '\r' && _in.is_terminal()) text += '\0';
    _after_return = c == '\r';
  }
  _telnet.Send(text.data(), text.size());
  WriteToHost();
}

// Reads on from the operator once all that was typed is sent.
void AttachClient::WriteToHost() {
  if (_writing) return;
  _sent = _telnet.TakeOutgoing();
  if (_sent.empty()) {
    if (_input_ended) {
      asio::error_code ignored;
      _socket.shutdown(asio::socket_base::shutdown_send, ignored);
    }
    ReadTyped();
    return;
  }
  _writing = true;
  asio::async_write(_socket, asio::buffer(_sent),
                    [this](const asio::error_code& error, std::size_t) {
                      _writing = false;
                      // Why the host takes no more shows where it is read.
                      if (!error) WriteToHost();
                    });
}

void AttachClient::EndInput() {
  _input_ended = true;
  // A terminal that ends is gone; a pipe's commands are still to be answered.
  if (_in.is_terminal()) {
    End(0);
  } else {
    WriteToHost();
  }
}

void AttachClient::AwaitSignal() {
  _signals.async_wait([this](const asio::error_code& error, int signal) {
    if (error) return;
    OnSignal(signal);
    AwaitSignal();
  });
}

void AttachClient::OnSignal(int signal) {
  if (signal != SIGWINCH && signal != SIGCONT) {
    End(128 + signal);  // as a shell reports a process that the signal ended
    return;
  }
  if (signal == SIGCONT) _raw_mode->Renew();
  _telnet.SetWindow(Window());
  WriteToHost();
}

void AttachClient::End(int status) {
  _status = status;
  _io.stop();
}

}  // namespace

int AttachToSocket(const std::string& path) { return AttachClient(path).Run(); }

}  // namespace olt_host
