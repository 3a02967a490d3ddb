#include "network_diff_output.h"

#include <iostream>
#include <stdexcept>

#include "catalogue/input_error.h"
#include "exit_status.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

std::string CatalogueLine(const char* which, const Json& catalogue) {
  const std::string version = catalogue.at("version");
  return std::string(which) + "  " + Quoted(catalogue.at("name")) +
         (version.empty() ? "" : ", version " + version) + "\n";
}

std::string ShardsText(const ShardSet& shards) {
  if (shards.IsWhole()) return "";
  if (shards.numbers.size() == 1) {
    return "Shard " + std::to_string(*shards.numbers.begin()) + " of " +
           std::to_string(shards.count) + "\n";
  }
  return "Shards: " + std::to_string(shards.numbers.size()) + " of " +
         std::to_string(shards.count) + "; missing: " + MissingText(shards) + "\n";
}

std::string HeadOf(const DocumentHead& head) {
  return CatalogueLine("OLD", head.catalogues.at(0)) + CatalogueLine("NEW", head.catalogues.at(1)) +
         ShardsText(head.shards);
}

int StatusOf(const DocumentHead& head, const NetworkDifference& difference) {
  // Of one shard nobody expects the others.
  const bool lacks_shards = !head.shards.IsWhole() && head.shards.numbers.size() > 1;
  if (lacks_shards || difference.refused.count() > 0) return kExitBadInput;
  return difference.difference.Changed() == 0 ? kExitOk : kExitNotAsExpected;
}

}  // namespace

int PrintNetworkDifference(const DocumentHead& head, const NetworkDifference& difference,
                           bool as_json) {
  if (as_json) {
    std::cout << DocumentText(MakeDocument(head, ToJson(difference)));
  } else {
    std::cout << HeadOf(head) << "\n" << NetworkDifferenceText(difference);
  }
  if (!std::cout.flush()) throw std::runtime_error("standard output cannot be written");
  return StatusOf(head, difference);
}

}  // namespace olt_host
