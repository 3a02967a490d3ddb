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

// Finds "IAC WONT OPTION" in the bytes of the wire. libtelnet keeps to itself that
// an option it asked for was refused.
class RefusalWatch {
 public:
  explicit RefusalWatch(unsigned char option) : _option(option) {}

  // Whether the option was refused in these bytes, which follow those before.
  bool Sees(const char* bytes, std::size_t length);

 private:
  enum class State { kData, kCommand, kRefusedOption, kOtherOption, kSubnegotiation, kInside };
  State After(unsigned char byte) const;

  const unsigned char _option;
  State _state = State::kData;
};

class TelnetServerStream final : public TelnetStream {
 public:
  // `channel` must outlive the object.
  explicit TelnetServerStream(Channel& channel);

  // Asks for all that a line editor needs: character mode, type and size of the
  // terminal.
  void Negotiate();
  void ReceiveFromClient(const char* bytes, std::size_t length);

  // The client will send nothing more, not even the type of its terminal.
  void EndOfClient();

  // What the operator typed and the channel has not taken yet.
  std::string& typed() { return _typed; }

 private:
  void OnData(const char* bytes, std::size_t length) override;
  void OnCommand(unsigned char command) override;
  void OnWill(unsigned char option) override;
  void OnSubnegotiation(unsigned char option, const std::string& bytes) override;
  void SetTerminalType(const std::string& type);
  void TakeTerminalType(const std::string& bytes);
  void TakeWindow(const std::string& bytes);

  Channel& _channel;
  RefusalWatch _terminal_type_refusal;
  bool _type_is_known = false;
  std::string _typed;
  bool _after_return = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TELNET_SERVER_STREAM_H
