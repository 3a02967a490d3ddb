#include <stdexcept>

#include "jobs.h"
#include "network_diff_output.h"
#include "network_output.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

// An OLT is of one shard, and of one network.
void ExpectOtherOlts(const NetworkSummary& merged, const NetworkSummary& other,
                     const std::string& file) {
  for (const auto& olt : other.olts) {
    if (merged.olts.count(olt.first) == 0) continue;
    throw std::runtime_error(file + ": the OLT " + olt.first +
                             " is in an earlier summary already; expected other OLTs");
  }
}

}  // namespace

int RunMergeJob(const CommandLine& command_line) {
  DocumentHead head;
  NetworkSummary merged;
  for (const std::string& file : command_line.network.summaries) {
    Json document;
    const DocumentHead its_head = ReadDocument(file, document);
    if (file == command_line.network.summaries.front()) {
      head = its_head;
      if (head.kind == "diff") {
        return MergeNetworkDifferences(command_line.network.summaries, command_line.network.json);
      }
    } else {
      AddShards(head, its_head, file);
    }
    const NetworkSummary summary = ReadCounts<NetworkSummary>(file, document, ParseNetworkSummary);
    ExpectOtherOlts(merged, summary, file);
    merged.Merge(summary);
  }
  return PrintNetworkSummary(head, merged, command_line.network.json);
}

}  // namespace olt_host
