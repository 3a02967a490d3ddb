#include "network/worker_pool.h"

#include <poll.h>
#include <sched.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <system_error>

#include "network/worker_process.h"

namespace olt_host {

namespace {

using Workers = std::vector<std::unique_ptr<WorkerProcess>>;

// One call of Run. Tasks are numbered from 0; an answer waits in the place of its number
// until those before it are taken.
class Round {
 public:
  Round(const Workers& workers, const WorkerPool::Source& next, const WorkerPool::Sink& take)
      : _workers(workers),
        _next(next),
        _take(take),
        _places(workers.size() * WorkerPool::kTasksAhead),
        _task_of(workers.size()) {}

  void ToTheEnd() {
    for (;;) {
      // Workers that are free go first: they work while results are taken here.
      HandOut();
      if (_taken == _handed_out) return;
      if (!FirstPlace().is_answered) {
        Collect(kUntilOneAnswers);
        continue;
      }
      TakeFirst();
      Collect(kWithoutWaiting);
    }
  }

 private:
  static constexpr int kUntilOneAnswers = -1;
  static constexpr int kWithoutWaiting = 0;

  struct Place {
    bool is_answered = false;
    Answer answer;  // its memory is used again
  };

  Place& PlaceOf(std::uint64_t task) {
    return _places[static_cast<std::size_t>(task % _places.size())];
  }
  Place& FirstPlace() { return PlaceOf(_taken); }

  void HandOut() {
    for (std::size_t i = 0; i < _workers.size(); ++i) {
      if (_is_at_end || _handed_out - _taken == _places.size()) return;
      if (_workers[i]->is_busy()) continue;
      const std::optional<std::string> task = _next();
      if (!task) {
        _is_at_end = true;
        return;
      }
      _task_of[i] = _handed_out++;
      _workers[i]->Give(*task);
    }
  }

  // Takes in the answers that are there.
  void Collect(int wait) {
    _polled.clear();
    for (const auto& worker : _workers) {
      // A negative descriptor is passed over.
      _polled.push_back({worker->is_busy() ? worker->descriptor() : -1, POLLIN, 0});
    }
    if (poll(_polled.data(), _polled.size(), wait) < 0) {
      if (errno == EINTR) return;
      throw std::system_error(errno, std::generic_category(), "cannot wait for worker processes");
    }
    for (std::size_t i = 0; i < _workers.size(); ++i) {
      if (_polled[i].revents == 0) continue;
      Place& place = PlaceOf(_task_of[i]);
      _workers[i]->Take(place.answer);
      place.is_answered = true;
      // Nothing behind a failure is taken, so nothing more is begun.
      _is_at_end = _is_at_end || place.answer.is_failure;
    }
  }

  void TakeFirst() {
    Place& place = FirstPlace();
    if (place.answer.is_failure) throw WorkError(place.answer.text);
    _take(place.answer.text);
    place.is_answered = false;
    ++_taken;
  }

  const Workers& _workers;
  const WorkerPool::Source& _next;
  const WorkerPool::Sink& _take;
  std::vector<Place> _places;
  std::vector<std::uint64_t> _task_of;  // worker
  std::vector<pollfd> _polled;
  std::uint64_t _handed_out = 0;
  std::uint64_t _taken = 0;
  bool _is_at_end = false;
};

}  // namespace

WorkerPool::WorkerPool(unsigned int workers, const Work& work) {
  _workers.reserve(workers);
  for (unsigned int i = 0; i < std::max(1U, workers); ++i) {
    _workers.push_back(std::make_unique<WorkerProcess>(work, _workers));
  }
}

WorkerPool::~WorkerPool() = default;

void WorkerPool::Run(const Source& next, const Sink& take) {
  Round(_workers, next, take).ToTheEnd();
}

unsigned int AllCores() {
  cpu_set_t cores;
  if (sched_getaffinity(0, sizeof(cores), &cores) != 0) return 1;
  return static_cast<unsigned int>(std::max(1, CPU_COUNT(&cores)));
}

}  // namespace olt_host
