// Writes reports, one after the other, in a form that is read back as the same.
#ifndef OLT_HOST_CATALOGUE_REPORT_WRITER_H
#define OLT_HOST_CATALOGUE_REPORT_WRITER_H

#include <cstdint>
#include <map>
#include <string>

#include "catalogue/reports.h"

namespace olt_host {

// What stands before the reports.
struct ReportsHeader {
  std::string name;    // of the population
  std::string remark;  // for people: how it was made, in lines
  // Of places whose settings are not all 0.
  std::map<std::uint16_t, IdentifySettings> settings;
};

class ReportWriter {
 public:
  virtual ~ReportWriter() = default;

  virtual void Begin(const ReportsHeader& header) = 0;
  virtual void Write(const OnuReport& report) = 0;
  virtual void End() = 0;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_REPORT_WRITER_H
