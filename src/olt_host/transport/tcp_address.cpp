#include <asio/ip/address.hpp>
#include <stdexcept>
#include <string>

#include "text/number.h"
#include "transport/transports.h"

namespace olt_host {
namespace {

constexpr const char* kLoopback = "127.0.0.1";

[[noreturn]] void Fail(const std::string& text, const std::string& problem) {
  throw std::runtime_error("cannot listen on \"" + text + "\": " + problem +
                           "; expected PORT, ADDRESS:PORT or [IPV6-ADDRESS]:PORT");
}

unsigned short ReadPort(const std::string& text, const std::string& port) {
  unsigned int number = 0;
  if (!ReadNumber(port, number) || number > 65535) {
    Fail(text, "\"" + port + "\" is no port from 0 to 65535");
  }
  return static_cast<unsigned short>(number);
}

// Takes numbers only, so that starting never waits for a name server.
asio::ip::address ReadHost(const std::string& text, const std::string& host, bool in_brackets) {
  asio::error_code error;
  asio::ip::address address = asio::ip::make_address(host, error);
  if (error) Fail(text, "\"" + host + "\" is no numeric address");
  if (address.is_v6() && !in_brackets) Fail(text, "an IPv6 address stands in brackets");
  if (address.is_v4() && in_brackets) Fail(text, "only an IPv6 address stands in brackets");
  return address;
}

}  // namespace

TcpAddress ParseTcpAddress(const std::string& text) {
  TcpAddress result;
  result.host = kLoopback;
  const std::size_t colon = text.rfind(':');
  if (colon == std::string::npos) {
    result.port = ReadPort(text, text);
    return result;
  }
  std::string host = text.substr(0, colon);
  const bool in_brackets = host.size() >= 2 && host.front() == '[' && host.back() == ']';
  if (in_brackets) host = host.substr(1, host.size() - 2);
  if (host == "localhost") host = kLoopback;
  const asio::ip::address address = ReadHost(text, host, in_brackets);
  result.host = address.to_string();
  result.port = ReadPort(text, text.substr(colon + 1));
  result.is_loopback = address.is_loopback();
  return result;
}

}  // namespace olt_host
