#include "network/block_run.h"

#include <unistd.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>

#include "confirmation/progress_bar.h"
#include "network/block_reader.h"
#include "network/checkpoint.h"
#include "network/line_blocks.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::uint64_t kMegabyte = 1000000;

std::size_t Megabytes(std::uint64_t bytes) { return static_cast<std::size_t>(bytes / kMegabyte); }

// The whole of what the result depends on.
Json Identity(const BlockRun& run) {
  if (run.checkpoint.empty()) return {};
  if (run.input == "-" || !std::filesystem::is_regular_file(run.input)) {
    throw std::runtime_error("--checkpoint needs a file of reports to go on in; " +
                             InputName(run.input) + " is none");
  }
  Json identity = run.depends_on;
  identity["input"] = run.input;
  identity["size"] = std::filesystem::file_size(run.input);
  identity["written_at"] = std::filesystem::last_write_time(run.input).time_since_epoch().count();
  return identity;
}

class Going {
 public:
  Going(const BlockRun& run, BlockTaker& taker)
      : _blocks(run.input),
        _checkpoint(run.checkpoint, Identity(run)),
        _taker(taker),
        _bar(std::cerr, isatty(STDERR_FILENO) != 0, Megabytes(_blocks.size().value_or(0))) {
    _bar.SetUnit(" MB");
    if (const auto done = _checkpoint.Read()) GoOnFrom(*done);
  }

  std::optional<std::string> Next() {
    const auto block = _blocks.Next();
    if (!block) return std::nullopt;
    _under_way.push_back({block->end, block->first_line + CountLines(block->text)});
    return TaskOf(*block);
  }

  void Take(const std::string& result) {
    _taker.Take(result);
    _done.offset = _under_way.front().offset;
    _done.line = _under_way.front().line;
    _under_way.pop_front();
    _bar.Show(Megabytes(_done.offset));
    if (!_checkpoint.IsDue()) return;
    _done.summary = _taker.Taken();
    _checkpoint.Keep(_done);
  }

  void Finish() { _checkpoint.Remove(); }

 private:
  void GoOnFrom(const Progress& done) {
    _done = done;
    _blocks.Skip(done.offset, done.line);
    try {
      _taker.GoOnFrom(done.summary);
    } catch (const std::exception& error) {
      _checkpoint.ThrowDamaged(error);
    }
  }

  // Where a block ends.
  struct BlockEnd {
    std::uint64_t offset = 0;
    std::uint64_t line = 0;
  };

  static std::uint64_t CountLines(const std::string& text) {
    return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
  }

  LineBlocks _blocks;
  Checkpoint _checkpoint;
  BlockTaker& _taker;
  ProgressBar _bar;
  Progress _done;
  std::deque<BlockEnd> _under_way;
};

}  // namespace

void GoThroughBlocks(const BlockRun& run, const WorkerPool::Work& work, BlockTaker& taker) {
  WorkerPool pool(run.workers, work);
  Going going(run, taker);
  pool.Run([&going] { return going.Next(); },
           [&going](const std::string& result) { going.Take(result); });
  going.Finish();
}

}  // namespace olt_host
