// The metrics on their Unix socket: what scrapers get, and clients that do not behave.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <future>
#include <string>

#include "host_files.h"
#include "test_client.h"
#include "test_host.h"
#include "transport/http_request.h"
#include "transport/metrics_connection.h"
#include "transport/metrics_server.h"

namespace olt_host_test {
namespace {

using olt_host::HttpStatus;
using olt_host::MetricsConnection;
using olt_host::ReadHttpRequest;

HttpStatus StatusOf(const std::string& line) {
  return ReadHttpRequest(line + "\r\nHost: x\r\n\r\n", "/metrics").status;
}

TEST(HttpRequest, OnlyTheDocumentIsServed) {
  EXPECT_EQ(StatusOf("GET /metrics HTTP/1.1"), HttpStatus::kOk);
  EXPECT_EQ(StatusOf("GET /metrics HTTP/1.0"), HttpStatus::kOk);
  EXPECT_EQ(StatusOf("GET /metrics?name=x HTTP/1.1"), HttpStatus::kOk);
  EXPECT_EQ(StatusOf("HEAD /metrics HTTP/1.1"), HttpStatus::kOk);
  EXPECT_EQ(StatusOf("GET / HTTP/1.1"), HttpStatus::kNotFound);
  EXPECT_EQ(StatusOf("GET /metrics/ HTTP/1.1"), HttpStatus::kNotFound);
  EXPECT_EQ(StatusOf("GET ?/metrics HTTP/1.1"), HttpStatus::kNotFound);
  EXPECT_EQ(StatusOf("POST /metrics HTTP/1.1"), HttpStatus::kMethodNotAllowed);
  EXPECT_EQ(StatusOf("get /metrics HTTP/1.1"), HttpStatus::kMethodNotAllowed);
}

TEST(HttpRequest, WhatIsNoRequestLineIsRefused) {
  for (const char* line :
       {"", " ", "  ", "GET", "GET ", "GET /metrics", "GET  HTTP/1.1", " /metrics HTTP/1.1",
        "GET /metrics HTTP/2.0", "GET /metrics HTTP/1.10", "GET /metrics HTTP/1.1 ",
        "GET  /metrics HTTP/1.1", "GET /a b HTTP/1.1", "GET\t/metrics\tHTTP/1.1"}) {
    EXPECT_EQ(StatusOf(line), HttpStatus::kBadRequest) << line;
  }
}

class Metrics : public testing::Test {
 protected:
  Metrics() {
    host.transports->ListenMetrics(path, [this](const auto& ready) { Make(ready); });
    port = host.StartOnTcp();
    descriptors = OpenDescriptors();
  }
  ~Metrics() override { host.transports.reset(); }

  void Make(const std::function<void(std::string)>& ready) {
    if (waits_for_text) {
      asked.set_value(ready);
    } else {
      ready(text);
    }
  }
  std::string Get(const std::string& request) {
    TestClient client = TestClient::Unix(path);
    EXPECT_TRUE(client.Send(request));
    return client.UntilEnd();
  }
  void ExpectAnswered() {
    const std::string answer = Get("GET /metrics HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_EQ(answer.substr(0, 17), "HTTP/1.1 200 OK\r\n");
    EXPECT_EQ(answer.substr(answer.find("\r\n\r\n") + 4), text);
  }
  void ExpectNothingKept() {
    EXPECT_TRUE(Becomes([this] { return OpenDescriptors() <= descriptors; }))
        << OpenDescriptors() << " descriptors, before " << descriptors;
  }

  TemporaryDirectory directory;
  const std::string path = directory.Path("metrics");
  std::string text = "answer 42\n";
  bool waits_for_text = false;
  std::promise<std::function<void(std::string)>> asked;
  TestHost host;
  unsigned short port = 0;
  std::size_t descriptors = 0;
};

TEST_F(Metrics, AScraperGetsTheTextAndTheEnd) {
  EXPECT_EQ(Get("GET /metrics HTTP/1.1\r\nHost: localhost\r\nAccept: */*\r\n\r\n"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Type: text/plain; version=0.0.4; charset=utf-8\r\n"
            "Content-Length: 10\r\n"
            "Connection: close\r\n\r\n"
            "answer 42\n");
  ExpectNothingKept();
}

TEST_F(Metrics, HeadTellsTheLengthOnly) {
  EXPECT_EQ(Get("HEAD /metrics HTTP/1.0\r\n\r\n"),
            "HTTP/1.1 200 OK\r\n"
            "Content-Type: text/plain; version=0.0.4; charset=utf-8\r\n"
            "Content-Length: 10\r\n"
            "Connection: close\r\n\r\n");
}

TEST_F(Metrics, WhatElseIsAskedForIsRefusedInWords) {
  EXPECT_EQ(Get("GET / HTTP/1.1\r\n\r\n"),
            "HTTP/1.1 404 Not Found\r\n"
            "Content-Type: text/plain; charset=utf-8\r\n"
            "Content-Length: 37\r\n"
            "Connection: close\r\n\r\n"
            "404 Not Found; expected GET /metrics\n");
  const std::string posted = Get("POST /metrics HTTP/1.1\r\nContent-Length: 3\r\n\r\nabc");
  EXPECT_EQ(posted.substr(0, 35), "HTTP/1.1 405 Method Not Allowed\r\nCo");
  EXPECT_NE(posted.find("\r\nAllow: GET, HEAD\r\n"), std::string::npos) << posted;
}

TEST_F(Metrics, ALongTextArrivesWhole) {
  text.assign(8U << 20U, 'x');
  ExpectAnswered();
}

TEST_F(Metrics, TheSocketIsForOwnerAndGroup) {
  struct stat file {};
  ASSERT_EQ(lstat(path.c_str(), &file), 0);
  EXPECT_EQ(file.st_mode & 07777U, 0660U);
  host.transports.reset();
  EXPECT_NE(lstat(path.c_str(), &file), 0) << "the file goes with the socket";
}

TEST_F(Metrics, ARequestInSingleBytesIsServed) {
  TestClient client = TestClient::Unix(path);
  for (const char byte : std::string("GET /metrics HTTP/1.1\r\n\r\n")) {
    ASSERT_TRUE(client.Send(std::string(1, byte)));
  }
  EXPECT_NE(client.UntilEnd().find(text), std::string::npos);
}

TEST_F(Metrics, NoRequestLineIsABadRequest) {
  EXPECT_EQ(Get("\r\n\r\n").substr(0, 24), "HTTP/1.1 400 Bad Request");
  EXPECT_EQ(Get(std::string("\0\xff\x01\r\n\r\n", 7)).substr(0, 24), "HTTP/1.1 400 Bad Request");
}

TEST_F(Metrics, AHeaderWithoutEndIsRefused) {
  TestClient client = TestClient::Unix(path);
  client.Push("GET /metrics HTTP/1.1\r\nX: " +
              std::string(MetricsConnection::kMostRequestBytes, 'x'));
  EXPECT_EQ(client.UntilEnd().substr(0, 12), "HTTP/1.1 431");
  TestClient flood = TestClient::Unix(path);
  const std::string line = "X: " + std::string(1000, 'x') + "\r\n";
  EXPECT_TRUE(Becomes([&] { return !flood.Push(line); }));
  ExpectAnswered();
  flood.Close();
  client.Close();
  ExpectNothingKept();
}

TEST_F(Metrics, ThoseThatDropAtAnyPointLeaveNothingBehind) {
  const std::string request = "GET /metrics HTTP/1.1\r\n\r\n";
  text.assign(1U << 20U, 'x');
  for (std::size_t length = 0; length <= request.size(); ++length) {
    TestClient client = TestClient::Unix(path);
    client.Push(request.substr(0, length));
    client.Close();
  }
  ExpectAnswered();
  ExpectNothingKept();
}

TEST_F(Metrics, OneThatHalfClosesStillGetsItsAnswer) {
  TestClient client = TestClient::Unix(path);
  ASSERT_TRUE(client.Send("GET /metrics HTTP/1.1\r\n\r\n"));
  client.HalfClose();
  EXPECT_NE(client.UntilEnd().find(text), std::string::npos);
}

TEST_F(Metrics, ThoseThatHoldTheirConnectionsKeepNobodyOut) {
  std::vector<TestClient> silent;
  for (std::size_t i = 0; i < 3 * olt_host::MetricsServer::kMostClients; ++i) {
    silent.push_back(TestClient::Unix(path));
    silent.back().Push("GET /met");
  }
  ExpectAnswered();
  EXPECT_EQ(silent.front().UntilEnd(), "") << "the oldest had to go";
}

TEST_F(Metrics, OneThatNeverReadsIsGivenUp) {
  text.assign(8U << 20U, 'x');
  TestClient deaf = TestClient::Unix(path);
  TestClient silent = TestClient::Unix(path);
  deaf.Push("GET /metrics HTTP/1.1\r\n\r\n");
  const auto start = std::chrono::steady_clock::now();
  ExpectAnswered();
  EXPECT_EQ(silent.UntilEnd(), "");
  EXPECT_GE(std::chrono::steady_clock::now() - start,
            MetricsConnection::kPatience - std::chrono::seconds(1));
  EXPECT_LT(deaf.UntilEnd().size(), text.size());
  deaf.Close();
  silent.Close();
  ExpectNothingKept();
}

TEST_F(Metrics, ATextThatComesLateDisturbsNobody) {
  waits_for_text = true;
  TestClient gone = TestClient::Unix(path);
  gone.Push("GET /metrics HTTP/1.1\r\n\r\n");
  const std::function<void(std::string)> ready = asked.get_future().get();
  gone.Close();
  TestClient operators = TestClient::Tcp(port);
  operators.ExpectAnswer("hello");
  ready("late");
  operators.ExpectAnswer("again");
  host.transports.reset();
  ready("later still");
}

}  // namespace
}  // namespace olt_host_test
