#include <stdexcept>

#include "confirmation/json_writer.h"
#include "network/network_summary.h"
#include "recognition/json_number.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

Json OnuJson(const OnuOfOlt& onu) {
  return {{"olt", onu.olt}, {"place", onu.place}, {"onu", onu.onu}};
}

OnuOfOlt ParseOnu(const Json& json) {
  return {json.at("olt"), NumberAt<std::uint16_t>(json, "place"),
          NumberAt<std::uint8_t>(json, "onu")};
}

Json NameJson(const MatchProfileName& name) {
  return {{"source", name.source}, {"key", name.key}, {"number", name.number}};
}

MatchProfileName ParseName(const Json& json) {
  return {NumberAt<unsigned int>(json, "source"), NumberAt<std::uint32_t>(json, "key"),
          NumberAt<std::uint32_t>(json, "number")};
}

Json HookCallsJson(const HookCalls& calls) {
  Json json = Json::object();
  for (std::size_t i = 0; i < kHooks; ++i) json[kHookNames[i]] = calls[i];
  return json;
}

Json TypesJson(const NetworkSummary& summary) {
  Json types = Json::array();
  for (const auto& [type, onus] : summary.types) {
    types.push_back({{"real_type", type.first}, {"type_name", type.second}, {"onus", onus}});
  }
  return types;
}

Json ProfilesJson(const NetworkSummary& summary) {
  Json profiles = Json::array();
  for (const auto& [name, profile] : summary.profiles) {
    Json json = NameJson(name);
    json["type_name"] = profile.type_name;
    json["wins"] = profile.wins;
    profiles.push_back(std::move(json));
  }
  return profiles;
}

Json OltsJson(const NetworkSummary& summary) {
  Json olts = Json::array();
  for (const auto& [olt, counts] : summary.olts) {
    olts.push_back({{"olt", olt},
                    {"onus", counts.onus},
                    {"not_recognised", counts.not_recognised},
                    {"not_as_expected", counts.not_as_expected}});
  }
  return olts;
}

Json UnrecognisedJson(const NetworkSummary& summary) {
  Json groups = Json::array();
  for (const auto& [key, group] : summary.unrecognised) {
    Json nearest = NameJson(key.nearest);
    nearest["type_name"] = group.type_name;
    groups.push_back({{"onus", group.onus},
                      {"nearest", std::move(nearest)},
                      {"code", key.code},
                      {"ability", group.ability},
                      {"example", OnuJson(group.example)},
                      {"reported", group.reported},
                      {"held", group.held}});
  }
  return groups;
}

Json FailuresJson(const NetworkSummary& summary) {
  Json failures = Json::array();
  for (const FailedExpectation& failure : summary.failures) {
    Json json = OnuJson(failure.onu);
    json["what"] = failure.what;
    failures.push_back(std::move(json));
  }
  return failures;
}

ConfirmationSummary ParseCounts(const Json& json) {
  ConfirmationSummary counts;
  counts.onus = NumberAt<std::uint64_t>(json, "onus");
  counts.by_type = NumberAt<std::uint64_t>(json, "by_type");
  counts.by_abilities = NumberAt<std::uint64_t>(json, "by_abilities");
  counts.not_recognised = NumberAt<std::uint64_t>(json, "not_recognised");
  counts.translated = NumberAt<std::uint64_t>(json, "translated");
  counts.with_expectation = NumberAt<std::uint64_t>(json, "with_expectation");
  counts.expectation_failed = NumberAt<std::uint64_t>(json, "not_as_expected");
  return counts;
}

void ParseOlts(const Json& json, NetworkSummary& summary) {
  for (const Json& olt : json) {
    summary.olts[olt.at("olt")] = {NumberAt<std::uint64_t>(olt, "onus"),
                                   NumberAt<std::uint64_t>(olt, "not_recognised"),
                                   NumberAt<std::uint64_t>(olt, "not_as_expected")};
  }
}

void ParseUnrecognised(const Json& json, NetworkSummary& summary) {
  for (const Json& group : json) {
    const Json& nearest = group.at("nearest");
    summary.unrecognised[{ParseName(nearest), NumberAt<std::uint16_t>(group, "code")}] = {
        NumberAt<std::uint64_t>(group, "onus"), nearest.at("type_name"), group.at("ability"),
        ParseOnu(group.at("example")),          group.at("reported"),    group.at("held")};
  }
}

}  // namespace

Json ToJson(const NetworkSummary& summary) {
  return {{"counts", SummaryJson(summary.counts)},
          {"hook_calls", HookCallsJson(summary.hook_calls)},
          {"types", TypesJson(summary)},
          {"profiles", ProfilesJson(summary)},
          {"olts", OltsJson(summary)},
          {"unrecognised", UnrecognisedJson(summary)},
          {"compared_with_nothing", summary.compared_with_nothing},
          {"failures", FailuresJson(summary)},
          {"refused_lines", summary.refused.ToJson()}};
}

NetworkSummary ParseNetworkSummary(const Json& json) {
  NetworkSummary summary;
  summary.counts = ParseCounts(json.at("counts"));
  for (std::size_t i = 0; i < kHooks; ++i) {
    summary.hook_calls[i] = NumberAt<std::uint64_t>(json.at("hook_calls"), kHookNames[i]);
  }
  for (const Json& type : json.at("types")) {
    summary.types[{NumberAt<std::uint16_t>(type, "real_type"), type.at("type_name")}] =
        NumberAt<std::uint64_t>(type, "onus");
  }
  for (const Json& profile : json.at("profiles")) {
    summary.profiles[ParseName(profile)] = {profile.at("type_name"),
                                            NumberAt<std::uint64_t>(profile, "wins")};
  }
  ParseOlts(json.at("olts"), summary);
  ParseUnrecognised(json.at("unrecognised"), summary);
  summary.compared_with_nothing = NumberAt<std::uint64_t>(json, "compared_with_nothing");
  for (const Json& failure : json.at("failures")) {
    summary.failures.insert({ParseOnu(failure), failure.at("what")});
  }
  if (summary.failures.size() > summary.counts.expectation_failed) {
    throw std::runtime_error("more failures than are counted");
  }
  summary.refused = RefusedLines::FromJson(json.at("refused_lines"));
  return summary;
}

}  // namespace olt_host
