#include "session/command_thread.h"

#include <exception>
#include <string>
#include <utility>

#include "platform/log_sink.h"

namespace olt_host {
namespace {

// Runs what nobody waits for.
void RunAlone(const std::function<void()>& task) {
  try {
    task();
  } catch (const std::exception& failure) {
    LogHostLine(0, std::string("a task failed: ") + failure.what());
  } catch (...) {
    LogHostLine(0, "a task failed");
  }
}

}  // namespace

struct CommandThread::Task {
  enum State { kWaiting, kDone, kDropped };

  const std::function<void()>& work;
  State state = kWaiting;
  std::exception_ptr failure;
};

void CommandThread::Serve() {
  std::unique_lock<std::mutex> lock(_mutex);
  while (true) {
    WaitForWork(lock);
    if (_stopped) return;
    if (RunIfDue(lock)) continue;
    // One after the other, so that neither kind keeps the other from its turn.
    RunPosted(lock);
    if (_stopped || _tasks.empty()) continue;
    Task& task = *_tasks.front();
    _tasks.pop_front();
    lock.unlock();
    try {
      task.work();
    } catch (...) {
      task.failure = std::current_exception();
    }
    lock.lock();
    task.state = Task::kDone;
    _changed.notify_all();
  }
}

// Returns with a task, a posted one, a call that is due, or stopped.
void CommandThread::WaitForWork(std::unique_lock<std::mutex>& lock) {
  const auto has_task = [this] { return _stopped || !_tasks.empty() || !_posted.empty(); };
  if (_call) {
    _changed.wait_until(lock, _call_at, has_task);
  } else {
    _changed.wait(lock, has_task);
  }
}

// True also where the wait ended for nothing, so that Serve looks again.
bool CommandThread::RunIfDue(std::unique_lock<std::mutex>& lock) {
  if (!_call || std::chrono::steady_clock::now() < _call_at)
    return _tasks.empty() && _posted.empty();
  const std::function<void()> call = std::exchange(_call, nullptr);
  lock.unlock();
  RunAlone(call);
  lock.lock();
  return true;
}

void CommandThread::RunPosted(std::unique_lock<std::mutex>& lock) {
  if (_posted.empty()) return;
  const std::function<void()> task = std::move(_posted.front());
  _posted.pop_front();
  lock.unlock();
  RunAlone(task);
  lock.lock();
}

void CommandThread::Post(std::function<void()> task) {
  const std::lock_guard<std::mutex> lock(_mutex);
  if (_stopped) return;
  _posted.push_back(std::move(task));
  _changed.notify_all();
}

void CommandThread::CallAt(std::chrono::steady_clock::time_point when, std::function<void()> task) {
  const std::lock_guard<std::mutex> lock(_mutex);
  _call = std::move(task);
  _call_at = when;
}

void CommandThread::Stop() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _stopped = true;
  for (Task* const task : _tasks) task->state = Task::kDropped;
  _tasks.clear();
  _posted.clear();
  _changed.notify_all();
}

std::size_t CommandThread::waiting() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return _tasks.size();
}

bool CommandThread::Run(const std::function<void()>& task) {
  std::unique_lock<std::mutex> lock(_mutex);
  if (_stopped) return false;
  if (std::this_thread::get_id() == _thread) {
    lock.unlock();
    task();
    return true;
  }
  Task waiting{task, Task::kWaiting, nullptr};
  _tasks.push_back(&waiting);
  _changed.notify_all();
  _changed.wait(lock, [&waiting] { return waiting.state != Task::kWaiting; });
  if (waiting.failure) std::rethrow_exception(waiting.failure);
  return waiting.state == Task::kDone;
}

}  // namespace olt_host
