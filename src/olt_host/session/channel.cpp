#include "session/channel.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace olt_host {
namespace {

constexpr char kInterrupt = '\x03';

// Drops what has been taken from the front of a queue, before it outgrows the rest.
void Trim(std::string& queue, std::size_t& at) {
  if (at == queue.size()) {
    queue.clear();
    at = 0;
  } else if (at > queue.size() / 2) {
    queue.erase(0, at);
    at = 0;
  }
}

}  // namespace

Channel::ReadResult Channel::Read(unsigned char& byte, Clock::time_point deadline) {
  bool has_room_again = false;
  {
    std::unique_lock<std::mutex> lock(_mutex);
    _changed.wait_until(lock, deadline, [this] {
      return _closed || _finished || _input_ended || _input_at < _input.size();
    });
    if (_closed || _finished) return ReadResult::kClosed;
    if (_input_at == _input.size()) {
      return _input_ended ? ReadResult::kClosed : ReadResult::kTimedOut;
    }
    byte = static_cast<unsigned char>(_input[_input_at++]);
    Trim(_input, _input_at);
    has_room_again = _input_refused && _input.size() - _input_at <= kInputRoom / 2;
    if (has_room_again) _input_refused = false;
  }
  if (has_room_again && _wakeups.input_room) _wakeups.input_room();
  return ReadResult::kByte;
}

template <typename Condition>
bool Channel::AwaitClient(std::unique_lock<std::mutex>& lock, Condition done) {
  while (!done()) {
    const Clock::time_point given_up = _client_active + _patience;
    if (Clock::now() >= given_up) return false;
    _changed.wait_until(lock, given_up);
  }
  return true;
}

std::size_t Channel::WriteSome(const char* bytes, std::size_t length) {
  std::unique_lock<std::mutex> lock(_mutex);
  if (!AwaitClient(lock, [this] { return _closed || _finished || HasRoom(); })) CloseLocked();
  if (_closed || _finished) return 0;
  if (_output.empty()) _client_active = Clock::now();
  const std::size_t taken = std::min(length, kOutputRoom - (_output.size() - _output_at));
  _output.append(bytes, taken);
  return taken;
}

bool Channel::Write(const char* bytes, std::size_t length) {
  while (length > 0) {
    const std::size_t taken = WriteSome(bytes, length);
    TellOutputWaits();
    if (taken == 0) return false;
    bytes += taken;
    length -= taken;
  }
  return true;
}

bool Channel::TakeInterrupt() {
  bool tell = false;
  {
    const std::lock_guard<std::mutex> lock(_mutex);
    const std::size_t place = _input.rfind(kInterrupt);
    if (place == std::string::npos || place < _input_at) return false;
    _input_at = place + 1;
    Trim(_input, _input_at);
    tell = std::exchange(_input_refused, false);
  }
  if (tell && _wakeups.input_room) _wakeups.input_room();
  return true;
}

bool Channel::AwaitEnd(Clock::time_point deadline) {
  std::unique_lock<std::mutex> lock(_mutex);
  return _changed.wait_until(lock, deadline, [this] {
    return _closed || _finished || (_input_ended && _input_at == _input.size());
  });
}

void Channel::Finish(const std::string& farewell) {
  {
    const std::lock_guard<std::mutex> lock(_mutex);
    if (!_closed && !_finished) {
      if (_output.empty()) _client_active = Clock::now();
      _output += farewell;
    }
    _finished = true;
    _changed.notify_all();
  }
  TellOutputWaits();
}

bool Channel::AwaitDrained() {
  {
    std::unique_lock<std::mutex> lock(_mutex);
    if (AwaitClient(lock, [this] { return _closed || _output.empty(); })) return !_closed;
    CloseLocked();
  }
  TellOutputWaits();
  return false;
}

void Channel::CloseLocked() {
  _closed = true;
  _input.clear();
  _input_at = 0;
  _output.clear();
  _output_at = 0;
  _changed.notify_all();
}

void Channel::TellOutputWaits() const {
  if (_wakeups.output_waits) _wakeups.output_waits();
}

void Channel::Close() {
  {
    const std::lock_guard<std::mutex> lock(_mutex);
    if (_closed) return;
    CloseLocked();
  }
  TellOutputWaits();
}

bool Channel::closed() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return _closed;
}

Channel::Window Channel::window() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return _window;
}

void Channel::SetWindow(Window window) {
  const std::lock_guard<std::mutex> lock(_mutex);
  _window = window;
}

void Channel::SetWakeups(Wakeups wakeups) { _wakeups = std::move(wakeups); }

std::size_t Channel::Feed(const char* bytes, std::size_t length) {
  const std::lock_guard<std::mutex> lock(_mutex);
  if (_closed || _finished || _input_ended) return length;  // nobody reads it any more
  const std::size_t room = kInputRoom - (_input.size() - _input_at);
  const std::size_t taken = std::min(length, room);
  _input.append(bytes, taken);
  _input_refused = _input_refused || taken < length;
  _changed.notify_all();
  return taken;
}

void Channel::FeedEnd() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _input_ended = true;
  _changed.notify_all();
}

std::size_t Channel::Drain(char* bytes, std::size_t most) {
  const std::lock_guard<std::mutex> lock(_mutex);
  const std::size_t taken = std::min(most, _output.size() - _output_at);
  if (taken == 0) return 0;
  std::memcpy(bytes, _output.data() + _output_at, taken);
  _output_at += taken;
  Trim(_output, _output_at);
  _client_active = Clock::now();
  _changed.notify_all();
  return taken;
}

bool Channel::drained_to_end() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return _closed || (_finished && _output.empty());
}

}  // namespace olt_host
