// The same report files read for two catalogues, which may call codes otherwise.
#ifndef OLT_HOST_RECOGNITION_REPORTS_OF_BOTH_H
#define OLT_HOST_RECOGNITION_REPORTS_OF_BOTH_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "recognition/population_outcome.h"

namespace olt_host {

// A code that ONUs report and one of the catalogues does not define: under that one no ONU
// is asked for it.
struct CodeOfOne {
  std::uint16_t code = 0;
  std::string name;
  bool only_in_newer = false;
  std::size_t onus = 0;  // that report it
};

// Counts the codes of reports that only one of two catalogues defines.
class CodesOfOne {
 public:
  CodesOfOne(const Catalogue& older, const Catalogue& newer);

  // Both reports are of one ONU, read for either catalogue.
  void Count(const OnuReport& for_older, const OnuReport& for_newer);

  // Those that were reported.
  std::vector<CodeOfOne> Codes() const;

 private:
  std::map<std::uint16_t, CodeOfOne> _only_in_newer;
  std::map<std::uint16_t, CodeOfOne> _only_in_older;
};

// The codes of `own`, and those that only `other` has or names so: what reports are read by.
Catalogue NamesOf(const Catalogue& own, const Catalogue& other);
// Whether a report says the same by both.
bool MeanTheSame(const Catalogue& one, const Catalogue& other);

struct ReportsOfBoth {
  Populations for_older;  // a file each
  Populations for_newer;
  std::vector<CodeOfOne> codes_of_one;
};

// A name means what the catalogue at hand says, or else what the other one says. Throws
// InputError.
ReportsOfBoth ReadReportsOfBoth(const std::vector<std::string>& files, const Catalogue& older,
                                const Catalogue& newer);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_REPORTS_OF_BOTH_H
