// One worker of a pool: a copy of this process that does a task at a time, and the parent's
// end of the socket between the two. The copy leaves by itself when the parent's end is
// gone, and never comes back into the code that started it.
#ifndef OLT_HOST_NETWORK_WORKER_PROCESS_H
#define OLT_HOST_NETWORK_WORKER_PROCESS_H

#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_descriptor.h"

namespace olt_host {

// What came of a task: the result, or why there is none.
struct Answer {
  bool is_failure = false;
  std::string text;
};

class WorkerProcess {
 public:
  using Work = std::function<std::string(const std::string& task)>;

  // `others`: of the same pool; the copy lets go of their sockets, which only the parent
  // may hold. Throws std::system_error.
  WorkerProcess(const Work& work, const std::vector<std::unique_ptr<WorkerProcess>>& others);
  // Ends the worker, at once when it is busy, and waits for it.
  ~WorkerProcess();
  WorkerProcess(const WorkerProcess&) = delete;
  WorkerProcess& operator=(const WorkerProcess&) = delete;

  bool is_busy() const { return _is_busy; }
  // Ready to be read when a busy worker has an answer or is gone.
  int descriptor() const { return _socket.get(); }

  // REQUIRES: it is not busy, so it reads. Whether it is still there shows in the answer.
  void Give(const std::string& task);

  // Waits for the answer. A worker that is gone answers with how it ended.
  void Take(Answer& answer);

 private:
  struct SocketPair;
  WorkerProcess(SocketPair pair, const Work& work,
                const std::vector<std::unique_ptr<WorkerProcess>>& others);

  std::string WaitForEnd();

  FileDescriptor _socket;
  pid_t _process = -1;
  bool _is_busy = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_WORKER_PROCESS_H
