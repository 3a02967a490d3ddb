// The bytes between one session and whatever carries them: a terminal, a Unix
// socket, a telnet connection. Two bounded queues, the two things a session has
// to know about the terminal at the other end, and an end.
//
// The session's thread reads and writes and may wait; the transport's thread
// feeds and drains and never waits. Neither ever waits for the other: a client
// that does not read makes its own session wait, and in the end lose it.
#ifndef OLT_HOST_SESSION_CHANNEL_H
#define OLT_HOST_SESSION_CHANNEL_H

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>

namespace olt_host {

class Channel {
 public:
  using Clock = std::chrono::steady_clock;

  static constexpr std::size_t kInputRoom = 64U << 10U;
  static constexpr std::size_t kOutputRoom = 256U << 10U;
  // A client that takes no byte for so long while output waits is given up.
  static constexpr std::chrono::seconds kPatience{30};

  Channel() = default;
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;

  // --- The session's side.

  enum class ReadResult { kByte, kTimedOut, kClosed };

  // Waits for the next byte until `deadline`. What arrived before the other end
  // closed is still delivered.
  ReadResult Read(unsigned char& byte, Clock::time_point deadline);

  // Queues all of the bytes, waiting while there is no room. False when the
  // channel is closed or the client's patience (above) has run out, which closes
  // it; the rest is lost then.
  bool Write(const char* bytes, std::size_t length);

  // The session is over: what is queued is still sent, then the transport closes.
  void Finish();

  // --- Either side.

  // No more bytes in either direction; wakes whoever waits. Idempotent.
  void Close();
  bool closed() const;

  struct Window {
    unsigned int columns = 80;
    unsigned int rows = 24;  // 0: the other end has no screen, so nothing is paged
  };
  Window window() const;
  void SetWindow(Window window);

  // As terminfo names it; "" while the other end has not said.
  std::string terminal_type() const;
  void SetTerminalType(const std::string& type);
  // Waits until the type is known; false when `deadline` came first.
  bool AwaitTerminalType(Clock::time_point deadline);

  // --- The transport's side.

  struct Wakeups {
    std::function<void()> output_waits;  // bytes to drain, Finish or Close
    std::function<void()> input_room;    // there is room again after Feed took less than all
  };
  // Called on the session's thread with no lock held, so they must only post.
  // Set before the session starts.
  void SetWakeups(Wakeups wakeups);

  // Takes as many bytes as there is room for and returns their number.
  std::size_t Feed(const char* bytes, std::size_t length);
  // The client will send nothing more, but may still read.
  void FeedEnd();
  // Moves up to `most` bytes into `bytes`; returns their number.
  std::size_t Drain(char* bytes, std::size_t most);
  // Whether Finish was called and everything has been drained.
  bool drained_to_end() const;

 private:
  mutable std::mutex _mutex;
  std::condition_variable _changed;
  std::string _input;
  std::size_t _input_at = 0;
  std::string _output;
  std::size_t _output_at = 0;
  bool _input_ended = false;
  bool _input_refused = false;  // Feed took less than all
  bool _finished = false;
  bool _closed = false;
  Window _window;
  std::string _terminal_type;
  bool _terminal_type_known = false;
  Wakeups _wakeups;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_CHANNEL_H
