#include <chrono>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "commands/host_context.h"
#include "jobs.h"
#include "network/block_run.h"
#include "network/network_confirmation.h"
#include "network_output.h"
#include "network_run.h"
#include "standard_output.h"
#include "startup.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

// Rows as they come, the summary at the end.
class ConfirmedBlocks : public BlockTaker {
 public:
  explicit ConfirmedBlocks(NetworkSummary nothing) : _summary(std::move(nothing)) {}

  void Take(const std::string& result) override {
    const BlockResult block = ParseBlockResult(result);
    std::cout << block.rows;
    FlushStandardOutput();
    _summary.Merge(block.summary);
  }
  Json Taken() const override { return ToJson(_summary); }
  void GoOnFrom(const Json& taken) override {
    _summary = ParseNetworkSummary(taken);
    _before = _summary.counts.onus;
  }

  const NetworkSummary& summary() const { return _summary; }
  // Those of this run alone.
  std::uint64_t onus() const { return _summary.counts.onus - _before; }

 private:
  NetworkSummary _summary;
  std::uint64_t _before = 0;
};

// Not in the summary, which is the same for the same network.
void SayTimeSpent(std::uint64_t onus, std::chrono::duration<double> duration) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << "olt_host: " << onus << " ONUs in "
       << duration.count() << " s";
  if (duration.count() > 0.1) {
    text << ", " << std::setprecision(0) << static_cast<double>(onus) / duration.count()
         << " a second";
  }
  std::cerr << text.str() << "\n";
}

NetworkSummary Confirm(const CommandLine& command_line, const BlockRun& run, bool with_rows) {
  NetworkConfirmation confirmation(Host().catalogue.catalogue, InputName(run.input),
                                   command_line.network.shard, with_rows);
  ConfirmedBlocks blocks(confirmation.NoWins());
  const auto start = std::chrono::steady_clock::now();
  GoThroughBlocks(
      run, [&confirmation](const std::string& task) { return ToBytes(confirmation.Confirm(task)); },
      blocks);
  if (command_line.format == OutputFormat::kTable) {
    SayTimeSpent(blocks.onus(), std::chrono::steady_clock::now() - start);
  }
  return blocks.summary();
}

}  // namespace

int RunNetworkConfirmJob(const CommandLine& command_line) {
  const bool with_rows = command_line.format == OutputFormat::kCsv;
  if (with_rows && !command_line.network.checkpoint.empty()) {
    throw std::runtime_error(
        "--checkpoint keeps a summary, not the ONUs that --csv prints; expected one of them");
  }
  CommandLine without_reports = command_line;
  without_reports.reports.clear();
  const auto library = StartHost(without_reports);
  const DocumentHead head = {"confirm", Json::array({CatalogueJson(Host().catalogue)}),
                             ShardSet::Of(command_line.network.shard)};
  if (with_rows) std::cout << NetworkCsvHeader();
  const BlockRun run = RunOf(command_line.network, head, command_line.reports);
  const NetworkSummary summary = Confirm(command_line, run, with_rows);
  if (!with_rows) {
    return PrintNetworkSummary(head, summary, command_line.format == OutputFormat::kJson);
  }
  FlushStandardOutput();
  for (const RefusedLine& line : summary.refused.first()) std::cerr << line.Text() << "\n";
  return StatusOf(head, summary);
}

}  // namespace olt_host
