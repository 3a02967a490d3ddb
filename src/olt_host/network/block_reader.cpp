#include "network/block_reader.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <utility>

#include "catalogue/input_error.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kShownLines = 10;

// As it comes back from JSON: one name, in one order, wherever names are compared and counted.
std::string AsJsonHasIt(const std::string& olt) {
  const bool is_plain = std::all_of(olt.begin(), olt.end(),
                                    [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
  if (is_plain) return olt;
  return Json::parse(Json(olt).dump(-1, ' ', false, Json::error_handler_t::replace));
}

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
    refused.Add({line.at("file"), line.at("line"), line.at("problem")});
  }
  refused._count = json.at("count");
  return refused;
}

std::string TaskOf(const LineBlock& block) {
  return std::to_string(block.first_line) + "\n" + block.text;
}

BlockReader::BlockReader(const Catalogue& names, std::string file, const Shard& shard)
    : _reader(names), _file(std::move(file)), _shard(shard) {}

void BlockReader::Read(std::string_view task, const Take& take, RefusedLines& refused) {
  const std::string_view first = TakeLine(task);
  std::uint64_t number = 0;
  std::from_chars(first.data(), first.data() + first.size(), number);
  for (; !task.empty(); ++number) {
    const std::string_view line = TakeLine(task);
    if (!IsBlank(line)) ReadLine(line, number, take, refused);
  }
}

void BlockReader::ReadLine(std::string_view line, std::uint64_t number, const Take& take,
                           RefusedLines& refused) {
  try {
    NetworkReport report = _reader.Read(line, {_file, static_cast<unsigned int>(number)});
    report.olt = AsJsonHasIt(report.olt);
    if (_shard.HasOlt(report.olt)) take(report, line);
  } catch (const InputError& error) {
    if (_shard.HasLine(number)) refused.Add({_file, number, error.rule()});
  }
}

}  // namespace olt_host
