#include "network/block_reader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "catalogue/input_error.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

// As it comes back from JSON: one name, in one order, wherever names are compared and counted.
std::string AsJsonHasIt(const std::string& olt) {
  const bool is_plain = std::all_of(olt.begin(), olt.end(),
                                    [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
  if (is_plain) return olt;
  return Json::parse(Json(olt).dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace

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
