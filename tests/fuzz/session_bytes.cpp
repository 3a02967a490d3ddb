// What a client sends over the network: telnet with its negotiation, keys, and whatever else
// arrives, up to the lines that a session runs. What is held of every input:
// - what was typed does not depend on how the network cut the bytes;
// - answers do not grow faster than what is asked;
// - the session ends with its input, and shows nothing that steers a terminal but the few
//   sequences of its line editor;
// - a command gets text: UTF-8 without control characters.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "session/session.h"
#include "session/session_server.h"
#include "transport/telnet_server_stream.h"
#include "vty/builtin_commands.h"
#include "vty/command_table.h"

// What the terminal library loads it keeps for the process.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libtinfo\n"; }

namespace {

using olt_host::Channel;
using olt_host::CommandThread;
using olt_host::TelnetServerStream;
using olt_host::Users;

constexpr unsigned int kNode = 51;
constexpr std::size_t kMostBytes = 4096;
// The password is "secret", its hash a cheap one.
constexpr const char* kUsers =
    "anna:$5$rounds=1000$saltsalt$eKLZU9t9OoPWrqOQsoTIKG0aYkZ5rGOoOQhiIvoSWX2:read-only\n";
constexpr const char* kLogin = "anna\r\nsecret\r\n";

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; }

// JSON holds nothing else, overlong forms and surrogates neither.
bool IsUtf8(const std::string& text) {
  try {
    static_cast<void>(nlohmann::json(text).dump());
  } catch (const nlohmann::json::type_error&) {
    return false;
  }
  return true;
}

// --- Commands

int ShowWord(cmd_element*, struct vty* terminal, int, char** argv) {
  const std::string word = argv[0];
  Hold(IsUtf8(word), "a command gets a word that is no UTF-8: " + word);
  Hold(std::none_of(word.begin(), word.end(), IsControl), "a command gets a control character");
  vty_out(terminal, "%s\r\n", argv[0]);
  return 0;
}

int ShowRows(cmd_element*, struct vty* terminal, int, char** argv) {
  for (int row = std::stoi(argv[0]); row > 0; --row) vty_out(terminal, "row %d\r\n", row);
  return 0;
}

void InstallCommands() {
  static cmd_element elements[] = {
      {"show word <string>", ShowWord, "show things\r\na word\r\nthe word\r\n"},
      {"show rows <1-200>", ShowRows, "show things\r\nsome rows\r\nhow many\r\n"},
  };
  for (cmd_element& element : elements) install_element(kNode, &element);
  olt_host::InstallBuiltinCommands(kNode);
}

// --- The host

Users ReadUsers() {
  const int file = memfd_create("users", MFD_CLOEXEC);
  const auto length = static_cast<ssize_t>(std::strlen(kUsers));
  Hold(file >= 0 && fchmod(file, S_IRUSR | S_IWUSR) == 0 && write(file, kUsers, length) == length,
       "the system has no file in memory");
  Users users = Users::Read("/proc/self/fd/" + std::to_string(file));
  close(file);
  return users;
}

olt_host::SessionLimits LimitsWithoutDelay() {
  olt_host::SessionLimits limits;
  limits.login_delay = std::chrono::milliseconds(0);
  return limits;
}

struct Host {
  Host() { InstallCommands(); }

  CommandThread commands;
  const Users users = ReadUsers();
  const olt_host::SessionLimits limits = LimitsWithoutDelay();
  // Settles locale and terminal for the process.
  const olt_host::SessionServer server{kNode, commands, &users, limits};
  const olt_host::SessionSetting setting{kNode, commands, &users, limits};
};

// --- The wire

// The length of the sequence at `place`, 0 for none that the line editor has.
std::size_t EditorSequence(const std::string& output, std::size_t place) {
  if (output.compare(place, 2, "\x1b[") != 0) return 0;
  std::size_t end = place + 2;
  while (end < output.size() && output[end] >= '0' && output[end] <= '9') ++end;
  const bool known = end < output.size() && output[end] != '\0' &&
                     std::strchr("ABCDHJKP@", output[end]) != nullptr;
  return known ? end + 1 - place : 0;
}

void HoldHarmless(const std::string& output) {
  Hold(IsUtf8(output), "the session shows what is no UTF-8");
  for (std::size_t place = 0; place < output.size(); ++place) {
    const std::size_t length = EditorSequence(output, place);
    if (length > 0) {
      place += length - 1;
      continue;
    }
    const bool moves = std::strchr("\r\n\b\a", output[place]) != nullptr && output[place] != '\0';
    Hold(moves || !IsControl(output[place]),
         "the session shows a control character at " + std::to_string(place));
  }
}

// Cut into pieces of so many bytes.
void Receive(TelnetServerStream& telnet, const std::string& wire, std::size_t piece) {
  for (std::size_t place = 0; place < wire.size(); place += piece) {
    telnet.Receive(wire.data() + place, std::min(piece, wire.size() - place));
  }
}

void HoldCutDoesNotMatter(const std::string& wire, std::size_t piece, TelnetServerStream& whole,
                          const std::string& answers) {
  Channel channel;
  TelnetServerStream pieces(channel);
  Receive(pieces, wire, piece);
  if (whole.broken() || pieces.broken()) return;
  HoldSame("typed in pieces", whole.typed(), pieces.typed());
  HoldSame("answered to pieces", answers, pieces.TakeOutgoing());
}

void RunSession(const Host& host, Channel& channel) {
  std::string output;
  const auto drain = [&channel, &output] {
    char part[4096];
    while (const std::size_t length = channel.Drain(part, sizeof part)) output.append(part, length);
  };
  channel.SetWakeups({drain, [] {}});
  channel.FeedEnd();
  olt_host::SessionOrigin origin;
  origin.origin = "wire";
  origin.must_log_in = true;
  olt_host::Session(host.setting, 1, channel, origin).Run();
  drain();
  HoldHarmless(output);
}

}  // namespace

// A byte for the login, done before or left to the client; one for how the network cuts; then what
// comes over the wire.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Host host;
  InputBytes input(data, size);
  const bool client_logs_in = input.Byte() == 'c';
  const std::size_t piece = input.Byte() + 1U;
  const std::string wire =
      (client_logs_in ? "" : kLogin) + std::string(input.Rest().substr(0, kMostBytes));
  Channel channel;
  TelnetServerStream telnet(channel);
  Receive(telnet, wire, wire.size());
  // The longest answer, whether this host is there, is to two bytes.
  const std::string answers = telnet.TakeOutgoing();
  Hold(answers.size() <= 16 * wire.size(), "answers that grow faster than what is asked");
  HoldCutDoesNotMatter(wire, piece, telnet, answers);
  const std::string typed = telnet.typed();
  Hold(channel.Feed(typed.data(), typed.size()) == typed.size(), "the session's input has room");
  RunSession(host, channel);
  return 0;
}
