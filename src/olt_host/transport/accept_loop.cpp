#include "transport/accept_loop.h"

#include <asio/error.hpp>
#include <exception>
#include <utility>

#include "platform/log_sink.h"

namespace olt_host {
namespace {

constexpr unsigned int kLogLevel = 1;

}  // namespace

AcceptLoop::AcceptLoop(Acceptor acceptor, std::string name, std::function<void(ClientSocket)> serve)
    : _acceptor(std::move(acceptor)),
      _pause(_acceptor.get_executor()),
      _name(std::move(name)),
      _serve(std::move(serve)) {}

void AcceptLoop::Stop() {
  asio::error_code ignored;
  _acceptor.close(ignored);
  _pause.cancel();
}

void AcceptLoop::Accept() {
  _acceptor.async_accept([this](const asio::error_code& error, ClientSocket client) {
    OnAccepted(error, std::move(client));
  });
}

void AcceptLoop::OnAccepted(const asio::error_code& error, ClientSocket client) {
  if (error == asio::error::operation_aborted) return;
  if (!error) {
    _is_failing = false;
    Serve(std::move(client));
    Accept();
    return;
  }
  // Mostly a lack of descriptors: the client stays where it is and would be
  // reported again at once.
  if (!std::exchange(_is_failing, true)) {
    LogHostLine(kLogLevel, _name + ": no connection can be taken: " + error.message());
  }
  _pause.expires_after(kPause);
  _pause.async_wait([this](const asio::error_code& cancelled) {
    if (!cancelled) Accept();
  });
}

void AcceptLoop::Serve(ClientSocket client) {
  try {
    _serve(std::move(client));
  } catch (const std::exception& problem) {
    LogHostLine(kLogLevel, _name + ": a connection cannot be served: " + problem.what());
  }
}

}  // namespace olt_host
