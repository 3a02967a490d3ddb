// The ONUs of one OLT out of a network, to look at them as at those of a file of their own.
#ifndef OLT_HOST_NETWORK_OLT_REPORTS_H
#define OLT_HOST_NETWORK_OLT_REPORTS_H

#include <string>

#include "catalogue/catalogue.h"
#include "catalogue/reports.h"

namespace olt_host {

// `input`: JSON lines, "-" for standard input. Throws InputError for a line that seems to be
// of the OLT and is no report, for an ONU that stands there twice and for a place that is set
// to different modes; std::runtime_error when there is no ONU of it.
Reports ReadReportsOfOlt(const std::string& input, const std::string& olt,
                         const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_OLT_REPORTS_H
