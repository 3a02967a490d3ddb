#include "recognition/difference_text.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

#include "recognition/change_reason.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

constexpr std::size_t kShownGroups = 8;
constexpr std::size_t kShownLuck = 4;
constexpr std::size_t kIndent = 10;

// Heading of a kind's groups, and its line of the summary.
struct KindTexts {
  OnuChange kind;
  const char* heading;
  const char* line;
};
constexpr KindTexts kKindTexts[] = {
    {OnuChange::kType, "Change type", "change type"},
    {OnuChange::kBecameKnown, "Become known", "become known"},
    {OnuChange::kBecameUnknown, "Become unknown", "become unknown"},
    {OnuChange::kReportType, "Keep their type, but another one is reported upwards",
     "keep their type, but another one is reported upwards"},
    {OnuChange::kOtherProfile, "Keep both types, but by another profile or another way", ""},
};

class TextWriter {
 public:
  void Line(const std::string& text) { _out << text << "\n"; }
  void Count(const std::string& what, std::size_t count) {
    _out << "  " << std::left << std::setw(56) << what << std::right << std::setw(8) << count
         << "\n";
  }
  // Breaks between words; every line begins with the indent, the first with `head` in it.
  void Wrapped(const std::string& text, const std::string& head = "") {
    _out << WrapWords(head + std::string(kIndent - head.size(), ' '), text);
  }
  // A count in front of a text.
  void Counted(std::size_t count, const std::string& text) {
    std::ostringstream head;
    head << std::setw(8) << count;
    Wrapped(text, head.str());
  }
  void More(std::size_t hidden) {
    if (hidden > 0) {
      Line("          ... and " + std::to_string(hidden) + " more such groups, see json");
    }
  }
  std::string Text() const { return _out.str(); }

 private:
  std::ostringstream _out;
};

std::string OnuName(const DifferenceView& view, const OnuAddress& onu) {
  std::string name = std::to_string(onu.place) + "/" + std::to_string(onu.onu);
  if (!onu.olt.empty()) return name + " of " + onu.olt;
  if (view.files.size() < 2) return name;
  const std::string& file = view.files[onu.file];
  return name + " of " + file.substr(file.rfind('/') + 1);
}

std::string ExamplesText(const DifferenceView& view, const std::vector<OnuAddress>& examples,
                         std::size_t onus) {
  std::string text = onus == 1 ? "ONU " : "ONUs ";
  for (std::size_t i = 0; i < examples.size(); ++i) {
    text += (i == 0 ? "" : ", ") + OnuName(view, examples[i]);
  }
  return onus > examples.size() ? text + ", ..." : text;
}

std::string TypeText(const SideOfChange& side) {
  return side.real_type ? NamedNumber(*side.real_type, side.type_name) : "unknown";
}

std::string ProfileText(const SideOfChange& side) {
  return "profile " + NamedNumber(side.winner.key, side.type_name);
}

std::string WhatOf(const ChangeGroup& group) {
  switch (group.kind) {
    case OnuChange::kReportType:
      return TypeText(group.before) + ", reported as " + std::to_string(group.before.report_type) +
             ", becomes " + std::to_string(group.after.report_type);
    case OnuChange::kOtherProfile:
      return TypeText(group.after) + ", " + ProfileText(group.before) + " becomes " +
             ProfileText(group.after);
    default:
      return TypeText(group.before) + " becomes " + TypeText(group.after);
  }
}

void WriteGroups(const DifferenceView& view, const KindTexts& kind, TextWriter& out) {
  std::size_t shown = 0;
  std::size_t groups = 0;
  for (const ChangeGroup& group : view.difference.groups) {
    if (group.kind != kind.kind) continue;
    if (groups++ == 0) out.Line(std::string("\n") + kind.heading);
    if (shown == kShownGroups) continue;
    ++shown;
    out.Counted(group.onus, WhatOf(group));
    out.Wrapped(ExamplesText(view, group.examples, group.onus));
    out.Wrapped("Why: " + ReasonOf(group));
  }
  out.More(groups - shown);
}

bool SameLuck(const Luck& one, const Luck& other) {
  return std::equal(one.groups.begin(), one.groups.end(), other.groups.begin(), other.groups.end(),
                    [](const LuckGroup& a, const LuckGroup& b) {
                      return a.winner.key == b.winner.key && a.next.key == b.next.key &&
                             a.onus == b.onus && a.most_fitting == b.most_fitting;
                    });
}

void WriteLuck(const DifferenceView& view, const Luck& luck, const char* name, TextWriter& out) {
  if (luck.groups.empty()) return;
  out.Line(std::string("\nDecided by luck of order under ") + name);
  const std::size_t shown = std::min(luck.groups.size(), kShownLuck);
  for (std::size_t i = 0; i < shown; ++i) {
    const LuckGroup& group = luck.groups[i];
    out.Counted(group.onus, ExamplesText(view, group.examples, group.onus));
    out.Wrapped("Why: " + ReasonOf(group));
  }
  out.More(luck.groups.size() - shown);
}

}  // namespace

std::string DifferenceText(const DifferenceView& view) {
  const PopulationDifference& difference = view.difference;
  TextWriter out;
  out.Line("Of " + std::to_string(difference.onus) + " ONUs");
  for (const KindTexts& kind : kKindTexts) {
    if (*kind.line != '\0') out.Count(kind.line, difference.CountOf(kind.kind));
  }
  out.Count("stay what they are", difference.onus - difference.Changed());
  const std::size_t otherwise = difference.CountOf(OnuChange::kOtherProfile);
  if (otherwise > 0) out.Count("  of these, by another profile or another way", otherwise);
  out.Line("Decided by luck of order: several profiles fit, the newest of them won");
  out.Count(std::string("under ") + view.before_name, difference.luck_before.onus);
  out.Count(std::string("under ") + view.after_name, difference.luck_after.onus);
  for (const KindTexts& kind : kKindTexts) WriteGroups(view, kind, out);
  const bool same_luck = SameLuck(difference.luck_before, difference.luck_after);
  if (!same_luck) WriteLuck(view, difference.luck_before, view.before_name, out);
  WriteLuck(view, difference.luck_after, same_luck ? "both" : view.after_name, out);
  return out.Text();
}

}  // namespace olt_host
