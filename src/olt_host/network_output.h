// How the jobs print what became of a network.
#ifndef OLT_HOST_NETWORK_OUTPUT_H
#define OLT_HOST_NETWORK_OUTPUT_H

#include "network/network_summary.h"
#include "network/summary_document.h"

namespace olt_host {

// On standard output, as a document or for people; returns the exit status. Throws
// std::runtime_error when it cannot be written.
int PrintNetworkSummary(const DocumentHead& head, const NetworkSummary& summary, bool as_json);

// The exit status alone.
int StatusOf(const DocumentHead& head, const NetworkSummary& summary);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_OUTPUT_H
