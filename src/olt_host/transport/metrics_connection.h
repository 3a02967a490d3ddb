// One client that asks for the metrics: reads its request, gets the text, answers, closes.
//
// On the carrying thread, in a shared_ptr that its operations and the metrics server keep.
#ifndef OLT_HOST_TRANSPORT_METRICS_CONNECTION_H
#define OLT_HOST_TRANSPORT_METRICS_CONNECTION_H

#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "transport/http_request.h"
#include "transport/mailbox.h"
#include "transport/telnet_connection.h"
#include "transport/transports.h"

namespace olt_host {

class MetricsConnection : public std::enable_shared_from_this<MetricsConnection> {
 public:
  // A longer request is refused.
  static constexpr std::size_t kMostRequestBytes = 8192;
  // For the whole of it, from the first byte of the request to the last of the answer.
  static constexpr std::chrono::seconds kPatience{10};

  MetricsConnection(asio::io_context& io, ClientSocket socket, std::shared_ptr<Mailbox> mailbox,
                    MetricsSource source);
  MetricsConnection(const MetricsConnection&) = delete;
  MetricsConnection& operator=(const MetricsConnection&) = delete;

  // `gone` is called once, when the connection is closed.
  void Start(std::function<void()> gone);
  void Close();

 private:
  void Read();
  void OnHead(const asio::error_code& error);
  void Fetch(const HttpRequest& request);
  void Answer(const HttpRequest& request, const std::string& text);

  ClientSocket _socket;
  asio::steady_timer _patience;
  const std::shared_ptr<Mailbox> _mailbox;
  const MetricsSource _source;
  std::function<void()> _when_gone;
  std::string _head;
  std::string _answer;
  bool _is_closed = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_METRICS_CONNECTION_H
