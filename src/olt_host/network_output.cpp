#include "network_output.h"

#include <iostream>

#include "exit_status.h"
#include "network/network_summary_text.h"
#include "standard_output.h"

namespace olt_host {

int PrintNetworkSummary(const DocumentHead& head, const NetworkSummary& summary, bool as_json) {
  if (as_json) {
    std::cout << DocumentText(MakeDocument(head, ToJson(summary)));
  } else {
    std::cout << HeadText(head) << "\n" << NetworkSummaryText(summary);
  }
  FlushStandardOutput();
  return StatusOf(head, summary);
}

int StatusOf(const DocumentHead& head, const NetworkSummary& summary) {
  if (head.shards.LacksSome() || summary.refused.count() > 0) return kExitBadInput;
  return summary.counts.expectation_failed == 0 ? kExitOk : kExitNotAsExpected;
}

}  // namespace olt_host
