#include "commands/capture_output.h"

#include <sstream>

#include "catalogue/whole_file.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "recognition/capture.h"
#include "text/columns.h"

namespace olt_host {

namespace {

std::string CatalogueText() {
  const Catalogue& catalogue = Host().catalogue.catalogue;
  return Printable(catalogue.name.empty() ? "without a name"
                                          : NameAndVersion(catalogue.name, catalogue.version));
}

void WriteText(struct vty& terminal, const std::string& text) {
  WriteWrapped(terminal, "", text, 2);
}

}  // namespace

void WriteCapture(struct vty& terminal, const OnuReports& onus, const std::string& file,
                  bool replace) {
  const Capture capture = CaptureReports(*Host().population, onus, CatalogueText());
  WriteWholeFile(file, capture.text, replace);
  WriteText(terminal, "Captured " + std::to_string(capture.onus) +
                          (capture.onus == 1 ? " ONU to " : " ONUs to ") + file);
  if (capture.ambiguous != 0) {
    WriteText(terminal, "Note: " + std::to_string(capture.ambiguous) +
                            " by the order of match profiles alone, declared as ambiguous");
  }
  if (capture.not_as_expected != 0) {
    WriteText(terminal, "Note: " + std::to_string(capture.not_as_expected) +
                            " not as the reports file expects, which stays expected");
  }
}

void WriteReplay(struct vty& terminal, const ReplayResult& result) {
  std::istringstream lines(ReplayText(result));
  for (std::string line; std::getline(lines, line);) WriteText(terminal, line);
}

}  // namespace olt_host
