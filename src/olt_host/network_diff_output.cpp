#include "network_diff_output.h"

#include <iostream>
#include <stdexcept>

#include "catalogue/catalogue.h"
#include "catalogue/input_error.h"
#include "exit_status.h"
#include "standard_output.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

std::string CatalogueLine(const char* which, const Json& catalogue) {
  return std::string(which) + "  " +
         NameAndVersion(Quoted(catalogue.at("name")), catalogue.at("version")) + "\n";
}

std::string HeadOf(const DocumentHead& head) {
  return CatalogueLine("OLD", head.catalogues.at(0)) + CatalogueLine("NEW", head.catalogues.at(1)) +
         ShardsText("Shards: ", head.shards);
}

int StatusOf(const DocumentHead& head, const NetworkDifference& difference) {
  if (head.shards.LacksSome() || difference.refused.count() > 0) return kExitBadInput;
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
  FlushStandardOutput();
  return StatusOf(head, difference);
}

}  // namespace olt_host
