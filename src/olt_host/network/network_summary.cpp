#include "network/network_summary.h"

#include <iterator>
#include <utility>

namespace olt_host {

namespace {

constexpr std::size_t kShownFailures = 10;

void Add(ConfirmationSummary& sum, const ConfirmationSummary& other) {
  sum.onus += other.onus;
  sum.by_type += other.by_type;
  sum.by_abilities += other.by_abilities;
  sum.not_recognised += other.not_recognised;
  sum.translated += other.translated;
  sum.with_expectation += other.with_expectation;
  sum.expectation_failed += other.expectation_failed;
}

// One name whichever comes first.
void KeepLast(std::string& name, const std::string& other) {
  if (name < other) name = other;
}

void KeepFirst(std::set<FailedExpectation>& failures) {
  while (failures.size() > kShownFailures) failures.erase(std::prev(failures.end()));
}

}  // namespace

void NetworkSummary::Count(const std::string& olt, const ConfirmationResult& result,
                           const std::optional<MatchProfileName>& winner) {
  counts.Count(result);
  OltCounts& of_olt = olts[olt];
  ++of_olt.onus;
  if (result.real_type) {
    ++types[{*result.real_type, result.type_name}];
  } else {
    ++of_olt.not_recognised;
  }
  if (winner) ++profiles[*winner].wins;
  if (result.Ok()) return;
  ++of_olt.not_as_expected;
  failures.insert(
      {{olt, result.place, result.onu}, DescribeOutcome(result) + "; " + DescribeFailure(result)});
  KeepFirst(failures);
}

void NetworkSummary::CountUnrecognised(const UnrecognisedKey& key, const UnrecognisedGroup& one) {
  UnrecognisedGroup& group = unrecognised[key];
  const std::uint64_t onus = group.onus + one.onus;
  if (group.onus == 0 || one.example < group.example) group = one;
  group.onus = onus;
}

void NetworkSummary::Merge(const NetworkSummary& other) {
  Add(counts, other.counts);
  for (std::size_t i = 0; i < kHooks; ++i) hook_calls[i] += other.hook_calls[i];
  for (const auto& [type, onus] : other.types) types[type] += onus;
  for (const auto& [name, profile] : other.profiles) {
    ProfileCount& sum = profiles[name];
    sum.wins += profile.wins;
    KeepLast(sum.type_name, profile.type_name);
  }
  for (const auto& [olt, of_other] : other.olts) {
    OltCounts& sum = olts[olt];
    sum.onus += of_other.onus;
    sum.not_recognised += of_other.not_recognised;
    sum.not_as_expected += of_other.not_as_expected;
  }
  for (const auto& [key, group] : other.unrecognised) CountUnrecognised(key, group);
  compared_with_nothing += other.compared_with_nothing;
  failures.insert(other.failures.begin(), other.failures.end());
  KeepFirst(failures);
  refused.Merge(other.refused);
}

}  // namespace olt_host
