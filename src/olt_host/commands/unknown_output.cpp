#include "commands/unknown_output.h"

#include <algorithm>

#include "commands/ability_json.h"
#include "commands/explanation_words.h"
#include "commands/host_context.h"
#include "commands/onu_argument.h"
#include "commands/text_table.h"
#include "recognition/near_profiles.h"
#include "recognition/proposed_entry.h"
#include "recognition/undisturbed_library.h"
#include "recognition/unknown_onus.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kNearestShown = 3;

struct Inbox {
  UnknownOnus unknown;
  std::vector<ProposedEntry> entries;  // a group each
};

Inbox ReadInbox() {
  Inbox inbox;
  if (Host().population == nullptr) return inbox;
  inbox.unknown = FindUnknownOnus(*Host().population);
  inbox.entries = ProposeEntries(inbox.unknown, *Host().population);
  return inbox;
}

// The last local file, or the catalogue's own last: what stands there is tried first.
std::string FileForEntries() {
  const std::vector<CatalogueFile>& files = Host().catalogue.files;
  return files.empty() ? "" : files.back().file;
}

std::string OnuText(const OnuReport& report) {
  return std::to_string(report.place) + "/" + std::to_string(report.onu);
}

// The first of them.
std::string Examples(const std::vector<const OnuReport*>& onus) {
  constexpr std::size_t kMostNamed = 5;
  std::string text;
  for (std::size_t i = 0; i < std::min(onus.size(), kMostNamed); ++i) {
    text += (i == 0 ? "" : ", ") + OnuText(*onus[i]);
  }
  return text + (onus.size() > kMostNamed ? ", ..." : "");
}

std::string ReportText(const AlikeOnus& group) {
  std::string text;
  for (const auto& [code, value] : ComparedAbilities(group.report)) {
    text += (text.empty() ? "" : "; ") + AbilityText(code) + " " + ValueText(value);
  }
  return text.empty() ? "nothing that is compared with match profiles" : text;
}

std::string ProfileName(const NearProfile& near) {
  const bool is_operators = near.profile.source == ONU_ABILITY_PROFILE_SOURCE_EXTERNAL;
  return std::to_string(near.profile.key) + (near.name.empty() ? "" : " " + near.name) +
         (is_operators ? " (operator)" : "");
}

std::string TallyText(const AbilityTally& tally) {
  std::string text = tally.against == 0 ? "fits" : std::to_string(tally.against) + " against";
  text += ", " + std::to_string(tally.agrees) + " agree";
  if (tally.wildcards != 0) text += ", " + std::to_string(tally.wildcards) + " by wildcard";
  if (tally.absent != 0) text += ", " + std::to_string(tally.absent) + " not named by it";
  return text;
}

std::string HeldText(const AbilityComparison& comparison) {
  return comparison.held ? ValueText(*comparison.held) : "nothing";
}

void WriteNearest(struct vty& terminal, const std::vector<NearProfile>& nearest) {
  const char* head = "   Nearest  ";
  for (const NearProfile& near : nearest) {
    WriteWrapped(terminal, head, ProfileName(near) + ": " + TallyText(near.tally), 12);
    head = "            ";
    for (const AbilityComparison& against : near.against) {
      WriteWrapped(terminal, "              ",
                   AbilityText(against.code) + ": the ONUs have " + ValueText(against.reported) +
                       ", the profile " + HeldText(against),
                   16);
    }
  }
}

std::string WhyNoEntry(const AlikeOnus& group, const ProposedEntry& entry) {
  switch (entry.why_none) {
    case NoEntry::kNothingToDemand:
      return "none: they told nothing to know them by, a match profile for them would take "
             "every ONU";
    case NoEntry::kOperatorIsFirst:
      return "none: match profile " + std::to_string(group.winner.key) +
             " of an operator takes them, and is asked before all of the catalogue";
    case NoEntry::kNoKey:
      return "none: no key is free that their match profile could have";
    case NoEntry::kThereIsOne:
      break;
  }
  return "";
}

// Whom the entry takes beside the group.
void WriteTaken(struct vty& terminal, const ProposedEntry& entry) {
  if (entry.takes_safe != 0) {
    WriteWrapped(terminal, "   Careful  ",
                 "the entry changes the type of " + CountText(entry.takes_safe, "ONU", "ONUs") +
                     " that only one profile fits now: " + Examples(entry.safe_onus),
                 12);
  }
  const std::size_t others = entry.takes_by_luck + entry.takes_unrecognised;
  if (others == 0) return;
  WriteWrapped(terminal, "   Beside   ",
               "the entry takes " + CountText(others, "ONU", "ONUs") +
                   " of other groups here, which told nothing against it: " +
                   std::to_string(entry.takes_unrecognised) + " that nothing recognises, " +
                   std::to_string(entry.takes_by_luck) + " recognised by order",
               12);
}

void WriteEntry(struct vty& terminal, const AlikeOnus& group, const ProposedEntry& entry) {
  if (!entry.Exists()) {
    WriteWrapped(terminal, "   Entry    ", WhyNoEntry(group, entry), 12);
    return;
  }
  WriteTaken(terminal, entry);
  const std::string file = FileForEntries();
  const std::string wrong =
      group.IsRecognised() ? "should " + std::to_string(group.winner.key) + " be wrong, " : "";
  WriteWrapped(terminal, "   Entry    ",
               wrong + "paste it into " +
                   (file.empty() ? std::string("a file of the catalogue") : file) +
                   ", each part at the end of its section:",
               12);
  WriteLines(terminal, EntriesYaml({entry}));
}

void WriteGroup(struct vty& terminal, std::size_t number, const AlikeOnus& group,
                const std::vector<NearProfile>& nearest, const ProposedEntry& entry) {
  const std::string fate =
      group.IsRecognised() ? ", " + std::to_string(group.winner.key) + " only by the order of " +
                                 std::to_string(group.fitting) + " match profiles that fit"
                           : " that nothing recognises";
  WriteWrapped(terminal, "\r\n" + std::to_string(number) + ". ",
               CountText(group.onus.size(), "ONU", "ONUs") + fate + ": " + Examples(group.onus), 3);
  WriteWrapped(terminal, "   Report   ", ReportText(group), 12);
  WriteNearest(terminal, nearest);
  WriteEntry(terminal, group, entry);
}

Json NearJson(const NearProfile& near) {
  Json against = Json::array();
  for (const AbilityComparison& comparison : near.against) {
    against.push_back({{"code", comparison.code},
                       {"name", CodeNameJson(comparison.code)},
                       {"reported", ValueJson(comparison.reported)},
                       {"profile", ValueJson(comparison.held)}});
  }
  return {{"key", near.profile.key},     {"source", near.profile.source},
          {"id", near.profile.id},       {"type_name", near.name},
          {"agree", near.tally.agrees},  {"wildcard", near.tally.wildcards},
          {"absent", near.tally.absent}, {"against", against}};
}

Json OnusJson(const std::vector<const OnuReport*>& onus) {
  Json json = Json::array();
  for (const OnuReport* onu : onus) {
    json.push_back({{"place", onu->place}, {"onu", static_cast<unsigned int>(onu->onu)}});
  }
  return json;
}

Json EntryJson(const ProposedEntry& entry) {
  if (!entry.Exists()) return nullptr;
  return {{"key", entry.key},
          {"takes_safe", entry.takes_safe},
          {"safe_onus", OnusJson(entry.safe_onus)},
          {"takes_by_luck", entry.takes_by_luck},
          {"takes_unrecognised", entry.takes_unrecognised},
          {"yaml", EntriesYaml({entry})}};
}

Json GroupJson(const AlikeOnus& group, const std::vector<NearProfile>& nearest,
               const ProposedEntry& entry) {
  Json reported = Json::object();
  for (const auto& [code, value] : ComparedAbilities(group.report)) {
    reported[std::to_string(code)] = ValueJson(value);
  }
  Json near = Json::array();
  for (const NearProfile& profile : nearest) near.push_back(NearJson(profile));
  const std::string why_none = WhyNoEntry(group, entry);
  return {{"recognised", group.IsRecognised()},
          {"winner", group.IsRecognised() ? Json(group.winner.key) : Json()},
          {"fitting", group.fitting},
          {"count", group.onus.size()},
          {"onus", OnusJson(group.onus)},
          {"reported", reported},
          {"nearest", near},
          {"entry", EntryJson(entry)},
          {"no_entry", why_none.empty() ? Json() : Json(why_none)}};
}

std::string Heading(const UnknownOnus& unknown) {
  return CountText(unknown.unrecognised, "ONU", "ONUs") + " that nothing recognises, then " +
         std::to_string(unknown.by_luck) + " that only the order of match profiles decides; " +
         CountText(unknown.groups.size(), "group that reported", "groups that reported") +
         " the same, of either kind the largest first.";
}

}  // namespace

void WriteUnknownOnus(struct vty& terminal, bool all, const std::string& hint) {
  constexpr std::size_t kMostShown = 3;
  if (Host().population == nullptr) return WriteLines(terminal, NoOnus() + "\n");
  const UndisturbedLibrary undisturbed;
  const Inbox inbox = ReadInbox();
  const std::vector<AlikeOnus>& groups = inbox.unknown.groups;
  if (groups.empty()) {
    return WriteLines(terminal, "No ONUs that are unknown or recognised by luck\n");
  }
  WriteWrapped(terminal, "", Heading(inbox.unknown), 0);
  NearProfiles profiles;
  const std::size_t shown = all ? groups.size() : std::min(groups.size(), kMostShown);
  for (std::size_t i = 0; i < shown; ++i) {
    WriteGroup(terminal, i + 1, groups[i], profiles.Of(groups[i].report, kNearestShown),
               inbox.entries[i]);
  }
  if (shown < groups.size()) {
    WriteWrapped(terminal, "\r\n",
                 CountText(groups.size() - shown, "more group", "more groups") + "; " + hint, 0);
  }
}

Json UnknownOnusJson() {
  const UndisturbedLibrary undisturbed;
  const Inbox inbox = ReadInbox();
  NearProfiles profiles;
  Json groups = Json::array();
  for (std::size_t i = 0; i < inbox.unknown.groups.size(); ++i) {
    const AlikeOnus& group = inbox.unknown.groups[i];
    groups.push_back(GroupJson(group, profiles.Of(group.report, kNearestShown), inbox.entries[i]));
  }
  return {{"unrecognised", inbox.unknown.unrecognised},
          {"by_luck", inbox.unknown.by_luck},
          {"file", FileForEntries()},
          {"groups", groups}};
}

std::string UnknownEntries() {
  const UndisturbedLibrary undisturbed;
  const Inbox inbox = ReadInbox();
  std::vector<ProposedEntry> entries;
  for (std::size_t i = 0; i < inbox.entries.size(); ++i) {
    const ProposedEntry& entry = inbox.entries[i];
    if (!inbox.unknown.groups[i].IsRecognised() && entry.takes_safe == 0) {
      entries.push_back(entry);
    }
  }
  return EntriesYaml(entries);
}

}  // namespace olt_host
