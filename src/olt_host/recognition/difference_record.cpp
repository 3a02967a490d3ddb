#include "recognition/difference_record.h"

#include <algorithm>
#include <stdexcept>

#include "recognition/difference_counter.h"
#include "recognition/difference_text.h"
#include "recognition/json_number.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

// JSON takes no bytes that are not UTF-8: each stands as the character of its number.
std::string CharactersOf(const std::string& bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80U) {
      text += c;
    } else {
      text += static_cast<char>(0xC0U | (byte >> 6U));
      text += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return text;
}

std::string BytesOf(const std::string& text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x80U) {
      bytes += text[i];
    } else if (i + 1 < text.size()) {
      const auto rest = static_cast<unsigned char>(text[++i]);
      bytes += static_cast<char>(((byte & 0x03U) << 6U) | (rest & 0x3FU));
    }
  }
  return bytes;
}

// The one of `values` whose text `json` is.
template <typename Values>
auto OneOf(const Values& values, const Json& json) {
  const std::string text = json;
  for (const auto value : values) {
    if (text == ToText(value)) return value;
  }
  throw std::runtime_error("\"" + text + "\" is not known here");
}

PatternName PatternOf(const Json& json) {
  return {NumberAt<std::uint32_t>(json, "key"), NumberAt<unsigned int>(json, "source"),
          NumberAt<std::uint16_t>(json, "id")};
}

SideOfChange SideOf(const Json& json) {
  SideOfChange side;
  if (!json.at("real_type").is_null()) {
    side.real_type = NumberAt<std::uint16_t>(json, "real_type");
    side.winner = PatternOf(json.at("profile"));
  }
  side.type_name = json.at("type_name");
  side.type_to_translate = NumberAt<std::uint32_t>(json, "type_to_translate");
  side.report_type = NumberAt<std::uint16_t>(json, "report_type");
  constexpr Recognition kWays[] = {Recognition::kNone, Recognition::kType, Recognition::kAbilities};
  side.how = OneOf(kWays, json.at("recognised_by"));
  side.fitting = NumberAt<std::size_t>(json, "fitting_profiles");
  return side;
}

PatternStanding StandingOf(const Json& json) {
  const std::string kind = json.at("standing");
  PatternStanding standing;
  if (kind == "absent") return standing;
  standing.kind = PatternStanding::kFits;
  if (kind == "fits") return standing;
  standing.kind = PatternStanding::kStopped;
  standing.code = NumberAt<std::uint16_t>(json, "code");
  standing.ability = json.at("ability");
  standing.reported = json.at("reported");
  standing.held = json.at("held");
  return standing;
}

std::vector<OnuAddress> ExamplesOf(const Json& json) {
  std::vector<OnuAddress> examples;
  for (const Json& onu : json) {
    examples.push_back({onu.value("olt", ""), 0, NumberAt<std::uint16_t>(onu, "place"),
                        NumberAt<std::uint8_t>(onu, "onu")});
  }
  if (examples.empty()) throw std::runtime_error("a group has no example");
  return examples;
}

ChangeGroup GroupOf(const Json& json) {
  ChangeGroup group;
  group.kind = OneOf(kOnuChanges, json.at("change"));
  group.onus = NumberAt<std::size_t>(json, "onus");
  group.examples = ExamplesOf(json.at("examples"));
  group.before = SideOf(json.at("before"));
  group.after = SideOf(json.at("after"));
  group.report = BytesOf(json.value("report", ""));
  if (group.before.real_type) group.loser_after = StandingOf(json.at("old_profile_after"));
  if (group.after.real_type) group.winner_before = StandingOf(json.at("new_profile_before"));
  return group;
}

Luck LuckOf(const Json& json) {
  Luck luck;
  luck.onus = NumberAt<std::size_t>(json, "onus");
  for (const Json& group : json.at("groups")) {
    luck.groups.push_back({PatternOf(group.at("profile")), PatternOf(group.at("next_profile")),
                           group.at("profile").at("name"), group.at("next_profile").at("name"),
                           NumberAt<std::size_t>(group, "most_fitting_profiles"),
                           NumberAt<std::size_t>(group, "onus"), ExamplesOf(group.at("examples"))});
  }
  return luck;
}

}  // namespace

Json RecordOf(const PopulationDifference& difference) {
  const std::vector<std::string> no_files;
  Json record = DifferenceJson({difference, no_files});
  for (std::size_t i = 0; i < difference.groups.size(); ++i) {
    record["groups"][i]["report"] = CharactersOf(difference.groups[i].report);
  }
  return record;
}

PopulationDifference DifferenceOf(const Json& record) {
  PopulationDifference read;
  read.onus = NumberAt<std::size_t>(record, "onus");
  for (const Json& group : record.at("groups")) read.groups.push_back(GroupOf(group));
  read.luck_before = LuckOf(record.at("luck_of_order").at("before"));
  read.luck_after = LuckOf(record.at("luck_of_order").at("after"));
  // Counts and order follow from the groups.
  DifferenceCounter counter;
  counter.Add(read);
  return counter.Difference();
}

}  // namespace olt_host
