#include "transport/telnet_stream.h"

#include <new>
#include <utility>

namespace olt_host {

TelnetStream::TelnetStream(const telnet_telopt_t* options)
    : _telnet(telnet_init(options, &TelnetStream::OnEvent, 0, this), telnet_free) {
  if (_telnet == nullptr) throw std::bad_alloc();
}

TelnetStream::~TelnetStream() = default;

void TelnetStream::Receive(const char* bytes, std::size_t length) {
  if (_broken) return;
  telnet_recv(_telnet.get(), bytes, length);
  if (_outgoing.size() > kMostUnsentAnswers) _broken = true;
}

void TelnetStream::Send(const char* bytes, std::size_t length) {
  if (!_broken && length > 0) telnet_send(_telnet.get(), bytes, length);
}

std::string TelnetStream::TakeOutgoing() { return std::exchange(_outgoing, std::string()); }

void TelnetStream::OnEvent(telnet_t* /*telnet*/, telnet_event_t* event, void* self) {
  static_cast<TelnetStream*>(self)->Handle(*event);
}

void TelnetStream::Handle(const telnet_event_t& event) {
  if (_broken) return;
  switch (event.type) {
    case TELNET_EV_DATA:
      OnData(event.data.buffer, event.data.size);
      break;
    case TELNET_EV_SEND:
      _outgoing.append(event.data.buffer, event.data.size);
      break;
    case TELNET_EV_IAC:
      OnCommand(event.iac.cmd);
      break;
    case TELNET_EV_DO:
      OnDo(event.neg.telopt);
      break;
    case TELNET_EV_SUBNEGOTIATION:
      OnSubnegotiation(event.sub.telopt, event.sub.size > 0
                                             ? std::string(event.sub.buffer, event.sub.size)
                                             : std::string());
      break;
    case TELNET_EV_WARNING:
      // A request that is malformed or has no end; its bytes were dropped.
      _broken = ++_malformed_requests > kMostMalformedRequests;
      break;
    case TELNET_EV_COMPRESS:
      // Nobody agreed to compression, and a few bytes of it can stand for a million.
    case TELNET_EV_ERROR:
      _broken = true;
      break;
    default:
      break;
  }
}

}  // namespace olt_host
