// Reads the report of one ONU from a line of JSON, as files of whole networks have them.
#ifndef OLT_HOST_CATALOGUE_JSON_REPORT_READER_H
#define OLT_HOST_CATALOGUE_JSON_REPORT_READER_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/json_line.h"
#include "catalogue/reports.h"

namespace olt_host {

class JsonReportReader {
 public:
  // `catalogue` gives the codes that reports name, and need not outlive this.
  explicit JsonReportReader(const Catalogue& catalogue);
  JsonReportReader(const JsonReportReader&) = delete;
  JsonReportReader& operator=(const JsonReportReader&) = delete;

  // `line` without its line break. Throws InputError at `position` for the first thing
  // that is wrong.
  NetworkReport Read(std::string_view line, const SourcePosition& position);

 private:
  struct Code {
    std::uint16_t code = 0;
    std::string name;
    bool holds_text = false;
  };

  std::uint16_t ReadCode(const JsonValue& value) const;
  void ReadAbilities(const JsonValue& abilities, std::map<std::uint16_t, std::uint32_t>& result);
  [[noreturn]] void FailUndefined(const JsonValue& value) const;
  const Code* FindCode(std::uint16_t code) const;

  std::vector<Code> _codes;
  std::unordered_map<std::string_view, const Code*> _by_name;
  std::unordered_map<std::uint16_t, const Code*> _by_number;
  JsonLine _line;
  std::vector<std::uint16_t> _any;  // codes of the report at hand that are told as unknown
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_JSON_REPORT_READER_H
