// Comparing what two catalogues make of a network, block by block: what a worker does with a
// task.
//
// The library holds one catalogue at a time. A worker asks for all ONUs of a block under the
// one that it holds, exchanges it, asks under the other, and begins the next block with that
// one: one exchange a block.
#ifndef OLT_HOST_NETWORK_NETWORK_COMPARISON_H
#define OLT_HOST_NETWORK_NETWORK_COMPARISON_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "network/block_reader.h"
#include "network/network_difference.h"
#include "recognition/outcome_reader.h"
#include "state/library_state.h"

namespace olt_host {

class NetworkComparison {
 public:
  // REQUIRES: the hooks are registered and the tables exist; on the thread that works with
  // the library, which belongs to this from now on. The catalogues must outlive it. Throws
  // std::runtime_error when the library does not take one.
  NetworkComparison(const Catalogue& older, const Catalogue& newer, const Shard& shard);

  // `file`: as messages call it.
  NetworkDifference Compare(const std::string& task, const std::string& file);

  // Asks how the profiles of the examples stand under either catalogue, from their reports.
  void AskReasons(PopulationDifference& difference);

 private:
  // A catalogue with what was made of it.
  struct Side {
    Side(const Catalogue& catalogue, const Catalogue& other);

    Catalogue names;  // that reports are read by
    LibraryState state;
    OutcomeReader reader;
    NamesByKey type_names;
  };

  // One ONU, as either catalogue reads it.
  struct Onu {
    NetworkReport for_older;
    std::optional<NetworkReport> for_newer;  // nothing: the same
    std::string_view line;

    const NetworkReport& ForNewer() const { return for_newer ? *for_newer : for_older; }
  };

  std::vector<Onu> ReadBlock(const std::string& task, const std::string& file,
                             RefusedLines& refused) const;
  void Hold(const Side& side);
  std::vector<OnuOutcome> OutcomesOf(const std::vector<Onu>& onus, Side& side);
  void Ask(PopulationDifference& difference, const Side& side,
           void (*ask)(PopulationDifference&, const GatherExample&));

  Shard _shard;
  CodesOfOne _codes;  // none counted
  Side _older;
  Side _newer;
  const Side* _held;
  bool _read_alike;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_NETWORK_COMPARISON_H
