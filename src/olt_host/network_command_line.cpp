#include "network_command_line.h"

namespace olt_host {

bool IsJsonLines(const std::string& reports) {
  const std::string ending = ".jsonl";
  return reports == "-" ||
         (reports.size() > ending.size() &&
          reports.compare(reports.size() - ending.size(), ending.size(), ending) == 0);
}

bool IsForNetworks(const NetworkOptions& options) {
  return !options.shard.IsWhole() || options.workers > 0 || !options.checkpoint.empty();
}

void AddShardOption(CLI::App& command, CommandLine& result) {
  command
      .add_option_function<std::string>(
          "--shard",
          [&result](const std::string& text) {
            const auto shard = ParseShard(text);
            if (!shard) {
              throw CLI::ValidationError("--shard", "\"" + text +
                                                        "\" is no shard; expected I/N, with I "
                                                        "from 1 to N and N at most " +
                                                        std::to_string(kMostShards));
            }
            result.network.shard = *shard;
          },
          "Of JSON lines, the OLTs of part I of N; see merge")
      ->type_name("I/N");
}

void AddWorkerOptions(CLI::App& command, CommandLine& result) {
  command
      .add_option("--workers", result.network.workers,
                  "Processes for JSON lines (default: one a core)")
      ->check(CLI::Range(1, 1024))
      ->type_name("N");
  command
      .add_option("--checkpoint", result.network.checkpoint,
                  "Keep in FILE how far it came, and go on from there")
      ->type_name("FILE");
}

CLI::App* AddMerge(CLI::App& app, CommandLine& result) {
  CLI::App* merge = app.add_subcommand("merge", "Add up the summaries of a network's shards");
  merge
      ->add_option("SUMMARY", result.network.summaries,
                   "What confirm or diff printed with --shard and --json")
      ->required()
      ->type_name("FILE");
  merge->add_flag("--json", result.network.json, "Print one JSON document, to be merged again");
  merge->footer(
      "All shards of a network merge into what one run over all of it prints. Summaries of\n"
      "different networks, made with the same catalogue, add up as well.\n\n"
      "Exit status:\n"
      "  0  nothing to look at\n"
      "  1  some ONUs are not as expected, or change\n"
      "  2  bad usage or bad input, lines that were left out, or shards that are missing\n");
  return merge;
}

}  // namespace olt_host
