#include <sys/stat.h>

#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/input_error.h"
#include "jobs.h"
#include "network_diff_output.h"
#include "network_output.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

// A whole run of diff does not tell its OLTs, so that nothing else shows it to be there twice.
void ExpectOtherFiles(const std::vector<std::string>& files) {
  std::set<std::pair<dev_t, ino_t>> seen;
  for (const std::string& file : files) {
    struct stat status {};
    // What is wrong with it is told when it is read.
    if (stat(file.c_str(), &status) != 0) continue;
    if (seen.emplace(status.st_dev, status.st_ino).second) continue;
    throw std::runtime_error(file + ": is there already; expected every summary once");
  }
}

// An OLT is of one shard, and of one network.
void ExpectOtherOlts(const NetworkSummary& merged, const NetworkSummary& other,
                     const std::string& file) {
  for (const auto& olt : other.olts) {
    if (merged.olts.count(olt.first) == 0) continue;
    throw std::runtime_error(file + ": the OLT " + olt.first +
                             " is in an earlier summary already; expected other OLTs");
  }
}

void ExpectKnownKind(const DocumentHead& head, const std::string& file) {
  const std::size_t catalogues = head.kind == "diff" ? 2 : 1;
  if (head.kind != "confirm" && head.kind != "diff") {
    throw std::runtime_error(file + ": a summary of " + Quoted(head.kind) +
                             "; expected one of confirm or diff");
  }
  if (head.catalogues.size() == catalogues) return;
  throw std::runtime_error(file + ": a summary of " + head.kind + " with " +
                           std::to_string(head.catalogues.size()) +
                           (head.catalogues.size() == 1 ? " catalogue" : " catalogues") +
                           "; expected " + std::to_string(catalogues));
}

// The sum of the documents that were read so far, all of one kind.
class Merging {
 public:
  void Add(const std::string& file) {
    Json document;
    const DocumentHead head = ReadDocument(file, document);
    if (_is_empty) {
      ExpectKnownKind(head, file);
      _head = head;
      _is_empty = false;
    } else {
      AddShards(_head, head, file);
    }
    if (IsOfDiff()) {
      _compared.Add(ReadCounts<NetworkDifference>(file, document, ParseNetworkDifference));
    } else {
      const auto summary = ReadCounts<NetworkSummary>(file, document, ParseNetworkSummary);
      ExpectOtherOlts(_confirmed, summary, file);
      _confirmed.Merge(summary);
    }
  }

  // REQUIRES: something was added.
  int Print(bool as_json) const {
    return IsOfDiff() ? PrintNetworkDifference(_head, _compared.Sum(), as_json)
                      : PrintNetworkSummary(_head, _confirmed, as_json);
  }

 private:
  bool IsOfDiff() const { return _head.kind == "diff"; }

  bool _is_empty = true;
  DocumentHead _head;
  NetworkSummary _confirmed;
  NetworkDifferenceSum _compared;
};

}  // namespace

int RunMergeJob(const CommandLine& command_line) {
  const NetworkOptions& options = command_line.network;
  ExpectOtherFiles(options.summaries);
  Merging merging;
  for (const std::string& file : options.summaries) merging.Add(file);
  return merging.Print(options.json);
}

}  // namespace olt_host
