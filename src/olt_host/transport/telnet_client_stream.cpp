#include "transport/telnet_client_stream.h"

#include <algorithm>

namespace olt_host {
namespace {

const telnet_telopt_t kOptions[] = {
    {TELNET_TELOPT_ECHO, TELNET_WONT, TELNET_DO},
    {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_BINARY, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_NAWS, TELNET_WILL, TELNET_DONT},
    {-1, 0, 0},
};

void Append16(std::string& bytes, unsigned int number) {
  const unsigned int sent = std::min(number, 65535U);
  bytes += static_cast<char>(sent >> 8U);
  bytes += static_cast<char>(sent & 0xFFU);
}

}  // namespace

TelnetClientStream::TelnetClientStream(Channel::Window window)
    : TelnetStream(kOptions), _window(window) {}

void TelnetClientStream::SetWindow(Channel::Window window) {
  _window = window;
  if (_may_send_window) SendWindow();
}

void TelnetClientStream::OnDo(unsigned char option) {
  if (option != TELNET_TELOPT_NAWS) return;
  _may_send_window = true;
  SendWindow();
}

void TelnetClientStream::SendWindow() {
  std::string bytes;
  Append16(bytes, _window.columns);
  Append16(bytes, _window.rows);
  telnet_subnegotiation(telnet(), TELNET_TELOPT_NAWS, bytes.data(), bytes.size());
}

}  // namespace olt_host
