// Everything that is carried, so that it can be counted and dropped. Streams
// whose session is over, refused ones included, linger a moment to hear the last
// words; no more than so many may, so that clients that never read cost nothing.
//
// For the carrying thread, and before it starts for the one that sets up.
#ifndef OLT_HOST_TRANSPORT_CARRIER_SET_H
#define OLT_HOST_TRANSPORT_CARRIER_SET_H

#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <set>

#include "session/session_server.h"
#include "transport/carrier.h"
#include "transport/mailbox.h"

namespace olt_host {

class CarrierSet {
 public:
  static constexpr std::size_t kMostLingering = 64;

  // Both must outlive the set.
  CarrierSet(SessionServer& sessions, std::shared_ptr<Mailbox> mailbox);
  CarrierSet(const CarrierSet&) = delete;
  CarrierSet& operator=(const CarrierSet&) = delete;

  // Starts a session that this carrier serves; `channel` is the carrier's.
  void Serve(const std::shared_ptr<Carrier>& carrier, const std::shared_ptr<Channel>& channel,
             const SessionOrigin& origin);

  // Calls `empty` as soon as nothing is carried, which may be at once. An empty
  // function takes the wish back.
  void WhenEmpty(std::function<void()> empty);
  void AbortAll();

 private:
  void SessionEnded(const std::shared_ptr<Carrier>& carrier);
  void Forget(const std::shared_ptr<Carrier>& carrier);

  SessionServer& _sessions;
  const std::shared_ptr<Mailbox> _mailbox;
  std::set<std::shared_ptr<Carrier>> _carriers;
  std::list<std::weak_ptr<Carrier>> _lingering;  // the oldest first
  std::function<void()> _when_empty;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_CARRIER_SET_H
