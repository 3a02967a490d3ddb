// Confirming the ONUs of a network block by block: what a worker does with a task.
#ifndef OLT_HOST_NETWORK_NETWORK_CONFIRMATION_H
#define OLT_HOST_NETWORK_NETWORK_CONFIRMATION_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "network/block_reader.h"
#include "network/network_summary.h"
#include "recognition/fit_index.h"

namespace olt_host {

// What a task came to.
struct BlockResult {
  std::string rows;  // comma-separated values, an ONU a line; empty unless they are wanted
  NetworkSummary summary;
};

// As one byte string, and back. Throws std::invalid_argument, nlohmann::json::exception or
// std::runtime_error for what is none.
std::string ToBytes(const BlockResult& result);
BlockResult ParseBlockResult(const std::string& bytes);

// The head of the rows.
std::string NetworkCsvHeader();

class NetworkConfirmation {
 public:
  // `catalogue` is the one that the library holds. REQUIRES: the hooks are registered; on
  // the thread that works with the library, whose tables must not change.
  NetworkConfirmation(const Catalogue& catalogue, std::string file, const Shard& shard,
                      bool with_rows);

  BlockResult Confirm(const std::string& task);

  // Every match profile, with no win: those that never win stand in the whole's summary.
  NetworkSummary NoWins() const;

 private:
  void ConfirmOne(const NetworkReport& report, BlockResult& result);
  void CountUnrecognised(const NetworkReport& report, NetworkSummary& summary);
  std::string TypeNameOf(std::uint32_t key) const;

  BlockReader _reader;
  bool _with_rows;
  std::vector<OnuAbilityProfile> _patterns;                                  // oldest first
  std::vector<MatchProfileName> _names;                                      // of each
  std::map<std::pair<unsigned int, std::uint16_t>, std::size_t> _positions;  // by source and id
  std::map<std::uint32_t, std::string> _type_names;                          // by key
  FitIndex _index;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_NETWORK_CONFIRMATION_H
