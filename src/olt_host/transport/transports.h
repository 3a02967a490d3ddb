// The ways to this process's operator sessions: its own terminal, a Unix socket,
// TCP. One thread carries the bytes of all of them; it never waits for a client,
// for a session or for the library.
#ifndef OLT_HOST_TRANSPORT_TRANSPORTS_H
#define OLT_HOST_TRANSPORT_TRANSPORTS_H

#include <functional>
#include <memory>
#include <string>

#include "session/session_server.h"

namespace olt_host {

// Where TCP sessions are taken: "127.0.0.1:2323", "[::1]:2323", "0.0.0.0:2323",
// or a port alone, which is bound to 127.0.0.1.
struct TcpAddress {
  std::string host;
  unsigned short port = 0;  // 0: any free one
  bool is_loopback = true;
};
// Throws std::runtime_error, saying what was expected.
TcpAddress ParseTcpAddress(const std::string& text);

// Makes the text of the metrics and gives it to `ready`, once, now or later and on any
// thread, or not at all. Called on the carrying thread, so it must not wait.
using MetricsSource = std::function<void(std::function<void(std::string text)> ready)>;

class Transports {
 public:
  // Carries nothing yet. Keeps the signals that it takes (see below, and those of
  // the terminal) from this thread and those that it starts, until it is destroyed
  // on this thread.
  explicit Transports(SessionServer& sessions);
  // Ends all sessions, gives their clients a second to take the last words, and
  // stops carrying; removes the sockets that it made.
  ~Transports();
  Transports(const Transports&) = delete;
  Transports& operator=(const Transports&) = delete;

  // Takes sessions on a Unix socket at `path`, mode 0660. A socket that nobody
  // serves any more is replaced; a served one, and any other file, is left alone
  // and refused. Throws std::runtime_error.
  void ListenUnix(const std::string& path);

  // Takes telnet sessions; with `must_log_in`, after a login. Outside loopback
  // that is required. Throws std::runtime_error. Returns the port.
  unsigned short ListenTcp(const TcpAddress& address, bool must_log_in);

  // Answers GET /metrics of HTTP/1 with the text of `source` on a Unix socket at `path`, a
  // request a connection. The file is like that of ListenUnix. Throws std::runtime_error.
  void ListenMetrics(const std::string& path, MetricsSource source);

  // A session on the terminal of this process (standard input and output), which
  // is in raw mode until `ended` is called, on whatever thread; after a stop signal
  // too, and at the latest by the destructor.
  void OpenTerminal(const std::string& user, std::function<void()> ended);

  // Calls `stop` once, on some thread, when SIGINT, SIGTERM or SIGHUP arrives.
  void OnStopSignal(std::function<void()> stop);

  // Starts carrying, on a thread of its own. Call it last.
  void Start();

 private:
  struct Impl;
  std::unique_ptr<Impl> _impl;
};

// Joins the terminal (or pipe) of this process to the session behind a Unix
// socket until either ends. Returns the exit status; throws std::runtime_error
// when nobody serves the socket.
int AttachToSocket(const std::string& path);

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TRANSPORTS_H
