#include "transport/transports.h"

#include <pthread.h>

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/signal_set.hpp>
#include <chrono>
#include <csignal>
#include <exception>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "platform/log_sink.h"
#include "transport/accept_loop.h"
#include "transport/carrier_set.h"
#include "transport/mailbox.h"
#include "transport/metrics_server.h"
#include "transport/tcp_listener.h"
#include "transport/telnet_connection.h"
#include "transport/terminal_stream.h"
#include "transport/unix_listener.h"

namespace olt_host {
namespace {

constexpr unsigned int kLogLevel = 0;
// How long the end of the process waits for clients to take the last words.
constexpr std::chrono::seconds kLastWords{1};

// Keeps the signals that the transports listen to from threads that start while
// it lives, and so from interrupting what they do. The carrying thread takes them.
class SignalsElsewhere {
 public:
  SignalsElsewhere() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGWINCH, SIGCONT}) {
      sigaddset(&signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals, &_before);
  }
  ~SignalsElsewhere() { pthread_sigmask(SIG_SETMASK, &_before, nullptr); }
  SignalsElsewhere(const SignalsElsewhere&) = delete;
  SignalsElsewhere& operator=(const SignalsElsewhere&) = delete;

  void TakeHere() const { pthread_sigmask(SIG_SETMASK, &_before, nullptr); }

 private:
  sigset_t _before{};
};

}  // namespace

struct Transports::Impl {
  explicit Impl(SessionServer& session_server)
      : sessions(session_server), carriers(session_server, mailbox) {}

  void Serve(ClientSocket client, const SessionOrigin& origin);
  void Carry();
  void Stop();

  SignalsElsewhere signals_elsewhere;
  SessionServer& sessions;
  asio::io_context io{1};
  std::shared_ptr<Mailbox> mailbox = std::make_shared<Mailbox>(io);
  CarrierSet carriers;
  std::vector<std::unique_ptr<MetricsServer>> metrics_servers;
  std::vector<std::unique_ptr<UnixListener>> unix_listeners;
  std::vector<std::unique_ptr<AcceptLoop>> accept_loops;
  asio::signal_set stop_signals{io};
  asio::steady_timer last_words{io};
  std::thread thread;
};

void Transports::Impl::Serve(ClientSocket client, const SessionOrigin& origin) {
  const auto channel = std::make_shared<Channel>();
  carriers.Serve(std::make_shared<TelnetConnection>(io, std::move(client), channel), channel,
                 origin);
}

void Transports::Impl::Carry() {
  signals_elsewhere.TakeHere();
  const asio::executor_work_guard<asio::io_context::executor_type> work(io.get_executor());
  while (!io.stopped()) {
    try {
      io.run();
    } catch (const std::exception& problem) {
      // One operation's failure must not end the others.
      LogHostLine(kLogLevel, std::string("a connection failed: ") + problem.what());
    }
  }
}

// On the carrying thread: takes no more clients, and ends it when those there are
// have got the last words of their sessions.
void Transports::Impl::Stop() {
  for (const std::unique_ptr<AcceptLoop>& loop : accept_loops) loop->Stop();
  for (const std::unique_ptr<MetricsServer>& metrics : metrics_servers) metrics->CloseAll();
  last_words.expires_after(kLastWords);
  last_words.async_wait([this](const asio::error_code& error) {
    if (!error) io.stop();
  });
  carriers.WhenEmpty([this] { io.stop(); });
}

Transports::Transports(SessionServer& sessions) : _impl(std::make_unique<Impl>(sessions)) {}

Transports::~Transports() {
  // A file goes while its socket still listens, so that it is surely this one's.
  _impl->unix_listeners.clear();
  if (_impl->thread.joinable()) {
    _impl->sessions.CloseAll("");
    _impl->mailbox->Post([impl = _impl.get()] { impl->Stop(); });
    _impl->thread.join();
  }
  _impl->mailbox->Close();
  _impl->carriers.WhenEmpty({});
  _impl->carriers.AbortAll();
}

void Transports::ListenUnix(const std::string& path) {
  auto listener = std::make_unique<UnixListener>(_impl->io, path);
  _impl->accept_loops.push_back(std::make_unique<AcceptLoop>(
      listener->TakeAcceptor(), path, [impl = _impl.get()](ClientSocket client) {
        const SessionOrigin origin = UnixClientOrigin(client);
        impl->Serve(std::move(client), origin);
      }));
  _impl->unix_listeners.push_back(std::move(listener));
}

void Transports::ListenMetrics(const std::string& path, MetricsSource source) {
  auto listener = std::make_unique<UnixListener>(_impl->io, path);
  _impl->metrics_servers.push_back(
      std::make_unique<MetricsServer>(_impl->io, _impl->mailbox, std::move(source)));
  _impl->accept_loops.push_back(std::make_unique<AcceptLoop>(
      listener->TakeAcceptor(), path,
      [metrics = _impl->metrics_servers.back().get()](ClientSocket client) {
        metrics->Serve(std::move(client));
      }));
  _impl->unix_listeners.push_back(std::move(listener));
}

unsigned short Transports::ListenTcp(const TcpAddress& address, bool must_log_in) {
  const std::string place = TcpPlace(address.host, address.port);
  if (!address.is_loopback && !must_log_in) {
    throw std::runtime_error("cannot listen on " + place +
                             ": an address that other machines reach needs a password file");
  }
  TcpListener listener = ListenOnTcp(_impl->io, address);
  _impl->accept_loops.push_back(std::make_unique<AcceptLoop>(
      std::move(listener.acceptor), place, [impl = _impl.get(), must_log_in](ClientSocket client) {
        const SessionOrigin origin = PrepareTcpClient(client, must_log_in);
        impl->Serve(std::move(client), origin);
      }));
  return listener.port;
}

void Transports::OpenTerminal(const std::string& user, std::function<void()> ended) {
  const auto channel = std::make_shared<Channel>();
  SessionOrigin origin;
  origin.user = user;
  origin.origin = "console";
  _impl->carriers.Serve(std::make_shared<TerminalStream>(_impl->io, channel, std::move(ended)),
                        channel, origin);
}

void Transports::OnStopSignal(std::function<void()> stop) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) _impl->stop_signals.add(signal);
  // Once: those that follow are swallowed, as the process is on its way out.
  _impl->stop_signals.async_wait([stop = std::move(stop)](const asio::error_code& error, int) {
    if (!error) stop();
  });
}

void Transports::Start() {
  std::signal(SIGPIPE, SIG_IGN);
  for (const std::unique_ptr<AcceptLoop>& loop : _impl->accept_loops) loop->Start();
  _impl->thread = std::thread([impl = _impl.get()] { impl->Carry(); });
}

}  // namespace olt_host
