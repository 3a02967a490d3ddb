// The host's end of a telnet conversation. What the client negotiates goes to
// the session's channel; what its operator types is collected, until the owner
// takes it to the channel as room allows.
//
// Works as well with a client that negotiates nothing. For one thread.
#ifndef OLT_HOST_TRANSPORT_TELNET_SERVER_STREAM_H
#define OLT_HOST_TRANSPORT_TELNET_SERVER_STREAM_H

#include <string>

#include "session/channel.h"
#include "transport/telnet_stream.h"

namespace olt_host {

class TelnetServerStream final : public TelnetStream {
 public:
  // `channel` must outlive the object.
  explicit TelnetServerStream(Channel& channel);

  // Asks for all that a line editor needs: character mode and the size of the
  // terminal. Not for its type: sessions write what every terminal understands.
  void Negotiate();

  // What the operator typed and the channel has not taken yet.
  std::string& typed() { return _typed; }

 private:
  void OnData(const char* bytes, std::size_t length) override;
  void OnCommand(unsigned char command) override;
  void OnSubnegotiation(unsigned char option, const std::string& bytes) override;
  void TakeWindow(const std::string& bytes);

  Channel& _channel;
  std::string _typed;
  bool _after_return = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TELNET_SERVER_STREAM_H
