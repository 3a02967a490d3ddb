#include "network/network_difference.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "recognition/difference_record.h"
#include "recognition/difference_text.h"
#include "recognition/json_number.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

const std::vector<std::string> kNoFiles;

void AddCode(std::vector<CodeOfOne>& codes, const CodeOfOne& code) {
  const auto order = [](const CodeOfOne& one) { return std::tuple(!one.only_in_newer, one.code); };
  const auto at = std::lower_bound(
      codes.begin(), codes.end(), code,
      [&order](const CodeOfOne& one, const CodeOfOne& other) { return order(one) < order(other); });
  if (at != codes.end() && order(*at) == order(code)) {
    at->onus += code.onus;
  } else {
    codes.insert(at, code);
  }
}

CodeOfOne CodeOf(const Json& json) {
  const std::string only_in = json.at("only_in");
  if (only_in != "new" && only_in != "old") {
    throw std::runtime_error("a code is only in \"" + only_in + "\"");
  }
  return {NumberAt<std::uint16_t>(json, "code"), json.at("name"), only_in == "new",
          NumberAt<std::size_t>(json, "onus")};
}

Json MakeJson(const NetworkDifference& difference, Json counts) {
  counts["codes_of_one"] = ToJson(difference.codes_of_one);
  counts["refused_lines"] = difference.refused.ToJson();
  return counts;
}

}  // namespace

void NetworkDifferenceSum::Add(const NetworkDifference& part) {
  _difference.Add(part.difference);
  for (const CodeOfOne& code : part.codes_of_one) AddCode(_codes_of_one, code);
  _refused.Merge(part.refused);
}

NetworkDifference NetworkDifferenceSum::Sum() const {
  return {_difference.Difference(), _codes_of_one, _refused};
}

Json ToJson(const NetworkDifference& difference) {
  return MakeJson(difference, DifferenceJson({difference.difference, kNoFiles}));
}

Json ToRecord(const NetworkDifference& difference) {
  return MakeJson(difference, RecordOf(difference.difference));
}

NetworkDifference ParseNetworkDifference(const Json& json) {
  NetworkDifference difference;
  difference.difference = DifferenceOf(json);
  for (const Json& code : json.at("codes_of_one")) AddCode(difference.codes_of_one, CodeOf(code));
  difference.refused = RefusedLines::FromJson(json.at("refused_lines"));
  return difference;
}

std::string NetworkDifferenceText(const NetworkDifference& difference) {
  std::string text;
  for (const CodeOfOne& code : difference.codes_of_one) text += NoteOf(code);
  if (!text.empty()) text += "\n";
  text += DifferenceText({difference.difference, kNoFiles});
  return text + difference.refused.Text();
}

std::string NoteOf(const CodeOfOne& code) {
  return "Note: only " + std::string(code.only_in_newer ? "NEW" : "OLD") + " defines code " +
         std::to_string(code.code) + " (" + code.name + "), which " + std::to_string(code.onus) +
         (code.onus == 1 ? " ONU reports" : " ONUs report") + "; under " +
         (code.only_in_newer ? "OLD" : "NEW") + "\n      nobody asks for it\n";
}

Json ToJson(const std::vector<CodeOfOne>& codes) {
  Json json = Json::array();
  for (const CodeOfOne& code : codes) {
    json.push_back({{"code", code.code},
                    {"name", code.name},
                    {"only_in", code.only_in_newer ? "new" : "old"},
                    {"onus", code.onus}});
  }
  return json;
}

}  // namespace olt_host
