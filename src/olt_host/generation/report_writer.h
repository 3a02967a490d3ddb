// Writes generated reports, one after the other, in a form that is read back as the same.
#ifndef OLT_HOST_GENERATION_REPORT_WRITER_H
#define OLT_HOST_GENERATION_REPORT_WRITER_H

#include <string>

#include "catalogue/reports.h"

namespace olt_host {

class ReportWriter {
 public:
  virtual ~ReportWriter() = default;

  // `name` of the population; `remark` tells people how it was made.
  virtual void Begin(const std::string& name, const std::string& remark) = 0;
  virtual void Write(const OnuReport& report) = 0;
  virtual void End() = 0;
};

}  // namespace olt_host

#endif  // OLT_HOST_GENERATION_REPORT_WRITER_H
