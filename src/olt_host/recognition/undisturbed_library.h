// A question to the library that leaves no trace: while this lives the library says
// nothing to the log, and at the end the code registry is as it was. Reading an attribute
// may give it to a code record, and lines of comparisons that nobody performed would look
// like confirmations.
//
// The tables are not looked after: compare with copies of their profiles. On the thread
// that works with the library.
#ifndef OLT_HOST_RECOGNITION_UNDISTURBED_LIBRARY_H
#define OLT_HOST_RECOGNITION_UNDISTURBED_LIBRARY_H

#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

class UndisturbedLibrary {
 public:
  UndisturbedLibrary();
  ~UndisturbedLibrary();
  UndisturbedLibrary(const UndisturbedLibrary&) = delete;
  UndisturbedLibrary& operator=(const UndisturbedLibrary&) = delete;

 private:
  std::vector<ONU_ABILITY_CODE_ATTR_INFO> _codes;
  unsigned int _log_mask;
};

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_UNDISTURBED_LIBRARY_H
