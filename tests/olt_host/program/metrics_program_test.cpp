// The metrics of a serving program, as a scraper and an operator at its socket see them.
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>

#include <array>
#include <chrono>
#include <csignal>
#include <thread>

#include "program_runner.h"

namespace olt_host_test {
namespace {

constexpr std::chrono::seconds kLimit{60};

// olt_host serve, until the end of the test.
class ServingProgram {
 public:
  explicit ServingProgram(const TemporaryDirectory& directory) {
    std::vector<std::string> words = {OLT_HOST_PROGRAM,
                                      "serve",
                                      Fixture("small_catalogue.yaml"),
                                      Fixture("small_reports.yaml"),
                                      "--socket",
                                      directory.Path("operators"),
                                      "--metrics",
                                      directory.Path("metrics")};
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int kWrite = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, directory.Path("out").c_str(), kWrite,
                                     0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, directory.Path("err").c_str(), kWrite,
                                     0600);
    const int spawned =
        posix_spawn(&_process, argv.front(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0) throw std::runtime_error("olt_host cannot be run");
  }
  ~ServingProgram() {
    if (_process > 0) Stop(SIGKILL);
  }
  ServingProgram(const ServingProgram&) = delete;
  ServingProgram& operator=(const ServingProgram&) = delete;

  // Returns the exit status, -1 for an end by the signal.
  int Stop(int signal) {
    int status = 0;
    kill(_process, signal);
    waitpid(_process, &status, 0);
    _process = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t _process = 0;
};

// What a scraper gets; waits for the program to listen.
std::string Scrape(const std::string& path) {
  const auto limit = std::chrono::steady_clock::now() + kLimit;
  const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  while (connect(client, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    if (std::chrono::steady_clock::now() > limit) {
      close(client);
      return "no connection";
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  const std::string request = "GET /metrics HTTP/1.1\r\nHost: localhost\r\n\r\n";
  send(client, request.data(), request.size(), MSG_NOSIGNAL);
  std::string answer;
  std::array<char, 4096> bytes{};
  for (;;) {
    pollfd ready{client, POLLIN, 0};
    if (poll(&ready, 1, 60000) != 1) break;
    const ssize_t length = recv(client, bytes.data(), bytes.size(), 0);
    if (length <= 0) break;
    answer.append(bytes.data(), static_cast<std::size_t>(length));
  }
  close(client);
  return answer;
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(MetricsProgram, AScraperReadsWhatOperatorsMakeOfIt) {
  const TemporaryDirectory directory;
  ServingProgram program(directory);
  const std::string path = directory.Path("metrics");
  const std::string first = Scrape(path);
  EXPECT_EQ(first.substr(0, 17), "HTTP/1.1 200 OK\r\n") << first;
  // Seven ONUs were confirmed at the start.
  for (const char* line : {"\nolt_host_confirmations_total{recognised_by=\"type\"} 4\n",
                           "\nolt_host_confirmations_total{recognised_by=\"abilities\"} 2\n",
                           "\nolt_host_confirmations_total{recognised_by=\"none\"} 1\n",
                           ",key=\"1003\",number=\"1\",type_name=\"SFU-4FE\"} 2\n",
                           "\nolt_host_confirmation_duration_seconds_count 7\n"}) {
    EXPECT_TRUE(Contains(first, line)) << line << first;
  }
  const ProgramResult attached =
      RunProgram({"attach", directory.Path("operators")}, "confirm onu 1 4\n");
  EXPECT_EQ(attached.status, 0) << attached.err;
  const std::string second = Scrape(path);
  EXPECT_TRUE(Contains(second, "\nolt_host_confirmations_total{recognised_by=\"none\"} 2\n"))
      << second;
  EXPECT_TRUE(Contains(second, "\nolt_host_commands_total{kind=\"changing\"} 1\n")) << second;
  EXPECT_EQ(program.Stop(SIGTERM), 0);
  EXPECT_FALSE(std::filesystem::exists(path)) << "the socket goes with the program";
  EXPECT_TRUE(Contains(ReadFile(directory.Path("err")),
                       "olt_host: metrics are at " + path + ", GET /metrics\n"));
}

}  // namespace
}  // namespace olt_host_test
