#include "transport/metrics_server.h"

#include <utility>

namespace olt_host {

MetricsServer::MetricsServer(asio::io_context& io, std::shared_ptr<Mailbox> mailbox,
                             MetricsSource source)
    : _io(io), _mailbox(std::move(mailbox)), _source(std::move(source)) {}

void MetricsServer::Serve(ClientSocket client) {
  if (_clients.size() >= kMostClients) {
    // It takes itself out of the list.
    const std::shared_ptr<MetricsConnection> oldest = _clients.front();
    oldest->Close();
  }
  const auto connection =
      std::make_shared<MetricsConnection>(_io, std::move(client), _mailbox, _source);
  const Clients::iterator place = _clients.insert(_clients.end(), connection);
  connection->Start([this, place] { _clients.erase(place); });
}

void MetricsServer::CloseAll() {
  while (!_clients.empty()) {
    const std::shared_ptr<MetricsConnection> oldest = _clients.front();
    oldest->Close();
  }
}

}  // namespace olt_host
