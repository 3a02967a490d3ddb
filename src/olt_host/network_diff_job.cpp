#include <stdexcept>

#include "catalogue/catalogue_files.h"
#include "jobs.h"
#include "network/block_run.h"
#include "network/network_comparison.h"
#include "network_diff_output.h"
#include "network_run.h"
#include "platform/log_sink.h"
#include "startup.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

class ComparedBlocks : public BlockTaker {
 public:
  void Take(const std::string& result) override {
    _sum.Add(ParseNetworkDifference(Json::parse(result)));
  }
  Json Taken() const override { return ToRecord(_sum.Sum()); }
  void GoOnFrom(const Json& taken) override { _sum.Add(ParseNetworkDifference(taken)); }

  NetworkDifference Sum() const { return _sum.Sum(); }

 private:
  NetworkDifferenceSum _sum;
};

LoadedCatalogue ReadCatalogue(const std::string& path) {
  CatalogueRequest request;
  request.shipped = {path};
  return ReadCatalogueFiles(request);
}

NetworkDifference Compare(const CommandLine& command_line, const DocumentHead& head,
                          NetworkComparison& comparison) {
  ComparedBlocks blocks;
  for (const std::string& file : command_line.diff.reports) {
    const std::string name = InputName(file);
    const auto work = [&comparison, &name](const std::string& task) {
      return ToRecord(comparison.Compare(task, name))
          .dump(-1, ' ', false, Json::error_handler_t::replace);
    };
    GoThroughBlocks(RunOf(command_line.network, head, file), work, blocks);
  }
  NetworkDifference difference = blocks.Sum();
  comparison.AskReasons(difference.difference);
  return difference;
}

}  // namespace

int RunNetworkDiffJob(const CommandLine& command_line) {
  const DiffOptions& options = command_line.diff;
  const NetworkOptions& network = command_line.network;
  if (!network.checkpoint.empty() && options.reports.size() > 1) {
    throw std::runtime_error("--checkpoint is kept for one file of reports; expected one, not " +
                             std::to_string(options.reports.size()));
  }
  const LoadedCatalogue older = ReadCatalogue(options.older);
  const LoadedCatalogue newer = ReadCatalogue(options.newer);
  OpenLog(command_line.log);
  const RunningLibrary library(older.catalogue);
  NetworkComparison comparison(older.catalogue, newer.catalogue, network.shard);
  const DocumentHead head = {"diff", Json::array({CatalogueJson(older), CatalogueJson(newer)}),
                             ShardSet::Of(network.shard)};
  return PrintNetworkDifference(head, Compare(command_line, head, comparison), options.json);
}

}  // namespace olt_host
