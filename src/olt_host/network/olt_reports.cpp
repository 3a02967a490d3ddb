#include "network/olt_reports.h"

#include <map>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "catalogue/input_error.h"
#include "catalogue/json_report_reader.h"
#include "network/line_blocks.h"

namespace olt_host {

namespace {

bool Same(const IdentifySettings& one, const IdentifySettings& other) {
  return std::tie(one.sfu_mode, one.setting_1, one.hgu_mode, one.setting_3) ==
         std::tie(other.sfu_mode, other.setting_1, other.hgu_mode, other.setting_3);
}

class OltReader {
 public:
  OltReader(const std::string& input, const std::string& olt, const Catalogue& catalogue)
      : _file(InputName(input)), _olt(olt), _reader(catalogue) {
    _reports.name = olt;
    // JSON has such a name as it is, or with \u; other characters have more ways.
    _is_plain = olt.find_first_not_of(
                    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                    "0123456789-_.: ") == std::string::npos;
  }

  void ReadBlock(const LineBlock& block) {
    std::string_view rest = block.text;
    for (std::uint64_t number = block.first_line; !rest.empty(); ++number) {
      const std::string_view line = TakeLine(rest);
      const bool may_be_its = !_is_plain || line.find(_olt) != std::string_view::npos ||
                              line.find("\\u") != std::string_view::npos;
      if (may_be_its && !IsBlank(line)) ReadLine(line, {_file, static_cast<unsigned int>(number)});
    }
  }

  Reports Take() {
    if (_reports.onus.empty()) {
      throw std::runtime_error(_file + ": no ONU of an OLT " + Quoted(_olt) +
                               "; expected --olt with the name of one that reports there");
    }
    return std::move(_reports);
  }

 private:
  void ReadLine(std::string_view line, const SourcePosition& position) {
    NetworkReport report = _reader.Read(line, position);
    if (report.olt != _olt) return;
    const std::pair<std::uint16_t, std::uint8_t> onu{report.report.place, report.report.onu};
    const auto [earlier, is_new] = _seen.emplace(onu, position);
    if (!is_new) {
      throw InputError(position,
                       "ONU " + std::to_string(onu.first) + "/" + std::to_string(onu.second) +
                           " of " + _olt + " already stands in " +
                           RelativeText(earlier->second, position),
                       "every place and onu of an OLT once");
    }
    const auto [settings, first] = _reports.settings.emplace(onu.first, report.settings);
    if (!first && !Same(settings->second, report.settings)) {
      throw InputError(position,
                       "place " + std::to_string(onu.first) + " of " + _olt +
                           " is set to other modes than above",
                       "one identify for a place");
    }
    _reports.onus.push_back(std::move(report.report));
  }

  std::string _file;
  std::string _olt;
  bool _is_plain = false;
  JsonReportReader _reader;
  Reports _reports;
  std::map<std::pair<std::uint16_t, std::uint8_t>, SourcePosition> _seen;
};

}  // namespace

Reports ReadReportsOfOlt(const std::string& input, const std::string& olt,
                         const Catalogue& catalogue) {
  LineBlocks blocks(input);
  OltReader reader(input, olt, catalogue);
  while (const auto block = blocks.Next()) reader.ReadBlock(*block);
  return reader.Take();
}

}  // namespace olt_host
