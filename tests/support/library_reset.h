// Brings the library back to what it is in a fresh process, for the tests that run
// many sequences in one.
#ifndef TESTS_SUPPORT_LIBRARY_RESET_H
#define TESTS_SUPPORT_LIBRARY_RESET_H

#include <vector>

#include "onu_ability_common_table.h"

// `attribute_ids` are those that may be registered. Does not hand the records of the
// code registry out, which could not be taken back.
void ResetLibrary(const std::vector<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>& attribute_ids);

#endif  // TESTS_SUPPORT_LIBRARY_RESET_H
