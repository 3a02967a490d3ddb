// Writes the report of one ONU as a line of JSON that is read back as the same.
#ifndef OLT_HOST_CATALOGUE_JSON_REPORT_WRITER_H
#define OLT_HOST_CATALOGUE_JSON_REPORT_WRITER_H

#include <cstdint>
#include <map>
#include <string>

#include "catalogue/reports.h"

namespace olt_host {

class JsonReportWriter {
 public:
  // Codes stand by the names that the registry has for them now.
  JsonReportWriter();

  // With its line break. Texts may hold any bytes; where they are UTF-8, so is the line.
  std::string Line(const NetworkReport& report) const;

 private:
  void AddAbilities(const std::map<std::uint16_t, std::uint32_t>& abilities,
                    std::string& line) const;

  std::map<std::uint16_t, std::string> _names;  // of codes, as far as they are plain words
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_JSON_REPORT_WRITER_H
