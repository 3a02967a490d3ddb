// Reads a reports file and checks all of it.
#ifndef OLT_HOST_CATALOGUE_REPORT_READER_H
#define OLT_HOST_CATALOGUE_REPORT_READER_H

#include <string>

#include "catalogue/catalogue.h"
#include "catalogue/reports.h"

namespace olt_host {

// `catalogue` gives the codes that reports name. Throws InputError for the first
// thing that is wrong.
Reports ReadReports(const std::string& file, const Catalogue& catalogue);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_REPORT_READER_H
