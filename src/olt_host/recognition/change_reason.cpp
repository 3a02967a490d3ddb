#include "recognition/change_reason.h"

#include "catalogue/input_error.h"

namespace olt_host {

namespace {

std::string ProfileText(const SideOfChange& side) {
  return "profile " + NamedNumber(side.winner.key, side.type_name);
}

std::string Stopped(const PatternStanding& standing, const char* has) {
  return standing.ability + " is reported " + standing.reported + ", the profile " + has + " " +
         standing.held;
}

// What became of the profile that took the ONU before.
std::string LoserText(const ChangeGroup& group) {
  const std::string profile = ProfileText(group.before);
  switch (group.loser_after.kind) {
    case PatternStanding::kAbsent:
      return profile + " is gone";
    case PatternStanding::kStopped:
      return profile + " no longer fits: " + Stopped(group.loser_after, "asks for");
    case PatternStanding::kFits:
      break;
  }
  return profile + " still fits, but is tried after " + ProfileText(group.after);
}

// Where the profile that takes it now comes from.
std::string WinnerText(const ChangeGroup& group) {
  const std::string profile = ProfileText(group.after);
  switch (group.winner_before.kind) {
    case PatternStanding::kAbsent:
      return profile + " is new and fits";
    case PatternStanding::kStopped:
      return profile + " fits now; before, " + Stopped(group.winner_before, "asked for");
    case PatternStanding::kFits:
      break;
  }
  return profile + " fitted before as well";
}

std::string ReportedTypeText(const SideOfChange& side) {
  return "it reports type " + std::to_string(side.winner.key);
}

std::string TranslationText(const SideOfChange& before, const SideOfChange& after) {
  const std::string from = std::to_string(before.report_type);
  const std::string to = std::to_string(after.report_type);
  if (before.type_to_translate != after.type_to_translate) {
    return "the type that its profile reports was " + std::to_string(before.type_to_translate) +
           " and is " + std::to_string(after.type_to_translate);
  }
  const std::string type = "type " + std::to_string(before.type_to_translate);
  const bool was_left = before.report_type == before.type_to_translate;
  const bool is_left = after.report_type == after.type_to_translate;
  return "the identify mode of its place " +
         (was_left ? "left " + type : "made " + type + " into " + from) + ", and now " +
         (is_left ? "leaves it" : "makes it " + to);
}

std::string ByAbilities(const ChangeGroup& group) {
  if (!group.after.real_type) return LoserText(group) + "; no other profile fits";
  if (!group.before.real_type) return WinnerText(group);
  return LoserText(group) + "; " + WinnerText(group);
}

}  // namespace

std::string NamedNumber(std::uint32_t number, const std::string& name) {
  return std::to_string(number) + (name.empty() ? "" : " " + Quoted(name));
}

std::string ReasonOf(const ChangeGroup& group) {
  const SideOfChange& before = group.before;
  const SideOfChange& after = group.after;
  const bool same_profile =
      before.real_type && after.real_type && before.winner.key == after.winner.key;
  if (group.kind == OnuChange::kReportType && (same_profile || !before.real_type)) {
    return TranslationText(before, after);
  }
  if (same_profile && before.how == after.how) {
    return ProfileText(group.after) + " takes it as before, but stands for another type";
  }
  if (after.how == Recognition::kType) {
    return ReportedTypeText(group.after) + ", and now a profile has that key";
  }
  if (before.how == Recognition::kType) {
    return ReportedTypeText(group.before) + ", and no profile has that key any more; " +
           (after.real_type ? WinnerText(group) : "none fits its abilities");
  }
  return ByAbilities(group);
}

std::string ReasonOf(const LuckGroup& group) {
  std::string others;
  if (group.most_fitting > 2) {
    const std::size_t more = group.most_fitting - 2;
    others = std::string(", and ") + (group.onus > 1 ? "up to " : "") + std::to_string(more) +
             (more == 1 ? " more does" : " more do");
  }
  return "profile " + NamedNumber(group.winner.key, group.winner_name) + " is tried before " +
         NamedNumber(group.next.key, group.next_name) + ", which fits as well" + others;
}

}  // namespace olt_host
