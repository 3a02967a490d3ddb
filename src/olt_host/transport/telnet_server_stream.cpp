#include "transport/telnet_server_stream.h"

#include <algorithm>
#include <cctype>

namespace olt_host {
namespace {

// The host echoes and edits, so the client is to send each key at once. Binary
// is not asked for, but granted: text of more than 7 bits passes either way.
const telnet_telopt_t kOptions[] = {
    {TELNET_TELOPT_ECHO, TELNET_WILL, TELNET_DONT}, {TELNET_TELOPT_SGA, TELNET_WILL, TELNET_DO},
    {TELNET_TELOPT_BINARY, TELNET_WILL, TELNET_DO}, {TELNET_TELOPT_TTYPE, TELNET_WONT, TELNET_DO},
    {TELNET_TELOPT_NAWS, TELNET_WONT, TELNET_DO},   {-1, 0, 0},
};

constexpr char kInterruptKey = '\x03';
constexpr char kEndOfInputKey = '\x04';
constexpr char kEraseKey = '\x08';
constexpr char kKillLineKey = '\x15';
constexpr const char* kPresence = "\r\n[olt_host: yes]\r\n";

constexpr std::size_t kLongestTerminalType = 40;
// Line editors reserve memory for every place of the screen.
constexpr unsigned int kMostColumns = 1024;
constexpr unsigned int kMostRows = 512;

bool BelongsInTerminalType(unsigned char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '_' || c == '+' ||
         c == '-';
}

unsigned int Number16(const std::string& bytes, std::size_t at) {
  return static_cast<unsigned int>(static_cast<unsigned char>(bytes[at])) << 8U |
         static_cast<unsigned char>(bytes[at + 1]);
}

}  // namespace

bool RefusalWatch::Sees(const char* bytes, std::size_t length) {
  bool seen = false;
  for (std::size_t i = 0; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    seen = seen || (_state == State::kRefusedOption && byte == _option);
    _state = After(byte);
  }
  return seen;
}

RefusalWatch::State RefusalWatch::After(unsigned char byte) const {
  switch (_state) {
    case State::kData:
      return byte == TELNET_IAC ? State::kCommand : State::kData;
    case State::kCommand:
      if (byte == TELNET_WONT) return State::kRefusedOption;
      if (byte == TELNET_WILL || byte == TELNET_DO || byte == TELNET_DONT) {
        return State::kOtherOption;
      }
      return byte == TELNET_SB ? State::kSubnegotiation : State::kData;
    case State::kSubnegotiation:
      return byte == TELNET_IAC ? State::kInside : State::kSubnegotiation;
    case State::kInside:
      return byte == TELNET_IAC ? State::kSubnegotiation : State::kData;
    case State::kRefusedOption:
    case State::kOtherOption:
      break;
  }
  return State::kData;
}

TelnetServerStream::TelnetServerStream(Channel& channel)
    : TelnetStream(kOptions), _channel(channel), _terminal_type_refusal(TELNET_TELOPT_TTYPE) {}

void TelnetServerStream::Negotiate() {
  // The type comes first: the session waits for it.
  telnet_negotiate(telnet(), TELNET_DO, TELNET_TELOPT_TTYPE);
  telnet_negotiate(telnet(), TELNET_DO, TELNET_TELOPT_NAWS);
  telnet_negotiate(telnet(), TELNET_WILL, TELNET_TELOPT_ECHO);
  telnet_negotiate(telnet(), TELNET_WILL, TELNET_TELOPT_SGA);
  telnet_negotiate(telnet(), TELNET_DO, TELNET_TELOPT_SGA);
}

void TelnetServerStream::ReceiveFromClient(const char* bytes, std::size_t length) {
  if (_terminal_type_refusal.Sees(bytes, length)) SetTerminalType("");
  Receive(bytes, length);
}

void TelnetServerStream::EndOfClient() {
  if (!_type_is_known) SetTerminalType("");
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

void TelnetServerStream::OnWill(unsigned char option) {
  if (option == TELNET_TELOPT_TTYPE) telnet_ttype_send(telnet());
}

void TelnetServerStream::OnSubnegotiation(unsigned char option, const std::string& bytes) {
  if (option == TELNET_TELOPT_TTYPE) TakeTerminalType(bytes);
  if (option == TELNET_TELOPT_NAWS) TakeWindow(bytes);
}

void TelnetServerStream::TakeTerminalType(const std::string& bytes) {
  if (bytes.empty() || bytes.front() != TELNET_TTYPE_IS) return;
  std::string type = bytes.substr(1);
  std::transform(type.begin(), type.end(), type.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  // A name that cannot be one is no name; it would be looked up as a file.
  const bool fits = type.size() <= kLongestTerminalType &&
                    std::all_of(type.begin(), type.end(), BelongsInTerminalType);
  SetTerminalType(fits ? type : "");
}

void TelnetServerStream::SetTerminalType(const std::string& type) {
  _type_is_known = true;
  _channel.SetTerminalType(type);
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
