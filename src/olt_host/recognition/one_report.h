// A report source of one ONU, for questions about a single report.
#ifndef OLT_HOST_RECOGNITION_ONE_REPORT_H
#define OLT_HOST_RECOGNITION_ONE_REPORT_H

#include "confirmation/hooks.h"

namespace olt_host {

// The only ONU of an OLT. `report` must outlive it.
class OneReport : public ReportSource {
 public:
  explicit OneReport(const OnuReport& report, const IdentifySettings& settings = {})
      : _report(report), _settings(settings) {}
  const OnuReport* Find(std::uint16_t /*place*/, std::uint8_t /*onu*/) const override {
    return &_report;
  }
  const IdentifySettings& Settings(std::uint16_t /*place*/) const override { return _settings; }

 private:
  const OnuReport& _report;
  IdentifySettings _settings;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_ONE_REPORT_H
