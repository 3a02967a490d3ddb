// The operator's end of a telnet conversation with the host: tells the size of
// the terminal, and collects what the host says.
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
  explicit TelnetClientStream(Channel::Window window);

  // Sent now or as soon as the host asks.
  void SetWindow(Channel::Window window);

  // Whether the host knows the size.
  bool has_told_window() const { return _may_send_window; }

  // What the host said since the last call.
  std::string TakePrinted() { return std::exchange(_printed, std::string()); }

 private:
  void OnData(const char* bytes, std::size_t length) override { _printed.append(bytes, length); }
  void OnDo(unsigned char option) override;
  void SendWindow();

  Channel::Window _window;
  bool _may_send_window = false;
  std::string _printed;
};

}  // namespace olt_host

#endif  // OLT_HOST_TRANSPORT_TELNET_CLIENT_STREAM_H
