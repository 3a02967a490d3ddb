#include "network/worker_process.h"

#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <system_error>

namespace olt_host {

namespace {

enum class Kind : std::uint64_t { kTask, kResult, kFailure };

// Goes before the bytes of each task and answer. Both ends are the same program.
struct Head {
  Kind kind;
  std::uint64_t length;
};

[[noreturn]] void Fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

bool IsGone(int error) { return error == EPIPE || error == ECONNRESET; }

// False when the other end is gone.
bool SendAll(int socket, const void* bytes, std::size_t size) {
  const char* position = static_cast<const char*>(bytes);
  while (size > 0) {
    const ssize_t sent = send(socket, position, size, MSG_NOSIGNAL);
    if (sent < 0) {
      if (errno == EINTR) continue;
      if (IsGone(errno)) return false;
      Fail("cannot write to a worker process");
    }
    position += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

bool ReceiveAll(int socket, void* bytes, std::size_t size) {
  char* position = static_cast<char*>(bytes);
  while (size > 0) {
    const ssize_t received = recv(socket, position, size, 0);
    if (received < 0) {
      if (errno == EINTR) continue;
      if (IsGone(errno)) return false;
      Fail("cannot read from a worker process");
    }
    if (received == 0) return false;
    position += received;
    size -= static_cast<std::size_t>(received);
  }
  return true;
}

bool SendFrame(int socket, Kind kind, const std::string& bytes) {
  const Head head{kind, bytes.size()};
  return SendAll(socket, &head, sizeof(head)) && SendAll(socket, bytes.data(), bytes.size());
}

bool ReceiveFrame(int socket, Kind& kind, std::string& bytes) {
  Head head{};
  if (!ReceiveAll(socket, &head, sizeof(head))) return false;
  kind = head.kind;
  bytes.resize(static_cast<std::size_t>(head.length));
  return ReceiveAll(socket, bytes.data(), bytes.size());
}

bool Answered(int socket, const WorkerProcess::Work& work, const std::string& task) {
  std::string result;
  try {
    result = work(task);
  } catch (const std::exception& error) {
    return SendFrame(socket, Kind::kFailure, error.what());
  } catch (...) {
    return SendFrame(socket, Kind::kFailure, "a worker process failed without a message");
  }
  return SendFrame(socket, Kind::kResult, result);
}

// What the copy does from its beginning to its end. Never through exit: what the parent
// left in buffers, and what it wants done at its exit, is the parent's.
[[noreturn]] void ServeAsWorker(int socket, pid_t parent, const WorkerProcess::Work& work) {
  // A parent that is gone needs no answer to a long task either.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(0);
  // Ctrl-C reaches the whole group; what comes of it is the parent's decision.
  static_cast<void>(std::signal(SIGINT, SIG_IGN));
  try {
    Kind kind{};
    std::string task;
    while (ReceiveFrame(socket, kind, task) && Answered(socket, work, task)) {
    }
  } catch (...) {
    _exit(1);
  }
  _exit(0);
}

}  // namespace

struct WorkerProcess::SocketPair {
  SocketPair(FileDescriptor parent_end, FileDescriptor worker_end)
      : parent(std::move(parent_end)), worker(std::move(worker_end)) {}

  static SocketPair Create() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
      Fail("cannot connect a worker process");
    }
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
  }

  FileDescriptor parent;
  FileDescriptor worker;
};

WorkerProcess::WorkerProcess(const Work& work,
                             const std::vector<std::unique_ptr<WorkerProcess>>& others)
    : WorkerProcess(SocketPair::Create(), work, others) {}

WorkerProcess::WorkerProcess(SocketPair pair, const Work& work,
                             const std::vector<std::unique_ptr<WorkerProcess>>& others)
    : _socket(std::move(pair.parent)) {
  // A line that the worker logs would otherwise carry along what waits in a buffer here.
  static_cast<void>(std::fflush(nullptr));
  const pid_t parent = getpid();
  _process = fork();
  if (_process < 0) Fail("cannot start a worker process");
  if (_process > 0) return;
  for (const auto& other : others) {
    close(other->descriptor());
  }
  close(_socket.get());
  ServeAsWorker(pair.worker.get(), parent, work);
}

WorkerProcess::~WorkerProcess() {
  if (_process < 0) return;
  if (_is_busy) kill(_process, SIGKILL);
  // Closing alone would not do: workers of a later pool hold copies of this end.
  shutdown(_socket.get(), SHUT_RDWR);
  WaitForEnd();
}

void WorkerProcess::Give(const std::string& task) {
  _is_busy = true;
  static_cast<void>(SendFrame(_socket.get(), Kind::kTask, task));
}

void WorkerProcess::Take(Answer& answer) {
  Kind kind{};
  if (ReceiveFrame(_socket.get(), kind, answer.text)) {
    answer.is_failure = kind == Kind::kFailure;
  } else {
    answer.is_failure = true;
    answer.text = WaitForEnd();
  }
  _is_busy = false;
}

std::string WorkerProcess::WaitForEnd() {
  int status = 0;
  pid_t ended = 0;
  do {
    ended = waitpid(_process, &status, 0);
  } while (ended < 0 && errno == EINTR);
  _process = -1;
  if (ended > 0 && WIFSIGNALED(status)) {
    return "a worker process was ended by signal " + std::to_string(WTERMSIG(status));
  }
  if (ended > 0 && WIFEXITED(status)) {
    return "a worker process ended with status " + std::to_string(WEXITSTATUS(status));
  }
  return "a worker process ended";
}

}  // namespace olt_host
