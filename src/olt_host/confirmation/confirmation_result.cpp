#include "confirmation/confirmation_result.h"

namespace olt_host {

namespace {

std::string RealTypeText(const std::optional<std::uint16_t>& real_type) {
  return real_type ? std::to_string(*real_type) : "none";
}

}  // namespace

bool ConfirmationResult::Ok() const { return DescribeFailure(*this).empty(); }

std::string DescribeOutcome(const ConfirmationResult& result) {
  if (!result.real_type) return "is not recognised";
  return "is type " + std::to_string(*result.real_type) + " by " + ToText(result.how);
}

std::string DescribeFailure(const ConfirmationResult& result) {
  if (!result.expect) {
    return "";
  }
  const Expectation& expect = *result.expect;
  std::string failure;
  const auto add = [&failure](const std::string& what, const std::string& expected) {
    failure += (failure.empty() ? "expected " : ", ") + what + " " + expected;
  };
  if (expect.real_type != result.real_type) {
    add("real type", RealTypeText(expect.real_type));
  }
  if (expect.how && *expect.how != result.how) {
    add(failure.empty() ? "recognition by" : "by", ToText(*expect.how));
  }
  if (expect.report_type && *expect.report_type != result.report_type) {
    add("report type",
        std::to_string(*expect.report_type) + " (is " + std::to_string(result.report_type) + ")");
  }
  return failure;
}

void ConfirmationSummary::Count(const ConfirmationResult& result) {
  ++onus;
  by_type += result.how == Recognition::kType ? 1 : 0;
  by_abilities += result.how == Recognition::kAbilities ? 1 : 0;
  not_recognised += result.how == Recognition::kNone ? 1 : 0;
  translated += result.translated ? 1 : 0;
  with_expectation += result.expect ? 1 : 0;
  expectation_failed += result.Ok() ? 0 : 1;
}

}  // namespace olt_host
