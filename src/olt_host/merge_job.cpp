#include <stdexcept>
#include <string>
#include <vector>

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

int MergeNetworkSummaries(const std::vector<std::string>& files, bool as_json) {
  DocumentHead head;
  NetworkSummary merged;
  for (std::size_t i = 0; i < files.size(); ++i) {
    Json document;
    const DocumentHead its_head = ReadDocument(files[i], document);
    if (i == 0) {
      head = its_head;
    } else {
      AddShards(head, its_head, files[i]);
    }
    const auto summary = ReadCounts<NetworkSummary>(files[i], document, ParseNetworkSummary);
    ExpectOtherOlts(merged, summary, files[i]);
    merged.Merge(summary);
  }
  return PrintNetworkSummary(head, merged, as_json);
}

}  // namespace

int RunMergeJob(const CommandLine& command_line) {
  const NetworkOptions& options = command_line.network;
  Json first;
  const DocumentHead head = ReadDocument(options.summaries.front(), first);
  return head.kind == "diff" ? MergeNetworkDifferences(options.summaries, options.json)
                             : MergeNetworkSummaries(options.summaries, options.json);
}

}  // namespace olt_host
