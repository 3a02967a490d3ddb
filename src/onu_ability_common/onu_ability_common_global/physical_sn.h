/// @file
/// The identity of one ONU as listings show it: where it sits and its serial
/// number. A plain value.
#ifndef ONU_ABILITY_COMMON_GLOBAL_PHYSICAL_SN_H
#define ONU_ABILITY_COMMON_GLOBAL_PHYSICAL_SN_H

#include <string>

#include "omci.h"
#include "onu_ability_common_global/api.h"

/// Where an ONU sits, and the number it was made with. Held by one thread at a time; logs
/// nothing.
struct ONU_ABILITY_API ONU_ABILITY_PHYSICAL_SN {
  unsigned short pon_no = 0xFFFF;  ///< PON number, 0xFFFF: not set
  unsigned char onu_id = 0xFF;     ///< ONU number on its PON, 0xFF: not set
  std::string vendor_id;           ///< 4 characters
  unsigned char serial[6] = {};    ///< the four bytes of the protocol, and two more

  /// No ONU: nothing is set.
  ONU_ABILITY_PHYSICAL_SN() = default;
  /// Every field, as assigning does.
  ONU_ABILITY_PHYSICAL_SN(const ONU_ABILITY_PHYSICAL_SN&) = default;
  /// Every field.
  ONU_ABILITY_PHYSICAL_SN& operator=(const ONU_ABILITY_PHYSICAL_SN&) = default;

  /// Takes over vendor identifier and serial of the management protocol's form. The
  /// vendor identifier ends early at a zero byte. The four serial bytes are stored in
  /// reverse order; bytes 4 and 5, the PON number and the ONU id stay as they were.
  ONU_ABILITY_PHYSICAL_SN& operator=(const _OMCI_PHYSICAL_SN_& sn);

  /// True when any of the 4 vendor or 6 serial bytes is below the other's byte
  /// at the same place, whatever the bytes before it: not an order, two numbers
  /// can each be less than the other. A shorter vendor id compares with zeros.
  bool operator<(const ONU_ABILITY_PHYSICAL_SN& other) const;
};

#endif  // ONU_ABILITY_COMMON_GLOBAL_PHYSICAL_SN_H
