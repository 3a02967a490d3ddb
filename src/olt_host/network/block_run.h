// Going through a file of JSON lines on all cores: blocks of lines to the workers, their
// results in order to whoever adds them up, with a bar that shows how far it is and a
// checkpoint to go on from.
#ifndef OLT_HOST_NETWORK_BLOCK_RUN_H
#define OLT_HOST_NETWORK_BLOCK_RUN_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "network/worker_pool.h"

namespace olt_host {

// What the results of the blocks become.
class BlockTaker {
 public:
  virtual ~BlockTaker() = default;

  // A result of the work, in the order of the blocks.
  virtual void Take(const std::string& result) = 0;
  // What was taken so far, to go on from; and where an earlier run was interrupted.
  virtual nlohmann::ordered_json Taken() const = 0;
  virtual void GoOnFrom(const nlohmann::ordered_json& taken) = 0;
};

// Moving JSON does not throw, though the linter thinks so.
// NOLINTNEXTLINE(bugprone-exception-escape)
struct BlockRun {
  std::string input;  // path, or "-" for standard input
  unsigned int workers = 1;
  std::string checkpoint;  // path; empty for none
  // What the result depends on besides the input: job, catalogues, options.
  nlohmann::ordered_json depends_on;
};

// Goes through all blocks that are not done. The workers are copies of this process as it is
// now. Throws std::runtime_error; the checkpoint is what was done up to a second before.
void GoThroughBlocks(const BlockRun& run, const WorkerPool::Work& work, BlockTaker& taker);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_BLOCK_RUN_H
