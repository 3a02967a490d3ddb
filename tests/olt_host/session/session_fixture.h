// Sessions in the process of the test: a command thread, a server, commands to type,
// and clients that feed and drain a channel.
#ifndef TESTS_OLT_HOST_SESSION_SESSION_FIXTURE_H
#define TESTS_OLT_HOST_SESSION_SESSION_FIXTURE_H

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "session/session_server.h"
#include "session/virtual_screen.h"
#include "vty/builtin_commands.h"
#include "vty/command_table.h"
#include "vty/terminal.h"

namespace olt_host {

constexpr unsigned int kTestNode = 51;
// Conditions hold within this time, however busy the machine is.
constexpr std::chrono::seconds kSoon{60};

// A command thread that serves for as long as the object lives.
class ServedCommands {
 public:
  ServedCommands() {
    std::promise<CommandThread*> made;
    std::future<CommandThread*> commands = made.get_future();
    thread_ = std::thread([&made] {
      CommandThread serving;
      made.set_value(&serving);
      serving.Serve();
    });
    commands_ = commands.get();
  }
  ~ServedCommands() {
    commands_->Stop();
    thread_.join();
  }
  ServedCommands(const ServedCommands&) = delete;
  ServedCommands& operator=(const ServedCommands&) = delete;

  CommandThread& operator*() { return *commands_; }

 private:
  std::thread thread_;
  CommandThread* commands_ = nullptr;
};

// A door that the command "wait" stands at until the test opens it.
class Door {
 public:
  static Door& Instance() {
    static Door door;
    return door;
  }
  void Enter() {
    std::unique_lock<std::mutex> lock(mutex_);
    ++waiting_;
    changed_.notify_all();
    changed_.wait(lock, [this] { return open_; });
    --waiting_;
  }
  void Open() {
    const std::lock_guard<std::mutex> lock(mutex_);
    open_ = true;
    changed_.notify_all();
  }
  bool AwaitWaiting() {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, kSoon, [this] { return waiting_ > 0; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool open_ = false;
  int waiting_ = 0;
};

inline int Say(cmd_element*, struct vty* terminal, int, char** argv) {
  vty_out(terminal, "%s\r\n", argv[0]);
  return 0;
}
inline int ShowRows(cmd_element*, struct vty* terminal, int, char** argv) {
  const int rows = std::stoi(argv[0]);
  for (int i = 1; i <= rows; ++i) vty_out(terminal, "row %d\r\n", i);
  return 0;
}
inline int ShowWide(cmd_element*, struct vty* terminal, int, char** argv) {
  const std::string line(static_cast<std::size_t>(std::stoi(argv[0])), 'w');
  vty_out(terminal, "%s\r\nnext\r\n", line.c_str());
  return 0;
}
inline int ShowPart(cmd_element*, struct vty* terminal, int, char**) {
  vty_out(terminal, "part");
  return 0;
}
inline int WaitAtDoor(cmd_element*, struct vty*, int, char**) {
  Door::Instance().Enter();
  return 0;
}
inline int Throw(cmd_element*, struct vty*, int, char**) { throw std::runtime_error("thrown"); }
inline int SetIdle(cmd_element*, struct vty* terminal, int, char** argv) {
  terminal->settings().exec_timeout = std::chrono::seconds(std::stoi(argv[0]));
  return 0;
}

inline void InstallTestCommands() {
  static cmd_element elements[] = {
      {"say <string>", Say, "say a word\r\nthe word\r\n"},
      {"show rows <1-10000000>", ShowRows, "show things\r\nsome rows\r\nhow many\r\n"},
      {"show wide <1-10000000>", ShowWide, "show things\r\na long line\r\nhow long\r\n"},
      {"show part", ShowPart, "show things\r\na line without an end\r\n"},
      {"wait", WaitAtDoor, "wait at the door\r\n"},
      {"throw", Throw, "fail badly\r\n"},
      {"idle <1-100>", SetIdle, "set the limit\r\nseconds\r\n"},
  };
  for (cmd_element& element : elements) install_element(kTestNode, &element);
  InstallBuiltinCommands(kTestNode);
}

// The other end of a session's channel, with a screen.
class Client {
 public:
  explicit Client(std::shared_ptr<Channel> ends = std::make_shared<Channel>(),
                  Channel::Window window = {})
      : channel_(std::move(ends)), screen_(window.columns) {
    channel_->SetWindow(window);
    const auto wake = [signal = signal_] { signal->Give(); };
    channel_->SetWakeups({wake, wake});
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;

  const std::shared_ptr<Channel>& channel() const { return channel_; }
  const std::string& bytes() const { return bytes_; }
  const VirtualScreen& screen() const { return screen_; }

  bool Start(SessionServer& server, const SessionOrigin& origin = {"anna", "test", false}) {
    return server.Start(channel_, origin, [signal = signal_] {
      signal->ended = true;
      signal->Give();
    });
  }

  // Sends all of the bytes, reading what comes meanwhile.
  void Type(const std::string& keys) {
    std::size_t sent = 0;
    Await([this, &keys, &sent] {
      sent += channel_->Feed(keys.data() + sent, keys.size() - sent);
      return sent == keys.size();
    });
  }

  // Reads until the condition holds; false when it does not in time.
  bool Await(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + kSoon;
    while (true) {
      Drain();
      if (condition()) return true;
      if (!signal_->TakeUntil(deadline)) return false;
    }
  }

  // Reads until `text` has come, behind what earlier calls found.
  testing::AssertionResult Sees(const std::string& text) {
    const bool found = Await([this, &text] {
      const std::size_t place = bytes_.find(text, seen_);
      if (place == std::string::npos) return false;
      seen_ = place + text.size();
      return true;
    });
    if (found) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "\"" << text << "\" did not come behind:\n"
                                       << bytes_.substr(0, seen_) << "\n---- but:\n"
                                       << bytes_.substr(seen_);
  }

  // Reads until the cursor's line is `line`.
  testing::AssertionResult Shows(const std::string& line) {
    if (Await([this, &line] { return screen_.CursorLine() == line; })) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "the line is \"" << screen_.CursorLine() << "\", not \"" << line << "\"";
  }

  // Reads until the session is over and everything it sent has come.
  bool AwaitEnd() {
    return Await([this] { return signal_->ended && channel_->drained_to_end(); });
  }

 private:
  // Outlives the client in the channel's wakeups.
  struct Signal {
    void Give() {
      const std::lock_guard<std::mutex> lock(mutex);
      given = true;
      changed.notify_all();
    }
    bool TakeUntil(std::chrono::steady_clock::time_point deadline) {
      std::unique_lock<std::mutex> lock(mutex);
      if (!changed.wait_until(lock, deadline, [this] { return given; })) return false;
      given = false;
      return true;
    }

    std::atomic<bool> ended{false};
    std::mutex mutex;
    std::condition_variable changed;
    bool given = false;
  };

  void Drain() {
    // Not until there is nothing more: a session may write without end.
    for (int i = 0; i < 8; ++i) {
      char part[4096];
      const std::size_t length = channel_->Drain(part, sizeof part);
      if (length == 0) return;
      bytes_.append(part, length);
      screen_.Write(std::string(part, length));
    }
    signal_->Give();
  }

  const std::shared_ptr<Signal> signal_ = std::make_shared<Signal>();
  const std::shared_ptr<Channel> channel_;
  VirtualScreen screen_;
  std::string bytes_;
  std::size_t seen_ = 0;
};

class Sessions : public ::testing::Test {
 protected:
  Sessions() { InstallTestCommands(); }

  // The server, on first use with `limits`.
  SessionServer& server() {
    if (server_ == nullptr) {
      server_ = std::make_unique<SessionServer>(kTestNode, *commands_, users_, limits_);
    }
    return *server_;
  }

  ServedCommands commands_;
  const Users* users_ = nullptr;
  SessionLimits limits_;
  std::unique_ptr<SessionServer> server_;
};

}  // namespace olt_host

#endif  // TESTS_OLT_HOST_SESSION_SESSION_FIXTURE_H
