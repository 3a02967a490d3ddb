#include "recognition/replay.h"

#include "recognition/met_expectations.h"

namespace olt_host {

namespace {

std::string KeyList(const std::vector<std::uint32_t>& keys) {
  std::string list;
  for (const std::uint32_t key : keys) list += (list.empty() ? "" : ", ") + std::to_string(key);
  return list;
}

// "real type 17 by abilities, report type 857", as far as it is stated.
std::string TypesText(const Expectation& expectation) {
  std::string text = expectation.real_type ? "real type " + std::to_string(*expectation.real_type)
                                           : "not recognised";
  if (expectation.real_type && expectation.how)
    text += std::string(" by ") + ToText(*expectation.how);
  if (expectation.report_type) text += ", report type " + std::to_string(*expectation.report_type);
  return text;
}

// Of ambiguities that differ.
void DescribeAmbiguity(const Expectation& stated, const Expectation& met, ReplayFailure& failure) {
  failure.came = met.ambiguous.empty()
                     ? "is fitted by no more than one match profile"
                     : "is fitted by the match profiles " + KeyList(met.ambiguous) +
                           ", and only their order decides";
  failure.expected = stated.ambiguous.empty()
                         ? "one that fits, or ambiguous: [" + KeyList(met.ambiguous) + "]"
                         : "ambiguous: [" + KeyList(stated.ambiguous) + "]";
}

bool Fails(const OnuReport& report, const Expectation& met, ReplayFailure& failure) {
  if (!report.expect) {
    failure.came = "states no expectation";
    failure.expected = "expect: {real_type: ...}";
  } else if (!TypesAsStated(*report.expect, met)) {
    failure.came = "is " + TypesText(met);
    failure.expected = TypesText(*report.expect);
  } else if (!AmbiguityAsStated(*report.expect, met)) {
    DescribeAmbiguity(*report.expect, met, failure);
  } else {
    return false;
  }
  failure.position = report.position;
  failure.place = report.place;
  failure.onu = report.onu;
  return true;
}

}  // namespace

void Replay(const std::shared_ptr<const Population>& population, ReplayResult& result) {
  const std::vector<Expectation> met = MetExpectations(population);
  for (std::size_t i = 0; i < met.size(); ++i) {
    const OnuReport& report = population->Onus()[i];
    ++result.onus;
    ReplayFailure failure;
    if (Fails(report, met[i], failure)) {
      result.failures.push_back(failure);
    } else if (!met[i].ambiguous.empty()) {
      ++result.ambiguous;
    }
  }
}

std::string ReplayText(const ReplayResult& result) {
  std::string text;
  for (const ReplayFailure& failure : result.failures) {
    text += ToText(failure.position) + ": ONU " + std::to_string(failure.place) + "/" +
            std::to_string(failure.onu) + " " + failure.came + "; expected " + failure.expected +
            "\n";
  }
  text += std::to_string(result.onus) + (result.onus == 1 ? " ONU" : " ONUs") + " replayed, " +
          std::to_string(result.failures.size()) + " not as expected, " +
          std::to_string(result.ambiguous) + " ambiguous as declared\n";
  return text;
}

nlohmann::ordered_json ReplayJson(const ReplayResult& result) {
  nlohmann::ordered_json failures = nlohmann::ordered_json::array();
  for (const ReplayFailure& failure : result.failures) {
    failures.push_back({{"file", failure.position.file},
                        {"line", failure.position.line},
                        {"place", failure.place},
                        {"onu", failure.onu},
                        {"came", failure.came},
                        {"expected", failure.expected}});
  }
  return {{"onus", result.onus},
          {"not_as_expected", result.failures.size()},
          {"ambiguous_as_declared", result.ambiguous},
          {"failures", failures}};
}

}  // namespace olt_host
