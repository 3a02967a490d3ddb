// The ONUs of a block of JSON lines, as a worker goes through it.
#ifndef OLT_HOST_NETWORK_BLOCK_READER_H
#define OLT_HOST_NETWORK_BLOCK_READER_H

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "catalogue/catalogue.h"
#include "catalogue/json_report_reader.h"
#include "network/line_blocks.h"
#include "network/refused_lines.h"
#include "network/shard.h"

namespace olt_host {

// A block as a task for a worker.
std::string TaskOf(const LineBlock& block);

class BlockReader {
 public:
  // An ONU of the shard, and its line.
  using Take = std::function<void(const NetworkReport&, std::string_view line)>;

  // `names`: the catalogue that gives the codes. `file`: as messages call it.
  BlockReader(const Catalogue& names, std::string file, const Shard& shard);

  // Goes through a task. Empty lines are no ONUs.
  void Read(std::string_view task, const Take& take, RefusedLines& refused);

 private:
  void ReadLine(std::string_view line, std::uint64_t number, const Take& take,
                RefusedLines& refused);

  JsonReportReader _reader;
  std::string _file;
  Shard _shard;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_BLOCK_READER_H
