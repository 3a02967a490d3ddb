// The ONUs of a block of JSON lines, as a worker goes through it, and the lines that it had
// to leave out.
#ifndef OLT_HOST_NETWORK_BLOCK_READER_H
#define OLT_HOST_NETWORK_BLOCK_READER_H

#include <cstdint>
#include <functional>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <string_view>
#include <tuple>

#include "catalogue/catalogue.h"
#include "catalogue/json_report_reader.h"
#include "network/line_blocks.h"
#include "network/shard.h"

namespace olt_host {

// A line that is no report, and why.
struct RefusedLine {
  std::string file;
  std::uint64_t line = 0;
  std::string problem;  // "problem; expected ..."

  // "FILE:LINE: problem; expected ..."
  std::string Text() const;
  bool operator<(const RefusedLine& other) const {
    return std::tie(file, line) < std::tie(other.file, other.line);
  }
};

// How many lines were left out, and the first few of them.
class RefusedLines {
 public:
  void Add(RefusedLine line);
  void Merge(const RefusedLines& other);

  std::uint64_t count() const { return _count; }
  const std::set<RefusedLine>& first() const { return _first; }

  nlohmann::ordered_json ToJson() const;
  // Throws nlohmann::json::exception for another document.
  static RefusedLines FromJson(const nlohmann::ordered_json& json);

 private:
  std::uint64_t _count = 0;
  std::set<RefusedLine> _first;
};

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
