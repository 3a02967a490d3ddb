// One end of a telnet conversation: turns bytes of the wire into what was typed
// or printed, and back, and tells a derived class what the other end negotiates.
// Knows nothing of sockets; whoever owns it moves the bytes.
//
// For one thread. The other end is not trusted: what it can make this one hold
// is bounded, and once it goes beyond, broken() is true, all further bytes are
// ignored, and the connection is to be dropped.
#ifndef OLT_HOST_TRANSPORT_TELNET_STREAM_H
#define OLT_HOST_TRANSPORT_TELNET_STREAM_H

#include <cstddef>  // before libtelnet.h, which lacks it

#include <libtelnet.h>

#include <memory>
#include <string>

namespace olt_host {

class TelnetStream {
 public:
  // Answers to negotiation that the other end has not taken yet, in bytes.
  static constexpr std::size_t kMostUnsentAnswers = 64U << 10U;
  static constexpr unsigned int kMostMalformedRequests = 16;

  // `options` ends with an entry for option -1 and outlives the object.
  explicit TelnetStream(const telnet_telopt_t* options);
  TelnetStream(const TelnetStream&) = delete;
  TelnetStream& operator=(const TelnetStream&) = delete;
  virtual ~TelnetStream();

  // Bytes that came over the wire.
  void Receive(const char* bytes, std::size_t length);
  // Data for the other end.
  void Send(const char* bytes, std::size_t length);
  // What is to go over the wire next.
  std::string TakeOutgoing();

  bool broken() const { return _broken; }

 protected:
  virtual void OnData(const char* bytes, std::size_t length) = 0;
  // IAC and one of the commands that stand alone.
  virtual void OnCommand(unsigned char /*command*/) {}
  // The other end wants what the option stands for, and this one agreed.
  virtual void OnDo(unsigned char /*option*/) {}
  virtual void OnSubnegotiation(unsigned char /*option*/, const std::string& /*bytes*/) {}

  telnet_t* telnet() { return _telnet.get(); }

 private:
  static void OnEvent(telnet_t* telnet, telnet_event_t* event, void* self);
  void Handle(const telnet_event_t& event);

  std::unique_ptr<telnet_t, void (*)(telnet_t*)> _telnet;
  std::string _outgoing;
  unsigned int _malformed_requests = 0;
  bool _broken = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TELNET_STREAM_H
