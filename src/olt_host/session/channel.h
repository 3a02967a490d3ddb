// The bytes between one session and whatever carries them: a terminal, a Unix
// socket, a telnet connection. Two bounded queues, the size of the terminal at the
// other end, and an end.
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

  explicit Channel(std::chrono::milliseconds patience = kPatience) : _patience(patience) {}
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;

  // --- The session's side.

  enum class ReadResult { kByte, kTimedOut, kClosed };

  // Waits for the next byte until `deadline`. What arrived before FeedEnd is still
  // delivered.
  ReadResult Read(unsigned char& byte, Clock::time_point deadline);

  // Queues all of the bytes, waiting while there is no room. False when the
  // channel is closed or the client's patience (above) has run out, which closes
  // it; the rest is lost then.
  bool Write(const char* bytes, std::size_t length);

  // Whether Ctrl-C waits in the input. It is taken, and what was typed before it.
  bool TakeInterrupt();

  // Waits until the session cannot get any more input, or `deadline`; true for the
  // former.
  bool AwaitEnd(Clock::time_point deadline);

  // After Finish: waits until everything queued has been drained. False when the
  // channel was closed before, or the client's patience ran out, which closes it.
  bool AwaitDrained();

  // --- Either side.

  // The session is over: what is queued is still sent, and `farewell` behind it
  // whatever room there is; then the transport closes. The session's reads and
  // writes end at once.
  void Finish(const std::string& farewell = "");

  // No more bytes in either direction, queued ones included; wakes whoever waits.
  // Idempotent.
  void Close();
  bool closed() const;

  struct Window {
    unsigned int columns = 80;
    unsigned int rows = 24;  // 0: the other end has no screen, so nothing is paged
  };
  Window window() const;
  void SetWindow(Window window);

  // --- The transport's side.

  struct Wakeups {
    std::function<void()> output_waits;  // bytes to drain, Finish or Close
    std::function<void()> input_room;    // there is room again after Feed took less than all
  };
  // Called on the thread that writes, reads, finishes or closes, with no lock held,
  // so they must only post. Set before the session starts.
  void SetWakeups(Wakeups wakeups);

  // Takes as many bytes as there is room for and returns their number.
  std::size_t Feed(const char* bytes, std::size_t length);
  // The client will send nothing more, but may still read. The session ends when it
  // has read what is there.
  void FeedEnd();
  // Moves up to `most` bytes into `bytes`; returns their number.
  std::size_t Drain(char* bytes, std::size_t most);
  // Whether Finish was called and everything has been drained, or Close was.
  bool drained_to_end() const;

 private:
  bool HasRoom() const { return _output.size() - _output_at < kOutputRoom; }
  // Waits until `done` or the client's patience is over. On `lock`.
  template <typename Condition>
  bool AwaitClient(std::unique_lock<std::mutex>& lock, Condition done);
  // Waits for room and takes as many bytes as fit; 0 when there will be none.
  std::size_t WriteSome(const char* bytes, std::size_t length);
  void CloseLocked();
  void TellOutputWaits() const;

  const std::chrono::milliseconds _patience;
  Wakeups _wakeups;  // set before the session starts, not changed afterwards

  mutable std::mutex _mutex;  // guards all below
  std::condition_variable _changed;
  std::string _input;
  std::size_t _input_at = 0;
  std::string _output;
  std::size_t _output_at = 0;
  Clock::time_point _client_active;  // when it last took a byte, or first had one to take
  bool _input_ended = false;
  bool _input_refused = false;  // Feed took less than all
  bool _finished = false;
  bool _closed = false;
  Window _window;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_CHANNEL_H
