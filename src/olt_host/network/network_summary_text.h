// What became of a whole network, for people: on a screen of 80 columns, what to look at
// first at the top.
#ifndef OLT_HOST_NETWORK_NETWORK_SUMMARY_TEXT_H
#define OLT_HOST_NETWORK_NETWORK_SUMMARY_TEXT_H

#include <string>

#include "network/network_summary.h"

namespace olt_host {

// Lines that end in "\n"; the largest groups of each kind.
std::string NetworkSummaryText(const NetworkSummary& summary);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_NETWORK_SUMMARY_TEXT_H
