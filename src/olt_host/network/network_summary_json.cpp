#include "confirmation/json_writer.h"
#include "network/network_summary.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

Json OnuJson(const OnuOfOlt& onu) {
  return {{"olt", onu.olt}, {"place", onu.place}, {"onu", onu.onu}};
}

OnuOfOlt ParseOnu(const Json& json) { return {json.at("olt"), json.at("place"), json.at("onu")}; }

Json NameJson(const MatchProfileName& name) {
  return {{"source", name.source}, {"key", name.key}, {"number", name.number}};
}

MatchProfileName ParseName(const Json& json) {
  return {json.at("source"), json.at("key"), json.at("number")};
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
  counts.onus = json.at("onus");
  counts.by_type = json.at("by_type");
  counts.by_abilities = json.at("by_abilities");
  counts.not_recognised = json.at("not_recognised");
  counts.translated = json.at("translated");
  counts.with_expectation = json.at("with_expectation");
  counts.expectation_failed = json.at("not_as_expected");
  return counts;
}

void ParseOlts(const Json& json, NetworkSummary& summary) {
  for (const Json& olt : json) {
    summary.olts[olt.at("olt")] = {olt.at("onus"), olt.at("not_recognised"),
                                   olt.at("not_as_expected")};
  }
}

void ParseUnrecognised(const Json& json, NetworkSummary& summary) {
  for (const Json& group : json) {
    const Json& nearest = group.at("nearest");
    summary.unrecognised[{ParseName(nearest), group.at("code")}] = {
        group.at("onus"),     nearest.at("type_name"),
        group.at("ability"),  ParseOnu(group.at("example")),
        group.at("reported"), group.at("held")};
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
    summary.hook_calls[i] = json.at("hook_calls").at(kHookNames[i]);
  }
  for (const Json& type : json.at("types")) {
    summary.types[{type.at("real_type"), type.at("type_name")}] = type.at("onus");
  }
  for (const Json& profile : json.at("profiles")) {
    summary.profiles[ParseName(profile)] = {profile.at("type_name"), profile.at("wins")};
  }
  ParseOlts(json.at("olts"), summary);
  ParseUnrecognised(json.at("unrecognised"), summary);
  summary.compared_with_nothing = json.at("compared_with_nothing");
  for (const Json& failure : json.at("failures")) {
    summary.failures.insert({ParseOnu(failure), failure.at("what")});
  }
  summary.refused = RefusedLines::FromJson(json.at("refused_lines"));
  return summary;
}

}  // namespace olt_host
