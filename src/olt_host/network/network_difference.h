// What becomes otherwise of a whole network under another catalogue: counts that add up,
// block by block and shard by shard, to the same whichever the parts and their order. It
// grows with the catalogues, never with the ONUs.
#ifndef OLT_HOST_NETWORK_NETWORK_DIFFERENCE_H
#define OLT_HOST_NETWORK_NETWORK_DIFFERENCE_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "network/refused_lines.h"
#include "recognition/difference_counter.h"
#include "recognition/reports_of_both.h"

namespace olt_host {

struct NetworkDifference {
  PopulationDifference difference;
  std::vector<CodeOfOne> codes_of_one;  // those that only the newer has first, by their numbers
  RefusedLines refused;
};

// Adds up the differences of parts, of different ONUs each.
class NetworkDifferenceSum {
 public:
  void Add(const NetworkDifference& part);
  NetworkDifference Sum() const;

 private:
  DifferenceCounter _difference;
  std::vector<CodeOfOne> _codes_of_one;
  RefusedLines _refused;
};

// The counts of a document.
nlohmann::ordered_json ToJson(const NetworkDifference& difference);
// The same with the reports of examples, for which reasons are still to be asked.
nlohmann::ordered_json ToRecord(const NetworkDifference& difference);
// Reads either. Throws nlohmann::json::exception or std::runtime_error for what is none.
NetworkDifference ParseNetworkDifference(const nlohmann::ordered_json& json);

// For a screen of 80 columns. Lines end in "\n".
std::string NetworkDifferenceText(const NetworkDifference& difference);

// As in "only NEW defines code 50 (NAME), which 3 ONUs report"; lines end in "\n".
std::string NoteOf(const CodeOfOne& code);
nlohmann::ordered_json ToJson(const std::vector<CodeOfOne>& codes);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_NETWORK_DIFFERENCE_H
