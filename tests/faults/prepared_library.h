// The library as operations find it that run into a fault: a host in service, with
// codes, hooks, tables, and texts too long to be kept without memory of their own.
#ifndef TESTS_FAULTS_PREPARED_LIBRARY_H
#define TESTS_FAULTS_PREPARED_LIBRARY_H

#include <string>

#include "onu_ability_common_table.h"

// How much of the library is listened to, and whether it was asked before.
enum class Service {
  kHeard,  // every log line, so every operation walks
  kFresh,  // no line: short ways, whose indexes were never asked
  kInUse,  // no line: every question was asked before
};

void PrepareLibrary(Service service);

// A profile that the tables do not hold, complete with texts.
OnuAbilityProfile NewProfile(ONU_ABILITY_ENUM_PROFILE_TYPE type, unsigned int key);
// The report of an ONU that a match profile of the tables fits.
OnuAbilityProfile NewReport();

const std::string& LongName();

#endif  // TESTS_FAULTS_PREPARED_LIBRARY_H
