#include "commands/statistics_exposition.h"

#include "commands/exposition_writer.h"

namespace olt_host {

namespace {

using Labels = ExpositionWriter::Labels;

template <typename Duration>
double Seconds(Duration duration) {
  return std::chrono::duration<double>(duration).count();
}

void AddConfirmations(ExpositionWriter& writer, const ConfirmationStatistics& counts) {
  const ConfirmationSummary& summary = counts.summary();
  writer.Begin("olt_host_confirmations_total", "counter",
               "Live ONUs confirmed, by what they were recognised by.");
  writer.Add({{"recognised_by", "type"}}, summary.by_type);
  writer.Add({{"recognised_by", "abilities"}}, summary.by_abilities);
  writer.Add({{"recognised_by", "none"}}, summary.not_recognised);
  writer.Begin("olt_host_translations_total", "counter",
               "Confirmations in which the identify mode changed the type to report.");
  writer.Add({}, summary.translated);
}

void AddDurations(ExpositionWriter& writer, const DurationHistogram& durations) {
  writer.Begin("olt_host_confirmation_duration_seconds", "histogram",
               "Time that the confirmation of an ONU took.");
  std::uint64_t so_far = 0;
  for (std::size_t i = 0; i < durations.classes().size(); ++i) {
    const bool has_limit = i < DurationHistogram::kLimits.size();
    so_far += durations.classes().at(i);
    writer.Add(
        {{"le", has_limit ? ExpositionNumber(Seconds(DurationHistogram::kLimits.at(i))) : "+Inf"}},
        so_far, "_bucket");
  }
  writer.AddNumber({}, Seconds(durations.sum()), "_sum");
  writer.Add({}, durations.count(), "_count");
  writer.Begin("olt_host_confirmation_duration_longest_seconds", "gauge",
               "The longest confirmation since counting began.");
  writer.AddNumber({}, Seconds(durations.longest()));
}

void AddCalls(ExpositionWriter& writer, const ConfirmationStatistics& counts) {
  writer.Begin("olt_host_hook_calls_total", "counter",
               "What confirmations asked the host for, and told it.");
  for (std::size_t hook = 0; hook < kHooks; ++hook) {
    writer.Add({{"hook", kHookNames.at(hook)}}, counts.hook_calls().at(hook));
  }
  writer.Begin("olt_host_commands_total", "counter", "Commands that operators ran.");
  writer.Add({{"kind", "looking"}}, counts.looking_commands());
  writer.Add({{"kind", "changing"}}, counts.changing_commands());
}

Labels LabelsOf(const CountedProfile& profile) {
  return {{"source", SourceText(profile.name)},
          {"key", std::to_string(profile.name.key)},
          {"number", std::to_string(profile.name.number)},
          {"type_name", profile.type_name}};
}

void AddProfiles(ExpositionWriter& writer, const StatisticsReport& report) {
  writer.Begin("olt_host_match_profiles", "gauge",
               "Match profiles that can win, and those that won and are gone.");
  writer.Add({{"state", "won"}}, report.won - report.gone);
  writer.Add({{"state", "never_won"}}, report.never_won());
  writer.Add({{"state", "gone"}}, report.gone);
  writer.Begin("olt_host_match_profile_wins_total", "counter",
               "Confirmations that a match profile won.");
  for (const CountedProfile& profile : report.profiles) {
    writer.Add(LabelsOf(profile), profile.wins.wins);
  }
  writer.Begin("olt_host_match_profile_last_win_timestamp_seconds", "gauge",
               "When a match profile won last; those that never won have none.");
  for (const CountedProfile& profile : report.profiles) {
    if (profile.wins.wins == 0) continue;
    writer.AddNumber(LabelsOf(profile), Seconds(profile.wins.last.time_since_epoch()));
  }
}

}  // namespace

std::string ExpositionText(const StatisticsReport& report) {
  ExpositionWriter writer;
  writer.Begin("olt_host_statistics_start_timestamp_seconds", "gauge",
               "When counting began: at the start of the host, or when it was cleared.");
  writer.AddNumber({}, Seconds(report.counts.since().time_since_epoch()));
  AddConfirmations(writer, report.counts);
  AddDurations(writer, report.counts.durations());
  AddCalls(writer, report.counts);
  AddProfiles(writer, report);
  return writer.text();
}

}  // namespace olt_host
