// What a population of ONUs reports, and what is expected of its confirmation,
// as a reports file states it. Plain data.
#ifndef OLT_HOST_CATALOGUE_REPORTS_H
#define OLT_HOST_CATALOGUE_REPORTS_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/input_error.h"

namespace olt_host {

constexpr std::uint32_t kUnknownReportedType = 0xFFFFFFFF;
constexpr std::uint8_t kUnknownPrivateCapability = 0xFF;

// How an ONU was recognised: by the type that it reported, by its abilities, or
// not at all.
enum class Recognition { kNone, kType, kAbilities };

// "none", "type" or "abilities".
const char* ToText(Recognition recognition);

// What an OLT is set to for the ONUs of one place.
struct IdentifySettings {
  std::uint16_t sfu_mode = 0;
  std::uint16_t setting_1 = 0;
  std::uint16_t hgu_mode = 0;
  std::uint16_t setting_3 = 0;
};

struct Expectation {
  std::optional<std::uint16_t> real_type;  // nothing: not recognised
  std::optional<Recognition> how;
  std::optional<std::uint16_t> report_type;  // after translation
  // Keys of all match profiles that fit when more than one does and only their order
  // decides; of each as often as it fits. Empty: no more than one fits.
  std::vector<std::uint32_t> ambiguous;
};

// What is so whatever an ONU reports, as generated populations tell it.
struct Truth {
  std::uint16_t real_type = 0;
  std::vector<std::string> faults;  // of the report, by name
};

struct OnuReport {
  std::uint16_t place = 0;
  std::uint8_t onu = 0;
  std::string serial_number;             // or its hash; empty: not told
  std::optional<std::string> vendor_id;  // nothing: the ONU does not tell
  std::string behind_vendor_id;          // bytes behind its terminator
  std::uint32_t reported_type = kUnknownReportedType;
  bool read_abilities = true;
  std::optional<std::uint8_t> private_capability;
  std::optional<std::string> device_name;
  std::string behind_device_name;
  std::map<std::uint16_t, std::uint32_t> abilities;  // by code
  std::optional<Expectation> expect;
  std::optional<Truth> truth;
  SourcePosition position;
};

// A report out of a whole network: with the OLT that the ONU is at, and with what that one is
// set to for it.
struct NetworkReport {
  std::string olt;
  IdentifySettings settings;
  OnuReport report;
};

struct Reports {
  std::string name;
  IdentifySettings default_settings;
  std::map<std::uint16_t, IdentifySettings> settings;  // by place
  std::vector<OnuReport> onus;
};

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_REPORTS_H
