// Reports as a YAML reports file, an ONU a line.
#ifndef OLT_HOST_CATALOGUE_YAML_REPORT_WRITER_H
#define OLT_HOST_CATALOGUE_YAML_REPORT_WRITER_H

#include <map>
#include <ostream>
#include <string>

#include "catalogue/report_writer.h"

namespace olt_host {

class YamlReportWriter : public ReportWriter {
 public:
  // Codes stand by the names that the registry has for them now.
  explicit YamlReportWriter(std::ostream& out);

  void Begin(const ReportsHeader& header) override;
  void Write(const OnuReport& report) override;
  void End() override;

 private:
  void WriteSettings(const std::map<std::uint16_t, IdentifySettings>& settings);
  void WriteIdentity(const OnuReport& report);
  void WriteAbilities(const std::map<std::uint16_t, std::uint32_t>& abilities);
  void WriteExpectation(const Expectation& expect);
  void WriteTruth(const Truth& truth);

  std::ostream& _out;
  std::map<std::uint16_t, std::string> _names;  // of codes, as far as they are plain words
  bool _first = true;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_YAML_REPORT_WRITER_H
