#include "onu_ability_common_global/physical_sn.h"

#include <cstring>

namespace {

constexpr unsigned int kVendorBytes = 4;

unsigned char VendorByte(const std::string& vendor_id, unsigned int i) {
  return i < vendor_id.size() ? static_cast<unsigned char>(vendor_id[i]) : 0;
}

}  // namespace

ONU_ABILITY_PHYSICAL_SN& ONU_ABILITY_PHYSICAL_SN::operator=(const _OMCI_PHYSICAL_SN_& sn) {
  const auto* vendor = reinterpret_cast<const char*>(sn.vendor_id);
  vendor_id.assign(vendor, strnlen(vendor, kVendorBytes));
  // The reversal is meant.
  for (unsigned int i = 0; i < sizeof(sn.serial); ++i) {
    serial[i] = sn.serial[sizeof(sn.serial) - 1 - i];
  }
  return *this;
}

bool ONU_ABILITY_PHYSICAL_SN::operator<(const ONU_ABILITY_PHYSICAL_SN& other) const {
  // A larger byte does not end the comparison: not a lexicographic order, as
  // meant.
  for (unsigned int i = 0; i < kVendorBytes; ++i) {
    if (VendorByte(vendor_id, i) < VendorByte(other.vendor_id, i)) {
      return true;
    }
  }
  for (unsigned int i = 0; i < sizeof(serial); ++i) {
    if (serial[i] < other.serial[i]) {
      return true;
    }
  }
  return false;
}
