// How the jobs print what becomes otherwise of a network.
#ifndef OLT_HOST_NETWORK_DIFF_OUTPUT_H
#define OLT_HOST_NETWORK_DIFF_OUTPUT_H

#include "network/network_difference.h"
#include "network/summary_document.h"

namespace olt_host {

// On standard output, as a document or for people; returns the exit status. `head` has the
// older catalogue and the newer one. Throws std::runtime_error when it cannot be written.
int PrintNetworkDifference(const DocumentHead& head, const NetworkDifference& difference,
                           bool as_json);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_DIFF_OUTPUT_H
