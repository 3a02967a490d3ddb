// The addresses that sessions over TCP are taken on.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "transport/transports.h"

namespace olt_host {
namespace {

std::string Refusal(const std::string& text) {
  try {
    ParseTcpAddress(text);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "taken";
}

TEST(TcpAddress, APortAloneIsBoundToLoopback) {
  const TcpAddress address = ParseTcpAddress("2323");
  EXPECT_EQ("127.0.0.1", address.host);
  EXPECT_EQ(2323, address.port);
  EXPECT_TRUE(address.is_loopback);
}

TEST(TcpAddress, TakesAnIpv4Address) {
  const TcpAddress address = ParseTcpAddress("127.0.0.5:0");
  EXPECT_EQ("127.0.0.5", address.host);
  EXPECT_EQ(0, address.port);
  EXPECT_TRUE(address.is_loopback);
}

TEST(TcpAddress, TakesAnIpv6AddressInBrackets) {
  const TcpAddress address = ParseTcpAddress("[::1]:65535");
  EXPECT_EQ("::1", address.host);
  EXPECT_EQ(65535, address.port);
  EXPECT_TRUE(address.is_loopback);
}

TEST(TcpAddress, LocalhostNeedsNoNameServer) {
  EXPECT_EQ("127.0.0.1", ParseTcpAddress("localhost:2323").host);
}

TEST(TcpAddress, KnowsWhatOtherMachinesReach) {
  EXPECT_FALSE(ParseTcpAddress("0.0.0.0:2323").is_loopback);
  EXPECT_FALSE(ParseTcpAddress("[::]:2323").is_loopback);
  EXPECT_FALSE(ParseTcpAddress("192.0.2.7:2323").is_loopback);
  EXPECT_FALSE(ParseTcpAddress("[2001:db8::7]:2323").is_loopback);
}

TEST(TcpAddress, RefusesWhatIsNoPort) {
  EXPECT_EQ(
      "cannot listen on \"65536\": \"65536\" is no port from 0 to 65535; "
      "expected PORT, ADDRESS:PORT or [IPV6-ADDRESS]:PORT",
      Refusal("65536"));
  for (const char* text : {"", "telnet", "-1", "+1", " 1", "127.0.0.1:", "127.0.0.1:x", "1:2:3"}) {
    EXPECT_NE("taken", Refusal(text)) << text;
  }
}

TEST(TcpAddress, RefusesWhatIsNoAddress) {
  EXPECT_NE(std::string::npos, Refusal("olt.example:23").find("is no numeric address"));
  EXPECT_NE(std::string::npos, Refusal(":23").find("is no numeric address"));
  EXPECT_NE(std::string::npos, Refusal("::1:23").find("an IPv6 address stands in brackets"));
  EXPECT_NE(std::string::npos, Refusal("[127.0.0.1]:23").find("only an IPv6 address"));
  EXPECT_NE(std::string::npos, Refusal("[::1:23").find("is no numeric address"));
}

}  // namespace
}  // namespace olt_host
