#include "network/refused_lines.h"

#include <iterator>
#include <stdexcept>
#include <utility>

#include "recognition/json_number.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kShownLines = 10;

}  // namespace

std::string RefusedLine::Text() const { return file + ":" + std::to_string(line) + ": " + problem; }

void RefusedLines::Add(RefusedLine line) {
  ++_count;
  _first.insert(std::move(line));
  if (_first.size() > kShownLines) _first.erase(std::prev(_first.end()));
}

void RefusedLines::Merge(const RefusedLines& other) {
  const std::uint64_t count = _count + other._count;
  for (const RefusedLine& line : other._first) Add(line);
  _count = count;
}

std::string RefusedLines::Text() const {
  if (_count == 0) return "";
  std::string text = "\nLeft out: " + std::to_string(_count) + (_count == 1 ? " line" : " lines") +
                     " that no report could be read from\n";
  for (const RefusedLine& line : _first) text += "  " + line.Text() + "\n";
  const std::uint64_t more = _count - _first.size();
  return more == 0 ? text : text + "  ... and " + std::to_string(more) + " more lines\n";
}

Json RefusedLines::ToJson() const {
  Json lines = Json::array();
  for (const RefusedLine& line : _first) {
    lines.push_back({{"file", line.file}, {"line", line.line}, {"problem", line.problem}});
  }
  return {{"count", _count}, {"first", lines}};
}

RefusedLines RefusedLines::FromJson(const Json& json) {
  RefusedLines refused;
  for (const Json& line : json.at("first")) {
    refused.Add({line.at("file"), NumberAt<std::uint64_t>(line, "line"), line.at("problem")});
  }
  refused._count = NumberAt<std::uint64_t>(json, "count");
  if (refused._count < refused._first.size()) {
    throw std::runtime_error("more lines that were left out than are counted");
  }
  return refused;
}

}  // namespace olt_host
