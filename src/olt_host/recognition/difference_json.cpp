#include "recognition/change_reason.h"
#include "recognition/difference_text.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

Json OnuJson(const DifferenceView& view, const OnuAddress& onu) {
  if (!onu.olt.empty()) return {{"olt", onu.olt}, {"place", onu.place}, {"onu", onu.onu}};
  Json json = {{"place", onu.place}, {"onu", onu.onu}};
  if (view.files.size() > 1) json["reports"] = view.files[onu.file];
  return json;
}

Json ExamplesJson(const DifferenceView& view, const std::vector<OnuAddress>& examples) {
  Json onus = Json::array();
  for (const OnuAddress& onu : examples) onus.push_back(OnuJson(view, onu));
  return onus;
}

Json PatternJson(const PatternName& pattern, const std::string& name) {
  return {{"key", pattern.key}, {"source", pattern.source}, {"id", pattern.id}, {"name", name}};
}

Json SideJson(const SideOfChange& side) {
  Json json = {{"real_type", nullptr},
               {"type_name", side.type_name},
               {"type_to_translate", side.type_to_translate},
               {"report_type", side.report_type},
               {"recognised_by", ToText(side.how)},
               {"profile", nullptr},
               {"fitting_profiles", side.fitting}};
  if (!side.real_type) return json;
  json["real_type"] = *side.real_type;
  json["profile"] = PatternJson(side.winner, side.type_name);
  return json;
}

Json StandingJson(const PatternStanding& standing) {
  switch (standing.kind) {
    case PatternStanding::kAbsent:
      return {{"standing", "absent"}};
    case PatternStanding::kFits:
      return {{"standing", "fits"}};
    case PatternStanding::kStopped:
      break;
  }
  return {{"standing", "stopped"},
          {"code", standing.code},
          {"ability", standing.ability},
          {"reported", standing.reported},
          {"held", standing.held}};
}

Json GroupJson(const DifferenceView& view, const ChangeGroup& group) {
  Json json = {{"change", ToText(group.kind)},
               {"onus", group.onus},
               {"before", SideJson(group.before)},
               {"after", SideJson(group.after)},
               {"examples", ExamplesJson(view, group.examples)},
               {"why", ReasonOf(group)}};
  if (group.before.real_type) json["old_profile_after"] = StandingJson(group.loser_after);
  if (group.after.real_type) json["new_profile_before"] = StandingJson(group.winner_before);
  return json;
}

Json LuckJson(const DifferenceView& view, const Luck& luck) {
  Json groups = Json::array();
  for (const LuckGroup& group : luck.groups) {
    groups.push_back({{"onus", group.onus},
                      {"profile", PatternJson(group.winner, group.winner_name)},
                      {"next_profile", PatternJson(group.next, group.next_name)},
                      {"most_fitting_profiles", group.most_fitting},
                      {"examples", ExamplesJson(view, group.examples)},
                      {"why", ReasonOf(group)}});
  }
  return {{"onus", luck.onus}, {"groups", groups}};
}

}  // namespace

nlohmann::ordered_json DifferenceJson(const DifferenceView& view) {
  const PopulationDifference& difference = view.difference;
  Json json = {{"onus", difference.onus}, {"changed", difference.Changed()}};
  for (const OnuChange kind : kOnuChanges) json[ToText(kind)] = difference.CountOf(kind);
  json["groups"] = Json::array();
  for (const ChangeGroup& group : difference.groups) {
    json["groups"].push_back(GroupJson(view, group));
  }
  json["luck_of_order"] = {{"before", LuckJson(view, difference.luck_before)},
                           {"after", LuckJson(view, difference.luck_after)}};
  return json;
}

}  // namespace olt_host
