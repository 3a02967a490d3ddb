// Work on all cores by processes: each worker is a copy of this process as it was when the
// pool was made, with the catalogue loaded, whose memory is shared until it is written. The
// library is one for a process and its registries are written by reading, so threads would
// have to take turns.
//
// Tasks and results are byte strings. No worker knows of another.
#ifndef OLT_HOST_NETWORK_WORKER_POOL_H
#define OLT_HOST_NETWORK_WORKER_POOL_H

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace olt_host {

class WorkerProcess;

// What a worker could not do: the message of the exception that ended a task, or how the
// worker ended.
class WorkError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class WorkerPool {
 public:
  // Times the number of workers: so many tasks are handed out at most whose results are not
  // taken yet, and so many results held in memory.
  static constexpr std::size_t kTasksAhead = 2;

  // Done in a worker, task after task; what it changes stays there.
  using Work = std::function<std::string(const std::string& task)>;
  // The next task; nothing at the end.
  using Source = std::function<std::optional<std::string>()>;
  // Given each result, in the order of the tasks, on the thread that calls Run.
  using Sink = std::function<void(const std::string& result)>;

  // Starts `workers` (at least one) processes. REQUIRES: no other thread runs; the thread
  // that calls this outlives the pool. Throws std::system_error.
  WorkerPool(unsigned int workers, const Work& work);
  // Ends the workers, those that are busy at once, and waits for them.
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  // Hands out tasks as workers become free, a bounded number ahead of the last result
  // taken, and returns when every result is taken. Throws WorkError in the place of a
  // result, and what `next` and `take` throw; then the pool can only be destroyed.
  void Run(const Source& next, const Sink& take);

 private:
  std::vector<std::unique_ptr<WorkerProcess>> _workers;
};

// Processors that this process may use, at least 1.
unsigned int AllCores();

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_WORKER_POOL_H
