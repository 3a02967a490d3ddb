// The reader of reports as lines of JSON over any lines: what it takes is the same when
// it is written and read again, what it refuses has one message. One reader reads all
// lines, as it does in a host: no line may be taken for part of another.
#include <string>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "loaded_host.h"
#include "report_round_trip.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LoadSmallCatalogue();
  static const olt_host::JsonReportWriter writer;
  static olt_host::JsonReportReader reader(SmallCatalogue());
  const olt_host::SourcePosition position{"lines", 7};
  for (const std::string& line : SplitText(InputBytes(data, size).Rest(), '\n')) {
    olt_host::NetworkReport report;
    try {
      report = reader.Read(line, position);
    } catch (const olt_host::InputError& error) {
      HoldMessage(error.what(), "lines:7: ");
      continue;
    }
    HoldSameAsJson(report, writer, reader);
  }
  return 0;
}
