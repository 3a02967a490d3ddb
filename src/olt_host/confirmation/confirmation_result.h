// What became of one ONU, and what became of many.
#ifndef OLT_HOST_CONFIRMATION_CONFIRMATION_RESULT_H
#define OLT_HOST_CONFIRMATION_CONFIRMATION_RESULT_H

#include <cstdint>
#include <optional>
#include <string>

#include "catalogue/reports.h"

namespace olt_host {

struct ConfirmationResult {
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
  std::optional<std::string> vendor_id;
  std::uint32_t reported_type = kUnknownReportedType;
  std::optional<std::uint16_t> real_type;  // nothing: not recognised
  std::string type_name;
  Recognition how = Recognition::kNone;
  bool translated = false;        // the identify mode changed the type to report
  std::uint16_t report_type = 0;  // after translation
  std::optional<Expectation> expect;
  SourcePosition position;  // of the report

  // Whether everything that the report expects came true; also without any
  // expectation.
  bool Ok() const;
};

// "is type 17 by abilities", "is not recognised".
std::string DescribeOutcome(const ConfirmationResult& result);

// What was expected and what came instead, as far as they differ: "expected real
// type 17, how type". "" when Ok().
std::string DescribeFailure(const ConfirmationResult& result);

// Counts results one by one, so that a population need not be kept: a whole network, too,
// whatever the machine's words.
struct ConfirmationSummary {
  std::uint64_t onus = 0;
  std::uint64_t by_type = 0;
  std::uint64_t by_abilities = 0;
  std::uint64_t not_recognised = 0;
  std::uint64_t translated = 0;
  std::uint64_t with_expectation = 0;
  std::uint64_t expectation_failed = 0;

  void Count(const ConfirmationResult& result);
};

}  // namespace olt_host

#endif  // OLT_HOST_CONFIRMATION_CONFIRMATION_RESULT_H
