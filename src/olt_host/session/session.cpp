#include "session/session.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/log_sink.h"
#include "session/login.h"
#include "session/owner_name.h"
#include "session/tab_stops.h"
#include "text/columns.h"
#include "text/wrapping.h"
#include "vty/completion.h"
#include "vty/execute.h"
#include "vty/line_help.h"
#include "vty/place.h"

namespace olt_host {
namespace {

constexpr const char* kBanner = "ONU ability console of olt_host " OLT_HOST_VERSION
                                ": ? or help for help, exit or ^D to leave.\r\n";

}  // namespace

Session::Session(const SessionSetting& setting, unsigned int number, Channel& channel,
                 const SessionOrigin& origin)
    : _setting(setting),
      _channel(channel),
      _must_log_in(origin.must_log_in),
      _owner(origin.owner),
      _keys(channel),
      _pager(channel, _keys),
      _terminal(setting.node,
                [this](const char* bytes, std::size_t length) { return Capture(bytes, length); }) {
  _info.number = number;
  _info.user = origin.must_log_in ? "" : origin.user;
  _info.origin = origin.origin;
  _info.logged_in = !origin.must_log_in;
  _info.since = std::chrono::system_clock::now();
}

SessionInfo Session::info() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  SessionInfo info = _info;
  info.idle = _keys.idle();
  return info;
}

void Session::Run() {
  if (_must_log_in) {
    if (!PassLogin()) return;
  } else {
    NameOwner();
  }
  SessionSettings& settings = _terminal.settings();
  const SessionInfo info = this->info();
  settings.number = info.number;
  settings.user = info.user;
  settings.origin = info.origin;
  settings.access = info.access;
  settings.exec_timeout = _setting.limits.exec_timeout;
  _prompt = info.access == Access::kFull ? "olt> " : "olt(read-only)> ";
  if (Say(kBanner)) ReadAndRunLines();
}

void Session::NameOwner() {
  if (!_owner) return;
  const std::string name = OwnerName(*_owner);
  const std::lock_guard<std::mutex> lock(_mutex);
  _info.user = name;
}

bool Session::PassLogin() {
  if (_setting.users == nullptr) {
    Say("% Nobody may log in here\r\n");
    return false;
  }
  const LoginLimits limits{_setting.limits.login_time, _setting.limits.login_delay};
  const std::optional<Login> login = LogIn(_channel, _keys, *_setting.users, info().origin, limits);
  const std::lock_guard<std::mutex> lock(_mutex);
  if (!login) return false;
  _info.logged_in = true;
  _info.user = login->user;
  _info.access = login->access;
  return true;
}

void Session::ReadAndRunLines() {
  Editor::Helpers helpers;
  helpers.complete = [this](const std::string& text) {
    Completion completion;
    _setting.commands.Run([&] { completion = Complete(_setting.node, text); });
    return completion;
  };
  helpers.help = [this](const std::string& text, const std::string& line) {
    return Help(text, line);
  };
  helpers.show = [this](const std::string& lines) { return ShowPaged(lines); };
  Editor editor(_channel, _keys, _setting.limits.line_bytes, _terminal.settings().history,
                std::move(helpers));
  std::string line;
  while (_terminal.alive()) {
    FollowWindow();
    _keys.SetIdleLimit(_terminal.settings().exec_timeout);
    Editor::Outcome outcome = editor.Read(_prompt, line);
    if (outcome == Editor::Outcome::kLine && !line.empty()) {
      Remember(line);
      outcome = RunLine(line);
    } else if (outcome == Editor::Outcome::kTooLong) {
      Say("% Line too long: the limit is " + std::to_string(_setting.limits.line_bytes) +
          " bytes\r\n");
    }
    if (outcome == Editor::Outcome::kEnd) {
      Say("\r\n");
      return;
    }
    if (outcome == Editor::Outcome::kTimedOut) {
      Say("\r\n% Session timed out\r\n");
      return;
    }
  }
}

// What is wrong with the line looks as when it is run.
std::string Session::Help(const std::string& text, const std::string& line) {
  std::vector<HelpLine> lines;
  std::string error;
  std::size_t place = 0;
  _setting.commands.Run([&] { lines = HelpFor(_setting.node, text, &error, &place); });
  if (error.empty()) return RenderHelp(lines, Columns());
  // A line that wrapped has no row under which a caret could stand.
  const bool caret_fits = DisplayWidth(_prompt) + DisplayWidth(line) < Columns();
  const std::string caret =
      caret_fits ? CaretUnder(_prompt, text, place) : LineWithCaret("  ", text, place);
  return caret + Wrap("", "% " + Printable(error), 2, Columns());
}

Editor::Outcome Session::RunLine(const std::string& line) {
  std::string failure;
  try {
    const bool run = _setting.commands.Run([&] {
      ExecuteLine(_terminal, _setting.node, line, LineEcho{true, _prompt});
    });
    if (!run) return Editor::Outcome::kEnd;
  } catch (const std::exception& error) {
    failure = std::string("% Internal error: ") + error.what() + "\r\n";
    LogHostLine(0, "a command failed: " + std::string(error.what()));
  }
  FollowWindow();
  _keys.SetIdleLimit(_terminal.settings().exec_timeout);
  return ShowPaged(TakeCaptured() + failure);
}

Editor::Outcome Session::ShowPaged(const std::string& text) {
  const Channel::Window window = _channel.window();
  const std::size_t rows = window.rows == 0 ? 0 : _terminal.settings().screen_length;
  const std::string shown = window.rows == 0 ? text : ExpandTabs(text, Columns());
  switch (_pager.Show(shown, rows, Columns())) {
    case Pager::Outcome::kTimedOut:
      return Editor::Outcome::kTimedOut;
    case Pager::Outcome::kClosed:
      return Editor::Outcome::kEnd;
    case Pager::Outcome::kShown:
    case Pager::Outcome::kStopped:
      break;
  }
  return Editor::Outcome::kLine;
}

std::size_t Session::Columns() const {
  const unsigned int columns = _channel.window().columns;
  return columns == 0 ? Channel::Window().columns : columns;
}

void Session::Remember(const std::string& line) {
  std::deque<std::string>& history = _terminal.settings().history;
  if (!history.empty() && history.back() == line) return;
  history.push_back(line);
  if (history.size() > kLinesRemembered) history.pop_front();
}

// Output for a client that is gone is not kept.
bool Session::Capture(const char* bytes, std::size_t length) {
  if (_channel.closed()) return false;
  const std::size_t taken = std::min(length, _setting.limits.output_bytes - _captured.size());
  _captured.append(bytes, taken);
  _captured_all = _captured_all && taken == length;
  return true;
}

// What was captured, as whole lines.
std::string Session::TakeCaptured() {
  std::string text = std::exchange(_captured, std::string());
  if (!text.empty() && text.back() != '\n') text += "\r\n";
  if (!std::exchange(_captured_all, true)) {
    text +=
        "% Output cut: more than " + std::to_string(_setting.limits.output_bytes) + " bytes\r\n";
  }
  return text;
}

// Until the operator sets a screen length, it is the window's.
void Session::FollowWindow() {
  unsigned int& length = _terminal.settings().screen_length;
  if (length != _followed_length) return;
  _followed_length = _channel.window().rows;
  length = _followed_length;
}

}  // namespace olt_host
