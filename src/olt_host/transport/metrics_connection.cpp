#include "transport/metrics_connection.h"

#include <asio/buffer.hpp>
#include <asio/error.hpp>
#include <asio/read_until.hpp>
#include <asio/write.hpp>
#include <utility>

namespace olt_host {
namespace {

constexpr const char* kPath = "/metrics";
constexpr const char* kContentType = "text/plain; version=0.0.4; charset=utf-8";

}  // namespace

MetricsConnection::MetricsConnection(asio::io_context& io, ClientSocket socket,
                                     std::shared_ptr<Mailbox> mailbox, MetricsSource source)
    : _socket(std::move(socket)),
      _patience(io),
      _mailbox(std::move(mailbox)),
      _source(std::move(source)) {}

void MetricsConnection::Start(std::function<void()> gone) {
  _when_gone = std::move(gone);
  _patience.expires_after(kPatience);
  _patience.async_wait([weak = weak_from_this()](const asio::error_code& error) {
    const std::shared_ptr<MetricsConnection> self = weak.lock();
    if (!error && self) self->Close();
  });
  Read();
}

void MetricsConnection::Read() {
  asio::async_read_until(
      _socket, asio::dynamic_buffer(_head, kMostRequestBytes), "\r\n\r\n",
      [self = shared_from_this()](const asio::error_code& error, std::size_t /*length*/) {
        self->OnHead(error);
      });
}

void MetricsConnection::OnHead(const asio::error_code& error) {
  if (_is_closed) return;
  HttpRequest request;
  // asio's name for a full buffer without the end of the header.
  if (error == asio::error::not_found) {
    request.status = HttpStatus::kHeadTooLong;
  } else if (error) {
    Close();
    return;
  } else {
    request = ReadHttpRequest(_head, kPath);
  }
  if (request.status == HttpStatus::kOk) {
    Fetch(request);
  } else {
    Answer(request, "");
  }
}

void MetricsConnection::Fetch(const HttpRequest& request) {
  // Whoever makes the text may be busy until nobody waits for it any more.
  _source([mailbox = _mailbox, weak = weak_from_this(), request](std::string text) {
    mailbox->Post([weak, request, text = std::move(text)] {
      if (const std::shared_ptr<MetricsConnection> self = weak.lock()) self->Answer(request, text);
    });
  });
}

void MetricsConnection::Answer(const HttpRequest& request, const std::string& text) {
  if (_is_closed) return;
  _answer = HttpAnswer(request, kPath, kContentType, text);
  asio::async_write(_socket, asio::buffer(_answer),
                    [self = shared_from_this()](const asio::error_code& /*error*/,
                                                std::size_t /*length*/) { self->Close(); });
}

void MetricsConnection::Close() {
  if (std::exchange(_is_closed, true)) return;
  _patience.cancel();
  asio::error_code ignored;
  _socket.close(ignored);
  if (_when_gone) _when_gone();
}

}  // namespace olt_host
