// The clients that ask for the metrics, at most so many at once.
//
// For the carrying thread, and before it starts for the one that sets up.
#ifndef OLT_HOST_TRANSPORT_METRICS_SERVER_H
#define OLT_HOST_TRANSPORT_METRICS_SERVER_H

#include <cstddef>
#include <list>
#include <memory>

#include "transport/metrics_connection.h"

namespace olt_host {

class MetricsServer {
 public:
  // The oldest goes when one more comes: clients that just hold their connections must not
  // keep others out.
  static constexpr std::size_t kMostClients = 16;

  // `io` must outlive the server.
  MetricsServer(asio::io_context& io, std::shared_ptr<Mailbox> mailbox, MetricsSource source);
  MetricsServer(const MetricsServer&) = delete;
  MetricsServer& operator=(const MetricsServer&) = delete;
  ~MetricsServer() { CloseAll(); }

  void Serve(ClientSocket client);
  void CloseAll();

 private:
  using Clients = std::list<std::shared_ptr<MetricsConnection>>;

  asio::io_context& _io;
  const std::shared_ptr<Mailbox> _mailbox;
  const MetricsSource _source;
  Clients _clients;  // the oldest first
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_METRICS_SERVER_H
