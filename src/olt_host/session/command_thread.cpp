#include "session/command_thread.h"

#include <exception>

namespace olt_host {

struct CommandThread::Task {
  enum State { kWaiting, kDone, kDropped };

  const std::function<void()>& work;
  State state = kWaiting;
  std::exception_ptr failure;
};

void CommandThread::Serve() {
  std::unique_lock<std::mutex> lock(_mutex);
  while (true) {
    _changed.wait(lock, [this] { return _stopped || !_tasks.empty(); });
    if (_stopped) return;
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

void CommandThread::Stop() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _stopped = true;
  for (Task* const task : _tasks) task->state = Task::kDropped;
  _tasks.clear();
  _changed.notify_all();
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
