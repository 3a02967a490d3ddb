// What the storm starts from and what it never changes: codes, real types and patterns,
// and the ONUs that are recognised by them.
#ifndef TESTS_THREADS_CATALOGUE_H
#define TESTS_THREADS_CATALOGUE_H

#include <string>

#include "onu_ability_common_table.h"

// Codes with a meaning for the storm.
constexpr unsigned short kFePorts = 1010;
constexpr unsigned short kGePorts = 1011;
constexpr unsigned short kLamp = 1030;
constexpr unsigned short kSerialPorts = 1040;  // compared with patterns, tells the types apart
// Codes and an attribute that the command line makes and deletes.
constexpr unsigned short kScratchCode = 3000;
constexpr int kScratchAttribute = 20;
// The same of the other thread that writes the registries.
constexpr unsigned short kOtherScratchCode = 3001;
constexpr int kOtherScratchAttribute = 21;

// Types that are there all the time, and how they look.
constexpr unsigned int kFirstType = 100;
constexpr unsigned int kTypes = 24;
constexpr unsigned int kLampsOfEach = 3;
std::string NameOfType(unsigned int type);

// A real profile of an operator's that every keeper binds and none deletes.
constexpr unsigned int kSharedKey = 600;
// A table of the host's own; what is put back into it always has the first type.
OnuRealAbilityTable& RestoredTable();

// Registers the ten hooks, at any time.
void RegisterHooks();
// Registers attributes, codes and hooks, makes the tables and fills them.
void LoadCatalogue();

// An empty profile of a type (1 real, 2 match) and source.
OnuAbilityProfile EmptyProfile(int type, int source);
// A real profile whose key value and real type are `key`.
OnuAbilityProfile RealProfile(unsigned int key, int source, unsigned int fe_ports,
                              unsigned int ge_ports);
// A pattern that recognises the type `key` by its serial ports.
OnuAbilityProfile Pattern(unsigned int key, int source, unsigned int serial_ports);

// The type under which the hooks' ONU at `place` (below kTypes) is to be recognised.
unsigned int TypeOfOnu(unsigned short place);
// What the hooks were told last by this thread.
unsigned int RealTypeTold();

#endif  // TESTS_THREADS_CATALOGUE_H
