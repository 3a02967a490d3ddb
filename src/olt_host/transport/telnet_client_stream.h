// The operator's end of a telnet conversation with the host: tells type and size
// of the terminal, and collects what the host says.
//
// For one thread.
#ifndef OLT_HOST_TRANSPORT_TELNET_CLIENT_STREAM_H
#define OLT_HOST_TRANSPORT_TELNET_CLIENT_STREAM_H

#include <string>
#include <utility>

#include "session/channel.h"
#include "transport/telnet_stream.h"

namespace olt_host {

class TelnetClientStream final : public TelnetStream {
 public:
  TelnetClientStream(std::string terminal_type, Channel::Window window);

  // Sent now or as soon as the host asks.
  void SetWindow(Channel::Window window);

  // Whether the host knows the type of the terminal, the last thing that it asks for.
  bool has_told_type() const { return _has_told_type; }

  // What the host said since the last call.
  std::string TakePrinted() { return std::exchange(_printed, std::string()); }

 private:
  void OnData(const char* bytes, std::size_t length) override { _printed.append(bytes, length); }
  void OnDo(unsigned char option) override;
  void OnSubnegotiation(unsigned char option, const std::string& bytes) override;
  void SendWindow();

  const std::string _terminal_type;
  Channel::Window _window;
  bool _may_send_window = false;
  bool _has_told_type = false;
  std::string _printed;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TELNET_CLIENT_STREAM_H
