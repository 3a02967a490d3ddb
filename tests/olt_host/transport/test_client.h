// A client of the transports as plain as a socket: it sends and receives bytes of
// the wire.
#ifndef TESTS_OLT_HOST_TRANSPORT_TEST_CLIENT_H
#define TESTS_OLT_HOST_TRANSPORT_TEST_CLIENT_H

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <stdexcept>
#include <string>
#include <utility>

#include "test_host.h"

namespace olt_host_test {

// The end of a text, fit for a message.
inline std::string Shown(const std::string& text) {
  constexpr std::size_t kShown = 400;
  return testing::PrintToString(text.size() > kShown ? "..." + text.substr(text.size() - kShown)
                                                     : text);
}

class TestClient {
 public:
  static TestClient Tcp(unsigned short port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return TestClient(AF_INET, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }
  static TestClient Unix(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return TestClient(AF_UNIX, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }
  TestClient(TestClient&& other) noexcept
      : _descriptor(std::exchange(other._descriptor, -1)), _unread(std::move(other._unread)) {}
  TestClient(const TestClient&) = delete;
  TestClient& operator=(const TestClient&) = delete;
  TestClient& operator=(TestClient&&) = delete;
  ~TestClient() { Close(); }

  // Sends all of the bytes, reading what comes meanwhile; false when the other end
  // is gone.
  bool Send(const std::string& bytes) {
    for (std::size_t sent = 0; sent < bytes.size();) {
      pollfd ready{_descriptor, POLLIN | POLLOUT, 0};
      if (poll(&ready, 1, kLimitMs) != 1) return false;
      if ((ready.revents & POLLOUT) != 0) {
        const ssize_t length = send(_descriptor, bytes.data() + sent, bytes.size() - sent,
                                    MSG_NOSIGNAL | MSG_DONTWAIT);
        if (length < 0 && errno != EAGAIN) return false;
        if (length > 0) sent += static_cast<std::size_t>(length);
      }
      if ((ready.revents & POLLIN) != 0 && !ReadMore()) return false;
    }
    return true;
  }

  // Sends as much as goes without reading anything; false when the other end is gone.
  bool Push(const std::string& bytes) {
    return send(_descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0 ||
           errno == EAGAIN;
  }

  // What came until `text`, that included; a failure without it.
  std::string Until(const std::string& text) {
    const auto limit = std::chrono::steady_clock::now() + kLimit;
    for (;;) {
      const std::size_t found = _unread.find(text);
      if (found != std::string::npos) {
        std::string seen = _unread.substr(0, found + text.size());
        _unread.erase(0, seen.size());
        return seen;
      }
      if (std::chrono::steady_clock::now() > limit || !ReadMore()) break;
    }
    ADD_FAILURE() << "no \"" << text << "\" in " << Shown(_unread);
    return std::exchange(_unread, std::string());
  }

  // What came until the other end closed; a failure when it does not.
  std::string UntilEnd() {
    const auto limit = std::chrono::steady_clock::now() + kLimit;
    while (ReadMore()) {
      if (std::chrono::steady_clock::now() > limit) {
        ADD_FAILURE() << "no end after " << Shown(_unread);
        break;
      }
    }
    return std::exchange(_unread, std::string());
  }

  // Announces a window; below 255 each.
  void TellWindow(unsigned char columns, unsigned char rows) {
    Send(std::string("\xff\xfb\x1f\xff\xfa\x1f\0", 7) + static_cast<char>(columns) + '\0' +
         static_cast<char>(rows) + "\xff\xf0");
  }
  // Runs a command that answers with its argument.
  void ExpectAnswer(const std::string& word) {
    Send("say " + word + "\r\n");
    Until("<" + word + ">");
  }

  void HalfClose() { shutdown(_descriptor, SHUT_WR); }
  // Ends without a word of farewell.
  void Reset() {
    const linger at_once{1, 0};
    setsockopt(_descriptor, SOL_SOCKET, SO_LINGER, &at_once, sizeof at_once);
    Close();
  }
  void Close() {
    if (_descriptor >= 0) close(std::exchange(_descriptor, -1));
  }
  // The port of this end.
  unsigned short port() const {
    sockaddr_in address{};
    socklen_t length = sizeof address;
    getsockname(_descriptor, reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.sin_port);
  }

 private:
  static constexpr int kLimitMs = static_cast<int>(std::chrono::milliseconds(kLimit).count());

  TestClient(int family, const sockaddr* address, socklen_t length)
      : _descriptor(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    if (connect(_descriptor, address, length) != 0) {
      Close();
      throw std::runtime_error("no connection");
    }
  }

  bool ReadMore() {
    pollfd ready{_descriptor, POLLIN, 0};
    if (poll(&ready, 1, kLimitMs) != 1) return false;
    std::array<char, 65536> bytes;
    const ssize_t length = recv(_descriptor, bytes.data(), bytes.size(), 0);
    if (length <= 0) return false;
    _unread.append(bytes.data(), static_cast<std::size_t>(length));
    return true;
  }

  int _descriptor;
  std::string _unread;
};

}  // namespace olt_host_test

#endif  // TESTS_OLT_HOST_TRANSPORT_TEST_CLIENT_H
