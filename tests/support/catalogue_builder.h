// Builders of registries and profiles, so that a test reads as set-up, act,
// expectation. None of them logs more than the library's own operations do;
// call host.ForgetLog() when the set-up is complete.
#ifndef TESTS_SUPPORT_CATALOGUE_BUILDER_H
#define TESTS_SUPPORT_CATALOGUE_BUILDER_H

#include <map>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

// Registers attribute ids 1 (CONFIRM_TYPE), 3 (LAMP), 4 (PORT_TYPE) and 5
// (VALUE_TYPE).
void RegisterAttributes();

// Defines code `code` as `name` with the given attribute values (the others
// keep a new record's: 0, and 2 for attribute 5).
void DefineCode(unsigned short code, const std::string& name,
                const std::map<int, unsigned short>& attributes = {});

// Attributes, then these codes: 1001 ALL_LAN, 1002 ONU_CAPA, 1010 FE_PORTS and
// 1011 GE_PORTS (port type 3), 1012 WIFI_UNI (port type 7), 1020 POTS_PORTS,
// 1030 POWER_LAMP and 1031 LAN_LAMP (lamp), 1080 REPORT_TYPE, 1081 REAL_TYPE,
// 1082 VENDOR_ID, 1083 TYPE_NAME and 1093 PROFILE_NAME (strings), 1085
// KEY_VALUE, 65533 DATA_UNI_TOTAL. Codes 1002, 1010, 1011, 1020 and 1082
// confirm a type (attribute 1 is 3: compared, and asked from the ONU).
void DefineUsualCodes();

// A profile after Init of `type`, `source`, match type 0.
OnuAbilityProfile MakeProfile(int type, int source = 0);
OnuAbilityProfile MakeRealProfile(unsigned int key, unsigned short real_type, int source = 0);
OnuAbilityProfile MakeMatchProfile(unsigned int key, unsigned short real_type, int source = 0);

// The tables of the manager: Init, then Add of each profile.
void InitTables();
void AddToTable(const OnuAbilityProfile& profile);
// Copies of one table, all sources, in table order.
std::vector<OnuAbilityProfile> TableOf(int type);

#endif  // TESTS_SUPPORT_CATALOGUE_BUILDER_H
