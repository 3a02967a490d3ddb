// What ONUs reported, taken down as a reports file that is a test of the catalogue at once:
// each states as its expectation what it came to.
//
// Who owns an ONU is nobody's business there: of a serial number only a hash is kept.
//
// REQUIRES: the hooks are registered, the library is loaded. On the thread that works with
// the library.
#ifndef OLT_HOST_RECOGNITION_CAPTURE_H
#define OLT_HOST_RECOGNITION_CAPTURE_H

#include <cstddef>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/population.h"

namespace olt_host {

struct Capture {
  std::string text;  // of the reports file
  std::size_t onus = 0;
  std::size_t ambiguous = 0;
  // ONUs that did not come to what was expected of them: that stays expected.
  std::size_t not_as_expected = 0;
};

// REQUIRES: `onus` are of `population`. `catalogue` says for people under which one it was.
Capture CaptureReports(const Population& population, const std::vector<const OnuReport*>& onus,
                       const std::string& catalogue);

// "sha256:" and 16 digits, the same however letters are cased; "" and hashes stay.
std::string HashedSerialNumber(const std::string& serial_number);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_CAPTURE_H
