#include "transport/telnet_server_stream.h"

#include <algorithm>

namespace olt_host {
namespace {

// The host echoes and edits, so the client is to send each key at once. Binary
// is not asked for, but granted: text of more than 7 bits passes either way.
const telnet_telopt_t kOptions[] = {
    {TELNET_TELOPT_ECHO, TELNET_WILL, TELNET_DONT},
    {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_BINARY, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_NAWS, TELNET_WONT, TELNET_DO},
    {-1, 0, 0},
};

constexpr char kInterruptKey = '\x03';
constexpr char kEndOfInputKey = '\x04';
constexpr char kEraseKey = '\x08';
constexpr char kKillLineKey = '\x15';
constexpr const char* kPresence = "\r\n[olt_host: yes]\r\n";

// Line editors reserve memory for every place of the screen.
constexpr unsigned int kMostColumns = 1024;
constexpr unsigned int kMostRows = 512;

unsigned int Number16(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned int>(static_cast<unsigned char>(bytes[at])) << 8U |
         static_cast<unsigned char>(bytes[at + 1]);
}

}  // namespace

TelnetServerStream::TelnetServerStream(Channel& channel)
    : TelnetStream(kOptions), _channel(channel) {}

void TelnetServerStream::Negotiate() {
  telnet_negotiate(telnet(), TELNET_DO, TELNET_TELOPT_NAWS);
  telnet_negotiate(telnet(), TELNET_WILL, TELNET_TELOPT_ECHO);
  telnet_negotiate(telnet(), TELNET_WILL, TELNET_TELOPT_SGA);
  telnet_negotiate(telnet(), TELNET_DO, TELNET_TELOPT_SGA);
}

void TelnetServerStream::OnData(const char* bytes, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i) {
    const char c = bytes[i];
    // The enter key travels as CR LF or CR NUL; the session sees CR.
    const bool belongs_to_return = _after_return && (c == '\n' || c == '\0');
    _after_return = c == '\r';
    if (!belongs_to_return) _typed += c;
  }
}

void TelnetServerStream::OnCommand(unsigned char command) {
  switch (command) {
    case TELNET_IP:
    case TELNET_BREAK:
    case TELNET_ABORT:
      _typed += kInterruptKey;
      break;
    case TELNET_EOF:
      _typed += kEndOfInputKey;
      break;
    case TELNET_EC:
      _typed += kEraseKey;
      break;
    case TELNET_EL:
      _typed += kKillLineKey;
      break;
    case TELNET_AYT:
      Send(kPresence, std::char_traits<char>::length(kPresence));
      break;
    default:
      break;
  }
}

void TelnetServerStream::OnSubnegotiation(unsigned char option, const std::string& bytes) {
  if (option == TELNET_TELOPT_NAWS) TakeWindow(bytes);
}

void TelnetServerStream::TakeWindow(const std::string& bytes) {
  if (bytes.size() != 4) return;
  const unsigned int columns = Number16(bytes, 0);
  const unsigned int rows = Number16(bytes, 2);
  Channel::Window window;
  window.rows = 0;
  if (columns > 0) window.columns = std::min(columns, kMostColumns);
  if (columns > 0 && rows > 0) window.rows = std::min(rows, kMostRows);
  _channel.SetWindow(window);
}

}  // namespace olt_host
