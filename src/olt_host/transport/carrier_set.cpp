#include "transport/carrier_set.h"

#include <utility>

namespace olt_host {

CarrierSet::CarrierSet(SessionServer& sessions, std::shared_ptr<Mailbox> mailbox)
    : _sessions(sessions), _mailbox(std::move(mailbox)) {}

void CarrierSet::Serve(const std::shared_ptr<Carrier>& carrier,
                       const std::shared_ptr<Channel>& channel, const SessionOrigin& origin) {
  const std::weak_ptr<Carrier> weak = carrier;
  // The session's last act, on its own thread.
  const auto ended = [this, weak, mailbox = _mailbox] {
    mailbox->Post([this, weak] {
      if (const std::shared_ptr<Carrier> ended_one = weak.lock()) SessionEnded(ended_one);
    });
  };
  carrier->ListenToChannel(_mailbox);
  const bool has_session = _sessions.Start(channel, origin, ended);
  _carriers.insert(carrier);
  carrier->Start([this, weak] {
    if (const std::shared_ptr<Carrier> gone = weak.lock()) Forget(gone);
  });
  if (!has_session) SessionEnded(carrier);
}

void CarrierSet::SessionEnded(const std::shared_ptr<Carrier>& carrier) {
  if (_carriers.count(carrier) == 0) return;
  _lingering.push_back(carrier);
  carrier->SessionEnded();
  if (_lingering.size() <= kMostLingering) return;
  const std::shared_ptr<Carrier> oldest = _lingering.front().lock();
  _lingering.pop_front();
  if (oldest) oldest->Abort();
}

void CarrierSet::Forget(const std::shared_ptr<Carrier>& carrier) {
  _carriers.erase(carrier);
  _lingering.remove_if([&carrier](const std::weak_ptr<Carrier>& lingering) {
    const std::shared_ptr<Carrier> other = lingering.lock();
    return !other || other == carrier;
  });
  if (_carriers.empty() && _when_empty) _when_empty();
}

void CarrierSet::WhenEmpty(std::function<void()> empty) {
  _when_empty = std::move(empty);
  if (_carriers.empty() && _when_empty) _when_empty();
}

void CarrierSet::AbortAll() {
  while (!_carriers.empty()) {
    const std::shared_ptr<Carrier> carrier = *_carriers.begin();
    carrier->Abort();
    _carriers.erase(carrier);
  }
}

}  // namespace olt_host
