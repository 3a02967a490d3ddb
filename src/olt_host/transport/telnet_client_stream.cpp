#include "transport/telnet_client_stream.h"

#include <algorithm>

namespace olt_host {
namespace {

const telnet_telopt_t kOptions[] = {
    {TELNET_TELOPT_ECHO, TELNET_WONT, TELNET_DO},   {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_BINARY, TELNET_WILL, TELNET_DO}, {TELNET_TELOPT_TTYPE, TELNET_WILL, TELNET_DONT},
    {TELNET_TELOPT_NAWS, TELNET_WILL, TELNET_DONT}, {-1, 0, 0},
};

void Append16(std::string& bytes, unsigned int number) {
  const unsigned int sent = std::min(number, 65535U);
  bytes += static_cast<char>(sent >> 8U);
  bytes += static_cast<char>(sent & 0xFFU);
}

}  // namespace

TelnetClientStream::TelnetClientStream(std::string terminal_type, Channel::Window window)
    : TelnetStream(kOptions), _terminal_type(std::move(terminal_type)), _window(window) {}

void TelnetClientStream::SetWindow(Channel::Window window) {
  _window = window;
  if (_may_send_window) SendWindow();
}

void TelnetClientStream::OnDo(unsigned char option) {
  if (option != TELNET_TELOPT_NAWS) return;
  _may_send_window = true;
  SendWindow();
}

void TelnetClientStream::OnSubnegotiation(unsigned char option, const std::string& bytes) {
  if (option != TELNET_TELOPT_TTYPE || bytes.empty() || bytes.front() != TELNET_TTYPE_SEND) return;
  telnet_ttype_is(telnet(), _terminal_type.c_str());
  _has_told_type = true;
}

void TelnetClientStream::SendWindow() {
  std::string bytes;
  Append16(bytes, _window.columns);
  Append16(bytes, _window.rows);
  telnet_subnegotiation(telnet(), TELNET_TELOPT_NAWS, bytes.data(), bytes.size());
}

}  // namespace olt_host
