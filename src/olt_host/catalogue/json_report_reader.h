// Reads the report of one ONU from a line of JSON, as files of whole networks have them.
#ifndef OLT_HOST_CATALOGUE_JSON_REPORT_READER_H
#define OLT_HOST_CATALOGUE_JSON_REPORT_READER_H

#include <memory>
#include <string_view>

#include "catalogue/catalogue.h"
#include "catalogue/reports.h"

namespace olt_host {

class JsonReportReader {
 public:
  // `catalogue` gives the codes that reports name, and need not outlive this.
  explicit JsonReportReader(const Catalogue& catalogue);
  ~JsonReportReader();
  JsonReportReader(const JsonReportReader&) = delete;
  JsonReportReader& operator=(const JsonReportReader&) = delete;

  // `line` without its line break. Throws InputError at `position` for the first thing
  // that is wrong.
  NetworkReport Read(std::string_view line, const SourcePosition& position);
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_JSON_REPORT_READER_H
