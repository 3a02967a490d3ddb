#include "session/session_server.h"

#include <algorithm>
#include <clocale>
#include <condition_variable>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/log_sink.h"
#include "session/session.h"

namespace olt_host {
namespace {

// How long farewells may take when the server is destroyed.
constexpr std::chrono::seconds kFarewell{1};

// What sessions write, every terminal of today understands. One type for all: the
// editor's library asks the environment for it, and what it asked for another type
// it never gives back.
constexpr const char* kTerminalType = "vt100";

// A session and its thread. It gives its place away when it is over, and can be
// joined without waiting when it has left.
struct Place {
  Place(const SessionSetting& setting, unsigned int number, std::shared_ptr<Channel> ends,
        const SessionOrigin& origin)
      : channel(std::move(ends)), session(setting, number, *channel, origin) {}

  const std::shared_ptr<Channel> channel;
  Session session;
  std::function<void()> ended;
  std::thread thread;
  bool over = false;
  bool left = false;
};

void RunSession(Place& place) {
  try {
    place.session.Run();
  } catch (const std::exception& error) {
    LogHostLine(0, std::string("a session ended: ") + error.what());
    place.channel->Finish(std::string("% Session ended: ") + error.what() + "\r\n");
  }
  place.channel->Finish();
  place.channel->AwaitDrained();
}

}  // namespace

struct SessionServer::Impl {
  explicit Impl(const SessionSetting& shared) : setting(shared) {}

  const SessionSetting setting;
  mutable std::mutex mutex;  // guards all below
  std::condition_variable changed;
  std::vector<std::unique_ptr<Place>> places;
  unsigned int last_number = 0;
  bool stopping = false;

  // Joins the threads that have left. On the lock, which they no longer need.
  void Reap() {
    const auto left = std::stable_partition(places.begin(), places.end(),
                                            [](const auto& place) { return !place->left; });
    for (auto place = left; place != places.end(); ++place) (*place)->thread.join();
    places.erase(left, places.end());
  }

  bool all_left() const {
    return std::all_of(places.begin(), places.end(), [](const auto& place) { return place->left; });
  }

  // Why there is no place for one more session, empty when there is. On the lock.
  // Nobody who has yet to log in may keep out those who need no login.
  std::string NoPlace(bool must_log_in) const {
    std::size_t running = 0;
    std::size_t at_login = 0;
    for (const auto& place : places) {
      if (place->over) continue;
      ++running;
      if (!place->session.info().logged_in) ++at_login;
    }
    const std::size_t limit = setting.limits.sessions;
    if (running >= limit) return "% Too many sessions (limit " + std::to_string(limit) + ")\r\n";
    const std::size_t login_limit = std::max<std::size_t>(1, limit / 2);
    if (!must_log_in || at_login < login_limit) return "";
    return "% Too many sessions at the login (limit " + std::to_string(login_limit) + ")\r\n";
  }

  // Adds a session; why there can be none, empty when there is.
  std::string Add(std::shared_ptr<Channel> channel, const SessionOrigin& origin,
                  std::function<void()> ended) {
    const std::lock_guard<std::mutex> lock(mutex);
    Reap();
    if (stopping) return "% The host is stopping\r\n";
    std::string refusal = NoPlace(origin.must_log_in);
    if (!refusal.empty()) return refusal;
    auto place = std::make_unique<Place>(setting, last_number + 1, std::move(channel), origin);
    place->ended = std::move(ended);
    Place* const running_place = place.get();
    places.push_back(std::move(place));
    try {
      running_place->thread = std::thread([this, running_place] { Serve(*running_place); });
    } catch (const std::system_error& error) {
      LogHostLine(0, std::string("no thread for a session: ") + error.what());
      places.pop_back();
      return "% No session can be started\r\n";
    }
    ++last_number;
    return "";
  }

  // The thread of a session.
  void Serve(Place& place) {
    RunSession(place);
    {
      const std::lock_guard<std::mutex> lock(mutex);
      place.over = true;
    }
    if (place.ended) place.ended();
    const std::lock_guard<std::mutex> lock(mutex);
    place.left = true;
    changed.notify_all();
  }
};

SessionServer::SessionServer(unsigned int node, CommandThread& commands, const Users* users,
                             const SessionLimits& limits)
    : _impl(std::make_unique<Impl>(SessionSetting{node, commands, users, limits})) {
  setenv("TERM", kTerminalType, 1);
  // The editor counts characters, not bytes.
  if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) {
    LogHostLine(0, "no locale C.UTF-8: sessions take ASCII only");
  }
}

SessionServer::~SessionServer() {
  CloseAll("");
  std::unique_lock<std::mutex> lock(_impl->mutex);
  _impl->changed.wait_for(lock, kFarewell, [this] { return _impl->all_left(); });
  for (const auto& place : _impl->places) place->channel->Close();
  _impl->changed.wait(lock, [this] { return _impl->all_left(); });
  _impl->Reap();
}

bool SessionServer::Start(std::shared_ptr<Channel> channel, const SessionOrigin& origin,
                          std::function<void()> ended) {
  const std::string refusal = _impl->Add(channel, origin, std::move(ended));
  if (refusal.empty()) return true;
  channel->Finish(refusal);
  return false;
}

std::vector<SessionInfo> SessionServer::Sessions() const {
  const std::lock_guard<std::mutex> lock(_impl->mutex);
  std::vector<SessionInfo> sessions;
  for (const auto& place : _impl->places) {
    if (!place->over) sessions.push_back(place->session.info());
  }
  return sessions;
}

void SessionServer::CloseAll(const std::string& message) {
  const std::string farewell = message.empty() ? "" : "\r\n" + message + "\r\n";
  const std::lock_guard<std::mutex> lock(_impl->mutex);
  _impl->stopping = true;
  for (const auto& place : _impl->places) {
    if (!place->over) place->channel->Finish(farewell);
  }
}

}  // namespace olt_host
