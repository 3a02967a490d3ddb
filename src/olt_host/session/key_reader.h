// The keys of one session's client: the bytes of its channel as characters, with
// the ways in which terminals and telnet write Enter made one.
//
// Used by the session's thread; only idle() may be asked from any thread.
#ifndef OLT_HOST_SESSION_KEY_READER_H
#define OLT_HOST_SESSION_KEY_READER_H

#include <atomic>
#include <chrono>
#include <string>

#include "session/channel.h"

namespace olt_host {

class KeyReader {
 public:
  static constexpr char32_t kEnter = '\r';
  static constexpr char32_t kInterrupt = 0x03;
  static constexpr char32_t kEndOfInput = 0x04;
  static constexpr char32_t kEscape = 0x1B;
  // Stands for bytes that are no UTF-8.
  static constexpr char32_t kReplacement = 0xFFFD;

  explicit KeyReader(Channel& channel);

  enum class Result { kKey, kTimedOut, kClosed };

  // Waits for the next key until `deadline`. CR, LF, CR LF and CR NUL are one
  // kEnter; NUL and the control characters above 0x7F are no keys.
  Result Read(char32_t& key, Channel::Clock::time_point deadline);

  // Waits until the idle limit is over; without one (0), for ever.
  Result Read(char32_t& key);
  void SetIdleLimit(std::chrono::seconds limit) { _idle_limit = limit; }

  // Since the last byte, or the construction.
  std::chrono::seconds idle() const;

 private:
  // Adds a byte to the character in hand; true when that gave a key.
  bool Add(unsigned char byte, char32_t& key);
  bool Begin(unsigned char byte, char32_t& key);

  Channel& _channel;
  std::atomic<Channel::Clock::rep> _last_byte;
  std::chrono::seconds _idle_limit{0};
  bool _behind_cr = false;
  // A character of several bytes: what is known of it, how many bytes are still to
  // come, and the smallest number that needs so many.
  char32_t _character = 0;
  unsigned int _missing = 0;
  char32_t _smallest = 0;
  int _waiting = -1;  // a byte that ended a broken character and is still to be looked at
};

// The bytes of a key that is a character.
std::string Utf8(char32_t character);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_KEY_READER_H
