// An explanation as text of 80 columns: what follows from the report in short, what was
// reported, what became of the profiles.
#include <algorithm>
#include <numeric>

#include "commands/explanation_output.h"
#include "commands/explanation_translation.h"
#include "commands/explanation_words.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "text/columns.h"

namespace olt_host {

namespace {

constexpr std::size_t kMostShown = 10;

using Pairs = std::vector<std::pair<std::string, std::string>>;
using Indices = std::vector<std::size_t>;

void WriteHeading(struct vty& terminal, const std::string& text) {
  WriteWrapped(terminal, "\r\n", text, 0);
}

std::string Headline(const Explanation& explanation) {
  const std::string onu = "ONU " + std::to_string(explanation.report.place) + "/" +
                          std::to_string(explanation.report.onu);
  if (!explanation.real_type) {
    return onu + " is not recognised: no match profile fits what it reports.";
  }
  const std::string type = " is " +
                           (explanation.type_name.empty() ? "" : explanation.type_name + ", ") +
                           "real type " + std::to_string(*explanation.real_type) + ": ";
  if (explanation.compared) return onu + type + "recognised by its abilities.";
  return onu + type +
         (explanation.how == Recognition::kType
              ? "recognised by the type that it reports."
              : "it reports no type, and a match profile has no key, which is taken for the same.");
}

std::string ReportedTypeText(const Explanation& explanation) {
  const std::uint32_t type = explanation.report.reported_type;
  if (type == kUnknownReportedType) return "unknown";
  return std::to_string(type) + (explanation.how == Recognition::kType
                                     ? ", the key of a match profile"
                                     : ", the key of no match profile");
}

std::string TallyText(const AbilityTally& tally) {
  const std::size_t all = tally.agrees + tally.wildcards + tally.absent + tally.against;
  if (all == 0) return "the ONU told nothing that is compared, so any profile fits";
  return "of " + CountText(all, "ability ", "abilities ") + std::to_string(tally.agrees) +
         (tally.agrees == 1 ? " agrees, " : " agree, ") + std::to_string(tally.wildcards) +
         " by wildcard, " + std::to_string(tally.absent) + " not named by the profile" +
         (tally.against == 0 ? "" : ", " + std::to_string(tally.against) + " against");
}

std::string ListText(const std::vector<std::uint16_t>& codes) {
  std::string text;
  for (const std::uint16_t code : codes) text += (text.empty() ? "" : ", ") + AbilityText(code);
  return text;
}

// "GE_PORTS (47): the ONU has 1, the profile 4".
std::string DeciderText(const AbilityComparison& decider) {
  const bool is_set =
      decider.held && decider.held->ability_value_type != ONU_ABILITY_VALUE_TYPE_NONE;
  return AbilityText(decider.code) + ": the ONU has " + ValueText(decider.reported) +
         (is_set ? ", the profile " + ValueText(*decider.held)
                 : ", the profile an unset value, which nothing fits");
}

// Where the abilities alone would have led an ONU that was recognised by its type.
std::string ByAbilitiesText(const Explanation& explanation) {
  if (!explanation.by_abilities) return "not compared, alone they would have led to no profile";
  const ProfileVerdict& fitting = explanation.profiles[*explanation.by_abilities];
  if (explanation.winner == explanation.by_abilities) {
    return "not compared, alone they would have led to the same profile";
  }
  return "not compared, alone they would have led to profile " + ProfileText(fitting);
}

std::size_t CountOf(const Explanation& explanation, ProfileFate fate) {
  return static_cast<std::size_t>(
      std::count_if(explanation.profiles.begin(), explanation.profiles.end(),
                    [fate](const ProfileVerdict& verdict) { return verdict.fate == fate; }));
}

void AddWinner(const Explanation& explanation, Pairs& pairs) {
  if (!explanation.winner) {
    pairs.emplace_back("Winner", "none");
    return;
  }
  const ProfileVerdict& winner = explanation.profiles[*explanation.winner];
  pairs.emplace_back("Winner", "match profile " + ProfileText(winner));
  pairs.emplace_back("  from", OriginText(explanation.origin));
  pairs.emplace_back("Its abilities",
                     explanation.compared ? TallyText(winner.tally) : ByAbilitiesText(explanation));
  if (!explanation.compared && winner.tally.decider) {
    pairs.emplace_back("  but",
                       "the winner does not fit them: " + DeciderText(*winner.tally.decider));
  }
  if (explanation.compared && !explanation.unreported.empty()) {
    pairs.emplace_back("  not told", ListText(explanation.unreported));
  }
}

std::string TriedText(const Explanation& explanation) {
  const std::size_t lost = CountOf(explanation, ProfileFate::kLost);
  if (!explanation.winner)
    return CountText(lost, "profile, all that there is", "profiles, all that there are");
  if (lost == 0) return "none, the winner is the newest";
  return CountText(lost, "profile", "profiles") + " newer than the winner";
}

std::string NeverAskedText(const Explanation& explanation) {
  const std::size_t never = CountOf(explanation, ProfileFate::kNeverAsked);
  if (never == 0) return "none, the winner is the oldest";
  const std::size_t fit = NearestOf(explanation, ProfileFate::kNeverAsked, true).size();
  return CountText(never, "profile", "profiles") + " older than the winner, " +
         (fit == 0 ? "none of which would have fitted"
                   : "of which " + std::to_string(fit) + " would have fitted, too");
}

void AddOthers(const Explanation& explanation, Pairs& pairs) {
  if (!explanation.compared) {
    pairs.emplace_back("Others", "no profile was compared");
    return;
  }
  pairs.emplace_back("Tried in vain", TriedText(explanation));
  if (explanation.winner) pairs.emplace_back("Never asked", NeverAskedText(explanation));
}

void WriteShort(struct vty& terminal, const Explanation& explanation) {
  WriteWrapped(terminal, "", Headline(explanation), 0);
  Pairs pairs = {{"Reported type", ReportedTypeText(explanation)}};
  AddWinner(explanation, pairs);
  AddOthers(explanation, pairs);
  pairs.emplace_back("Type to report", OutcomeText(explanation));
  std::size_t width = 0;
  for (const auto& pair : pairs) width = std::max(width, pair.first.size());
  for (const auto& [name, value] : pairs) {
    WriteWrapped(terminal, "  " + name + std::string(width - name.size() + 2, ' '), value,
                 width + 4);
  }
  WriteHeading(terminal,
               "Match profiles are tried from the newest to the oldest, operators' before the "
               "catalogue's and those from the end of its files to the beginning, and the first "
               "that fits wins.");
}

std::string ToldText(const ReportedValue& value) {
  std::string text = value.has_value ? ValueText(value.value) : "";
  switch (value.told) {
    case Told::kValue:
      return text;
    case Told::kAnything:
      return value.value.ability_value_type == ONU_ABILITY_VALUE_TYPE_STRING ? "an empty text"
                                                                             : "all ones";
    case Told::kNotTold:
      return "not told";
    case Told::kNotAsked:
      return value.has_value ? text + ", but is not asked" : "not asked";
    case Told::kDerived:
      return "worked out from others";
  }
  return "";
}

std::string ComparedText(const ReportedValue& value) {
  if (value.code == ONU_ABILITY_CODE_REPORT_TYPE && !value.is_compared) return "looked up as a key";
  if (!value.is_compared) return "no";
  if (!value.compared) return "nothing to compare";
  const std::string compared = ValueText(*value.compared);
  const bool as_told = value.has_value && compared == ValueText(value.value);
  return as_told ? "yes" : "as " + compared;
}

// Left out: what is not asked and not compared, and the reported type as a key.
bool IsWorthALine(const ReportedValue& value) {
  if (value.is_compared) return value.told != Told::kNotAsked || value.has_value || value.compared;
  if (value.code == ONU_ABILITY_CODE_REPORT_TYPE) return true;
  if (value.told == Told::kDerived || value.told == Told::kNotAsked) return value.has_value;
  return value.code != OnuAbilityCodeInfo::GetInstance()->GetKeyAbilityCode();
}

void WriteValues(struct vty& terminal, const Explanation& explanation) {
  WriteHeading(terminal,
               "What it reported (" + ToText(explanation.report.position) + ")" +
                   (explanation.report.read_abilities ? "" : "; its abilities cannot be read"));
  TextTable table({{"  Ability", Align::kLeft},
                   {"Told", Align::kLeft},
                   {"Compared with profiles", Align::kLeft}});
  for (const ReportedValue& value : explanation.values) {
    if (IsWorthALine(value)) {
      table.Add({"  " + AbilityText(value.code), ToldText(value), ComparedText(value)});
    }
  }
  table.Write(terminal);
}

// Exactly `width` columns.
std::string Column(const std::string& text, std::size_t width) {
  std::string cut = Printable(text);
  if (DisplayWidth(cut) <= width) return cut + std::string(width - DisplayWidth(cut), ' ');
  while (DisplayWidth(cut) > width - 3) {
    do {
      cut.pop_back();
    } while (!cut.empty() && DisplayWidth(cut + "x") == DisplayWidth(cut));
  }
  return cut + "...";
}

void WriteVerdictHeadings(struct vty& terminal) {
  vty_out(&terminal,
          "  Turn  Profile                         Agree  Wildcard  Absent  Against\r\n");
}

void WriteVerdict(struct vty& terminal, const ProfileVerdict& verdict) {
  constexpr std::size_t kProfileColumns = 30;
  vty_out(&terminal, "  %4zu  %s  %5zu  %8zu  %6zu  %7zu\r\n", verdict.turn,
          Column(ProfileText(verdict), kProfileColumns).c_str(), verdict.tally.agrees,
          verdict.tally.wildcards, verdict.tally.absent, verdict.tally.against);
  if (verdict.tally.decider) {
    WriteWrapped(terminal, "        ", DeciderText(*verdict.tally.decider), 10);
  } else {
    vty_out(&terminal, "        would have fitted\r\n");
  }
}

// The first ten, or all.
void WriteVerdicts(struct vty& terminal, const Explanation& explanation, Indices shown, bool all) {
  const std::size_t found = shown.size();
  if (!all) shown.resize(std::min(found, kMostShown));
  WriteVerdictHeadings(terminal);
  for (const std::size_t index : shown) WriteVerdict(terminal, explanation.profiles[index]);
  if (shown.size() < found) {
    vty_out(&terminal, "  ... and %zu more: say \"all\"\r\n", found - shown.size());
  }
}

Indices AllOf(const Explanation& explanation, ProfileFate fate) {
  Indices indices(explanation.profiles.size());
  std::iota(indices.begin(), indices.end(), 0);
  indices.erase(std::remove_if(indices.begin(), indices.end(),
                               [&](std::size_t i) { return explanation.profiles[i].fate != fate; }),
                indices.end());
  return indices;
}

void WriteLost(struct vty& terminal, const Explanation& explanation, bool all) {
  const Indices lost = all ? AllOf(explanation, ProfileFate::kLost)
                           : NearestOf(explanation, ProfileFate::kLost, false);
  if (lost.empty()) return;
  WriteHeading(terminal, std::string("Tried and lost, ") +
                             (all ? "newest first" : "nearest first") +
                             "; below each what first decided against it");
  WriteVerdicts(terminal, explanation, lost, all);
}

void WriteNeverAsked(struct vty& terminal, const Explanation& explanation, bool all) {
  Indices never = all ? AllOf(explanation, ProfileFate::kNeverAsked)
                      : NearestOf(explanation, ProfileFate::kNeverAsked, true);
  if (never.empty()) return;
  if (!all) std::sort(never.begin(), never.end());
  WriteHeading(terminal,
               std::string(explanation.compared ? "Never asked, because the winner is newer"
                                                : "Never asked, because the type was known") +
                   (all ? "" : ", but these fit") + "; newest first");
  WriteVerdicts(terminal, explanation, never, all);
}

}  // namespace

Explanation ExplainLiveOnu(const OnuReport& report) {
  const ProfileOrigins origins(Host().catalogue.catalogue, [](const OnuAbilityProfile& profile) {
    return Host().operator_register.Of(profile);
  });
  return Explainer(origins).Explain(*Host().population, report);
}

void WriteExplanation(struct vty& terminal, const Explanation& explanation, bool all) {
  WriteShort(terminal, explanation);
  WriteValues(terminal, explanation);
  WriteLost(terminal, explanation, all);
  WriteNeverAsked(terminal, explanation, all);
  WriteHeading(terminal, "The type to report, step by step");
  const std::vector<std::string> steps = TranslationSteps(explanation);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    WriteWrapped(terminal, "  " + std::to_string(i + 1) + ". ", steps[i], 5);
  }
}

}  // namespace olt_host
