#include "network/network_generation.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "catalogue/json_report_writer.h"
#include "network/checkpoint.h"
#include "network/resumable_output.h"
#include "network/worker_pool.h"

namespace olt_host {

namespace {

constexpr std::uint64_t kOnusOfATask = 1000;

// A task is the number of its first ONU.
std::uint64_t FirstOf(const std::string& task) {
  std::uint64_t first = 0;
  std::from_chars(task.data(), task.data() + task.size(), first);
  return first;
}

std::uint64_t EndOf(std::uint64_t first, const GeneratedNetwork& network) {
  return std::min(first + kOnusOfATask, network.onus());
}

std::string Lines(const GeneratedNetwork& network, const JsonReportWriter& writer,
                  std::uint64_t first) {
  std::string lines;
  for (std::uint64_t onu = first; onu < EndOf(first, network); ++onu) {
    lines += writer.Line(network.Onu(onu));
  }
  return lines;
}

// Writes what comes from the workers and keeps how far that is.
class Writing {
 public:
  explicit Writing(const NetworkGeneration& run)
      : _checkpoint(run.checkpoint, run.depends_on),
        _keeps(!run.checkpoint.empty()),
        _progress(_checkpoint.Read().value_or(Progress())),
        _output(run.output, _progress.written) {}

  std::uint64_t done() const { return _progress.offset; }

  void Take(const std::string& lines, std::uint64_t done) {
    _output.Write(lines);
    _progress.offset = done;
    _progress.line = done + 1;
    _progress.written = _output.written();
    if (!_checkpoint.IsDue()) return;
    _output.Flush();
    _checkpoint.Keep(_progress);
  }

  void End() {
    if (!_keeps) return;
    _output.Flush();
    _checkpoint.Remove();
  }

 private:
  Checkpoint _checkpoint;
  bool _keeps;
  Progress _progress;
  ResumableOutput _output;
};

}  // namespace

void GenerateNetwork(const GeneratedNetwork& network, const NetworkGeneration& run,
                     const std::function<void(std::uint64_t)>& show) {
  Writing writing(run);
  const JsonReportWriter writer;
  std::uint64_t handed_out = writing.done();
  WorkerPool pool(run.workers,
                  [&](const std::string& task) { return Lines(network, writer, FirstOf(task)); });
  pool.Run(
      [&]() -> std::optional<std::string> {
        if (handed_out >= network.onus()) return std::nullopt;
        const std::uint64_t first = handed_out;
        handed_out = EndOf(first, network);
        return std::to_string(first);
      },
      [&](const std::string& lines) {
        const std::uint64_t done = EndOf(writing.done(), network);
        writing.Take(lines, done);
        show(done);
      });
  writing.End();
}

}  // namespace olt_host
