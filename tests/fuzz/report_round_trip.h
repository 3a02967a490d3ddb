// Reports that were read, written and read again.
#ifndef TESTS_FUZZ_REPORT_ROUND_TRIP_H
#define TESTS_FUZZ_REPORT_ROUND_TRIP_H

#include "catalogue/json_report_reader.h"
#include "catalogue/json_report_writer.h"
#include "catalogue/reports.h"

// Holds that both say the same, places in files aside.
void HoldSameReport(const olt_host::OnuReport& was, const olt_host::OnuReport& read);
void HoldSameSettings(const olt_host::IdentifySettings& was,
                      const olt_host::IdentifySettings& read);

// Holds that the report is the same when it is written as a line of JSON and read.
void HoldSameAsJson(const olt_host::NetworkReport& report, const olt_host::JsonReportWriter& writer,
                    olt_host::JsonReportReader& reader);

#endif  // TESTS_FUZZ_REPORT_ROUND_TRIP_H
