// The one thread on which every command runs, whatever session it came from;
// also everything else that reads or changes what commands change (completion of
// values, confirmation of the population, saving).
#ifndef OLT_HOST_SESSION_COMMAND_THREAD_H
#define OLT_HOST_SESSION_COMMAND_THREAD_H

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace olt_host {

class CommandThread {
 public:
  // The thread that constructs the object becomes the command thread.
  CommandThread() : _thread(std::this_thread::get_id()) {}
  CommandThread(const CommandThread&) = delete;
  CommandThread& operator=(const CommandThread&) = delete;

  // Runs what other threads ask for until Stop. On the command thread.
  void Serve();
  // Ends Serve once the task in hand is done. Tasks still waiting are dropped,
  // and their callers get false. From any thread, a signal handler excepted.
  void Stop();

  // Runs `task` on the command thread and waits for its end; directly when this
  // is the command thread. False, and nothing was run, after Stop. An exception
  // of the task is thrown here.
  bool Run(const std::function<void()>& task);

  // Runs `task` on the command thread some time, or never after Stop; waits for nothing. What
  // it throws is logged. From any thread.
  void Post(std::function<void()> task);

  // Serve runs `task` once it is `when`, or later when it is busy then; instead of an
  // earlier one that did not run yet. What it throws is logged. On the command thread.
  void CallAt(std::chrono::steady_clock::time_point when, std::function<void()> task);

  // How many calls of Run wait for their turn. From any thread.
  std::size_t waiting() const;

 private:
  struct Task;

  void WaitForWork(std::unique_lock<std::mutex>& lock);
  bool RunIfDue(std::unique_lock<std::mutex>& lock);
  void RunPosted(std::unique_lock<std::mutex>& lock);

  const std::thread::id _thread;
  mutable std::mutex _mutex;
  std::condition_variable _changed;
  std::deque<Task*> _tasks;
  std::deque<std::function<void()>> _posted;
  std::function<void()> _call;  // empty for none
  std::chrono::steady_clock::time_point _call_at;
  bool _stopped = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_COMMAND_THREAD_H
