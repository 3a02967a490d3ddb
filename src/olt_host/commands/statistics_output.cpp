#include "commands/statistics_output.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>
#include <utility>

#include "commands/text_table.h"
#include "commands/time_text.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;
using Duration = DurationHistogram::Duration;

constexpr std::size_t kShown = 10;

double Seconds(Duration duration) { return std::chrono::duration<double>(duration).count(); }

Duration Average(const DurationHistogram& durations) {
  return durations.count() == 0 ? Duration(0)
                                : durations.sum() / static_cast<std::int64_t>(durations.count());
}

// "950 us", "12.3 ms", "4.56 s".
std::string ShortTime(Duration duration) {
  const double seconds = Seconds(duration);
  std::array<char, 32> text{};
  if (seconds < 1e-3) {
    std::snprintf(text.data(), text.size(), "%.0f us", seconds * 1e6);
  } else if (seconds < 1) {
    std::snprintf(text.data(), text.size(), "%.1f ms", seconds * 1e3);
  } else {
    std::snprintf(text.data(), text.size(), "%.2f s", seconds);
  }
  return text.data();
}

// "1234, 56 %".
std::string Share(std::uint64_t part, std::uint64_t whole) {
  std::string text = std::to_string(part);
  if (whole != 0) text += ", " + std::to_string(part * 100 / whole) + " %";
  return text;
}

std::string TimeSpentText(const DurationHistogram& durations) {
  if (durations.count() == 0) return "none";
  return ShortTime(durations.sum()) + ", on average " + ShortTime(Average(durations)) +
         ", at most " + ShortTime(durations.longest());
}

// Which they were is for programs.
std::string HookText(const HookCalls& calls) {
  return std::to_string(std::accumulate(calls.begin(), calls.end(), std::uint64_t{0}));
}

void WriteTotals(struct vty& terminal, const StatisticsReport& report) {
  const ConfirmationStatistics& counts = report.counts;
  const ConfirmationSummary& summary = counts.summary();
  const auto age = std::chrono::duration_cast<std::chrono::seconds>(report.when - counts.since());
  WritePairs(terminal,
             {{"Counted since", LocalTimeText(counts.since()) + ", for " + DurationText(age)},
              {"Confirmations", std::to_string(summary.onus)},
              {"  by type", Share(summary.by_type, summary.onus)},
              {"  by abilities", Share(summary.by_abilities, summary.onus)},
              {"  not recognised", Share(summary.not_recognised, summary.onus)},
              {"Types translated", Share(summary.translated, summary.onus)},
              {"Time spent", TimeSpentText(counts.durations())},
              {"Hook calls", HookText(counts.hook_calls())},
              {"Commands run", std::to_string(counts.looking_commands()) + " that look, " +
                                   std::to_string(counts.changing_commands()) +
                                   " that may change something"}});
}

void WriteProfiles(struct vty& terminal, const StatisticsReport& report, std::size_t from,
                   std::size_t to) {
  if (from == to) return;
  TextTable table({{"Wins", Align::kRight},
                   {"Last won", Align::kLeft},
                   {"Key", Align::kRight},
                   {"Type name", Align::kLeft},
                   {"Profile", Align::kLeft}});
  for (std::size_t i = from; i < to; ++i) {
    const CountedProfile& profile = report.profiles[i];
    const bool has_won = profile.wins.wins != 0;
    table.Add({std::to_string(profile.wins.wins),
               has_won ? LocalTimeText(profile.wins.last) : "never", KeyText(profile.name),
               profile.type_name.empty() ? "-" : profile.type_name,
               std::string(SourceText(profile.name)) + (profile.is_in_table ? "" : ", gone")});
  }
  WriteLines(terminal, "\n");
  table.Write(terminal);
}

std::string Counted(std::size_t number, const char* one, const char* many) {
  return std::to_string(number) + " " + (number == 1 ? one : many);
}

// What became of the profiles, and which of them are not shown above.
std::string ProfilesText(const StatisticsReport& report, bool all) {
  std::string text = "\n" + Counted(report.won, "match profile", "match profiles") + " won";
  if (report.gone != 0) text += " (" + std::to_string(report.gone) + " of them gone since)";
  text += ", " + std::to_string(report.never_won()) + " never did";
  const bool hides = !all && (report.never_won() != 0 || report.won > kShown);
  return text + (hides ? "; \"show statistics all\" lists them\n" : "\n");
}

Json DurationsJson(const DurationHistogram& durations) {
  Json classes = Json::array();
  for (std::size_t i = 0; i < durations.classes().size(); ++i) {
    const bool has_limit = i < DurationHistogram::kLimits.size();
    classes.push_back(
        {{"up_to_seconds", has_limit ? Json(Seconds(DurationHistogram::kLimits.at(i))) : Json()},
         {"confirmations", durations.classes().at(i)}});
  }
  return {{"total_seconds", Seconds(durations.sum())},
          {"average_seconds", Seconds(Average(durations))},
          {"longest_seconds", Seconds(durations.longest())},
          {"classes", classes}};
}

Json ProfileJson(const CountedProfile& profile) {
  const bool has_won = profile.wins.wins != 0;
  return {{"key", profile.name.key == 0 ? Json() : Json(profile.name.key)},
          {"number", profile.name.number},
          {"type_name", profile.type_name},
          {"source", SourceText(profile.name)},
          {"gone", !profile.is_in_table},
          {"wins", profile.wins.wins},
          {"last_won", has_won ? Json(UtcTimeText(profile.wins.last)) : Json()}};
}

}  // namespace

void WriteStatistics(struct vty& terminal, const StatisticsReport& report, bool all) {
  WriteTotals(terminal, report);
  const std::size_t shown = all ? report.profiles.size() : std::min(report.won, kShown);
  WriteProfiles(terminal, report, 0, shown);
  WriteLines(terminal, ProfilesText(report, all));
}

Json StatisticsJson(const StatisticsReport& report) {
  const ConfirmationStatistics& counts = report.counts;
  const ConfirmationSummary& summary = counts.summary();
  Json hooks = Json::object();
  for (std::size_t hook = 0; hook < kHooks; ++hook) {
    hooks[kHookNames.at(hook)] = counts.hook_calls().at(hook);
  }
  Json profiles = Json::array();
  for (const CountedProfile& profile : report.profiles) profiles.push_back(ProfileJson(profile));
  return {{"since", UtcTimeText(counts.since())},
          {"confirmations", summary.onus},
          {"by_type", summary.by_type},
          {"by_abilities", summary.by_abilities},
          {"not_recognised", summary.not_recognised},
          {"translated", summary.translated},
          {"time_spent", DurationsJson(counts.durations())},
          {"hook_calls", hooks},
          {"commands",
           {{"looking", counts.looking_commands()}, {"changing", counts.changing_commands()}}},
          {"profiles_won", report.won},
          {"profiles_gone", report.gone},
          {"profiles_never_won", report.never_won()},
          {"profiles", profiles}};
}

}  // namespace olt_host
