#include "session/login.h"

#include <crypt.h>

#include "platform/log_sink.h"

namespace olt_host {
namespace {

constexpr int kTries = 3;
// One more than a password may have; keys behind these are dropped.
constexpr std::size_t kLongest = CRYPT_MAX_PASSPHRASE_SIZE;
constexpr char32_t kBackspace = 0x08;
constexpr char32_t kDelete = 0x7F;
constexpr char32_t kDropLine = 0x15;

class LoginDialog {
 public:
  LoginDialog(Channel& channel, KeyReader& keys, Channel::Clock::time_point deadline)
      : _channel(channel), _keys(keys), _deadline(deadline) {}

  bool Say(const std::string& text) { return _channel.Write(text.data(), text.size()); }

  // Reads a line behind `prompt`; false when there will be none.
  bool Ask(const std::string& prompt, bool echo, std::string& answer) {
    std::u32string typed;
    if (!Say(prompt)) return false;
    while (true) {
      char32_t key = 0;
      const KeyReader::Result result = _keys.Read(key, _deadline);
      if (result == KeyReader::Result::kClosed) return false;
      if (result == KeyReader::Result::kTimedOut) {
        Say("\r\n% Login timed out\r\n");
        return false;
      }
      if (key == KeyReader::kEnter) break;
      if (key == KeyReader::kInterrupt || (key == KeyReader::kEndOfInput && typed.empty())) {
        Say("\r\n");
        return false;
      }
      Edit(key, echo, typed);
    }
    answer = Text(typed);
    return Say("\r\n");
  }

 private:
  void Edit(char32_t key, bool echo, std::u32string& typed) {
    std::size_t erased = 0;
    if ((key == kBackspace || key == kDelete) && !typed.empty()) erased = 1;
    if (key == kDropLine) erased = typed.size();
    for (std::size_t i = 0; echo && i < erased; ++i) Say("\b \b");
    typed.resize(typed.size() - erased);
    if (key < 0x20 || key == kDelete || typed.size() == kLongest) return;
    typed += key;
    if (echo) Say(Utf8(key));
  }

  static std::string Text(const std::u32string& keys) {
    std::string text;
    for (const char32_t key : keys) text += Utf8(key);
    return text;
  }

  Channel& _channel;
  KeyReader& _keys;
  const Channel::Clock::time_point _deadline;
};

}  // namespace

std::optional<Login> LogIn(Channel& channel, KeyReader& keys, const Users& users,
                           const std::string& origin, const LoginLimits& limits) {
  LoginDialog dialog(channel, keys, Channel::Clock::now() + limits.time);
  std::chrono::milliseconds delay = limits.delay;
  for (int i = 0; i < kTries; ++i, delay *= 2) {
    Login login;
    std::string password;
    if (!dialog.Ask("Username: ", true, login.user)) return std::nullopt;
    if (!dialog.Ask("Password: ", false, password)) return std::nullopt;
    const std::optional<Access> access = users.LogIn(login.user, password);
    if (access) {
      login.access = *access;
      return login;
    }
    // Without the name: passwords get typed there.
    LogHostLine(0, "a wrong login from " + origin);
    if (channel.AwaitEnd(Channel::Clock::now() + delay)) return std::nullopt;
    if (!dialog.Say("% Login invalid\r\n")) return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace olt_host
