#include "population.h"

#include <algorithm>

#include "dice.h"

namespace {

constexpr std::size_t kGiven = 58;  // and two derived totals
constexpr std::size_t kVendors = 20;
constexpr std::size_t kLampsHeld = 4;
constexpr std::size_t kWildcards = kComparedCodes / 4;
constexpr unsigned short kFirstText = 2001;
constexpr std::size_t kTexts = 7;  // beside vendor, type name and profile name
constexpr unsigned short kFirstFiller = 110;
constexpr std::size_t kFillers = 49;
constexpr unsigned short kFirstOther = 1300;
constexpr std::size_t kOthers = 37;
constexpr unsigned short kLan = 3;
constexpr unsigned short kOtherDataUni = 7;

struct Attributes {
  unsigned short confirm = 0;
  unsigned short lamp = 0;
  unsigned short port = 0;
  unsigned short type = ONU_ABILITY_VALUE_TYPE_USHORT;
};

void Define(unsigned short code, Attributes attributes) {
  ONU_ABILITY_CODE_ATTR_INFO record;
  record.ability_code = code;
  record.ability_name = "ABILITY_" + std::to_string(code);
  record.ability_attr[ONU_ABILITY_ATTR_CONFIRM_TYPE] = attributes.confirm;
  record.ability_attr[ONU_ABILITY_ATTR_LAMP] = attributes.lamp;
  record.ability_attr[ONU_ABILITY_ATTR_PORT_TYPE] = attributes.port;
  record.ability_attr[ONU_ABILITY_ATTR_VALUE_TYPE] = attributes.type;
  OnuAbilityCodeInfo::GetInstance()->Update(record);
}

void DefineRange(unsigned short first, std::size_t count, Attributes attributes) {
  for (std::size_t i = 0; i < count; ++i) {
    Define(static_cast<unsigned short>(first + i), attributes);
  }
}

Ability Number(std::size_t code, unsigned int number) {
  return {static_cast<unsigned short>(code), {ONU_ABILITY_VALUE_TYPE_USHORT, number, ""}};
}

Ability Text(std::size_t code, std::string text) {
  return {static_cast<unsigned short>(code),
          {ONU_ABILITY_VALUE_TYPE_STRING, ONU_ABILITY_WILDCARD, std::move(text)}};
}

// Most ONUs have the usual number of anything, some another one.
unsigned int RollCompared(Dice& dice, std::size_t place) {
  if (place == kVendorPlace) return dice.Below(kVendors);
  if (place == kComparedNumbers) return dice.Below(2);
  return dice.Below(100) < 55 ? 1 : 2 + dice.Below(8);
}

Compared RollCompared(Dice& dice) {
  Compared compared{};
  for (std::size_t place = 0; place < kComparedCodes; ++place) {
    compared[place] = RollCompared(dice, place);
  }
  return compared;
}

unsigned short CodeOfPlace(std::size_t place) {
  if (place == kVendorPlace) return ONU_ABILITY_CODE_VENDOR_ID;
  if (place == kComparedNumbers) return ONU_ABILITY_CODE_ONU_CAPA;
  return static_cast<unsigned short>(kFirstComparedCode + place);
}

Ability ComparedAbility(std::size_t place, unsigned int value) {
  if (place != kVendorPlace) return Number(CodeOfPlace(place), value);
  const bool wildcard = value == ONU_ABILITY_WILDCARD;
  return Text(ONU_ABILITY_CODE_VENDOR_ID, wildcard ? "" : VendorName(value));
}

void Derive(Description& profile) {
  unsigned int lan = 0;
  unsigned int data = 0;
  for (std::size_t place = 0; place < 3; ++place) {
    const unsigned int ports = profile.compared[place];
    if (ports == ONU_ABILITY_WILDCARD) continue;
    lan += place < 2 ? ports : 0;
    data += ports;
  }
  if (lan != 0) profile.derived.push_back(Number(ONU_ABILITY_CODE_ALL_LAN, lan));
  if (data != 0) profile.derived.push_back(Number(ONU_ABILITY_CODE_DATA_UNI, data));
}

// Keys and types as they are given out over the years: without an order. The primes
// keep them apart.
Description Identity(std::size_t place) {
  Description profile;
  profile.key = static_cast<unsigned int>(1 + place * 7919 % 1000003);
  profile.real_type = static_cast<unsigned short>(1 + place * 40503 % 65521);
  profile.given.push_back(Number(ONU_ABILITY_CODE_DEFAULT_KEY, profile.key));
  profile.given.push_back(Number(ONU_ABILITY_CODE_REAL_TYPE, profile.real_type));
  profile.given.push_back(Number(ONU_ABILITY_CODE_REPORT_TYPE, profile.key));
  profile.given.push_back(
      Text(ONU_ABILITY_CODE_TYPE_NAME, "TYPE-" + std::to_string(profile.key) + "-GW4"));
  profile.given.push_back(Text(ONU_ABILITY_CODE_PROFILE_NAME,
                               "profile of the ONU type " + std::to_string(profile.key)));
  for (std::size_t i = 0; i < kTexts; ++i) {
    profile.given.push_back(Text(
        kFirstText + i, "text " + std::to_string(i) + " of " + std::to_string(profile.real_type)));
  }
  return profile;
}

void FillUp(Description& profile, Dice& dice) {
  std::vector<std::size_t> fillers(kFillers);
  for (std::size_t i = 0; i < kFillers; ++i) fillers[i] = kFirstFiller + i;
  dice.Shuffle(fillers);
  while (profile.given.size() < kGiven) {
    profile.given.push_back(Number(fillers.back(), 1 + dice.Below(200)));
    fillers.pop_back();
  }
}

std::vector<Description> RollReal() {
  Dice dice(1);
  std::vector<Description> profiles;
  for (std::size_t i = 0; i < kLargestPopulation; ++i) {
    Description profile = Identity(i);
    profile.compared = RollCompared(dice);
    for (std::size_t place = 0; place < kComparedCodes; ++place) {
      // A real profile does not store zeros: an SFU has no capability.
      if (place == kVendorPlace || profile.compared[place] != 0) {
        profile.given.push_back(ComparedAbility(place, profile.compared[place]));
      }
    }
    for (std::size_t lamp = 0; lamp < kLampsHeld; ++lamp) {
      profile.given.push_back(Number(kFirstLampCode + (lamp + i) % kLampCodes, 1 + dice.Below(4)));
    }
    if (i % 2 == 0) profile.given.push_back(Number(ONU_ABILITY_CODE_TRANS_TYPE, 1));
    FillUp(profile, dice);
    Derive(profile);
    profiles.push_back(std::move(profile));
  }
  return profiles;
}

std::vector<Description> RollMatch() {
  Dice dice(2);
  std::vector<Description> profiles;
  for (std::size_t i = 0; i < kLargestPopulation; ++i) {
    Description profile = Identity(i);
    profile.compared = RollCompared(dice);
    std::vector<std::size_t> places(kComparedCodes);
    for (std::size_t place = 0; place < kComparedCodes; ++place) places[place] = place;
    dice.Shuffle(places);
    for (std::size_t w = 0; w < kWildcards; ++w) profile.compared[places[w]] = ONU_ABILITY_WILDCARD;
    for (std::size_t place = 0; place < kComparedCodes; ++place) {
      // Both kinds of wildcard: an entry that matches anything, and no entry.
      if (profile.compared[place] != ONU_ABILITY_WILDCARD || dice.Below(2) == 0) {
        profile.given.push_back(ComparedAbility(place, profile.compared[place]));
      }
    }
    FillUp(profile, dice);
    Derive(profile);
    profiles.push_back(std::move(profile));
  }
  return profiles;
}

bool Fits(const Compared& pattern, const Compared& report) {
  for (std::size_t place = 0; place < kComparedCodes; ++place) {
    if (pattern[place] != ONU_ABILITY_WILDCARD && pattern[place] != report[place]) return false;
  }
  return true;
}

// The place of the newest pattern that fits, or `patterns`.
std::size_t NewestFit(std::size_t patterns, const Compared& report) {
  const auto& all = MatchDescriptions();
  for (std::size_t place = patterns; place > 0; --place) {
    if (Fits(all[place - 1].compared, report)) return place - 1;
  }
  return patterns;
}

Report MakeReport(const Compared& compared, std::size_t patterns, Dice& dice) {
  Report report;
  report.compared = compared;
  for (std::size_t i = 0; i + 1 < kAskedCodes; ++i) {
    report.asked[i] = i < kComparedNumbers ? compared[i] : 1 + dice.Below(200);
  }
  report.asked.back() = compared[kComparedNumbers];
  report.vendor = VendorName(compared[kVendorPlace]);
  report.device_name = "DEVICE-" + std::to_string(dice.Below(100000));
  report.known_type = MatchDescriptions()[dice.Below(patterns)].key;
  return report;
}

}  // namespace

std::string VendorName(unsigned int vendor) {
  return {'V', 'N', static_cast<char>('A' + vendor / 10), static_cast<char>('0' + vendor % 10)};
}

void DefineRegistry() {
  auto* attributes = OnuAbilityAttrInfo::GetInstance();
  for (int id = 1; id <= 5; ++id) {
    attributes->Add(static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id),
                    "ATTRIBUTE_" + std::to_string(id));
  }
  DefineRange(kFirstComparedCode, 2, {3, 0, kLan});
  Define(kFirstComparedCode + 2, {3, 0, kOtherDataUni});
  DefineRange(kFirstComparedCode + 3, kComparedNumbers - 3, {3, 0, 1});
  DefineRange(kFirstFiller, kFillers, {2});
  for (const unsigned short code :
       {ONU_ABILITY_CODE_PRIVATE_CAPABILITY_KNOWN, ONU_ABILITY_CODE_ALL_LAN,
        ONU_ABILITY_CODE_TRANS_TYPE, ONU_ABILITY_CODE_REPORT_TYPE, ONU_ABILITY_CODE_REAL_TYPE,
        ONU_ABILITY_CODE_DEFAULT_KEY, ONU_ABILITY_CODE_DATA_UNI}) {
    Define(code, {});
  }
  Define(ONU_ABILITY_CODE_ONU_CAPA, {3});
  Define(ONU_ABILITY_CODE_VENDOR_ID, {1, 0, 0, ONU_ABILITY_VALUE_TYPE_STRING});
  Define(ONU_ABILITY_CODE_TYPE_NAME, {0, 0, 0, ONU_ABILITY_VALUE_TYPE_STRING});
  Define(ONU_ABILITY_CODE_PROFILE_NAME, {0, 0, 0, ONU_ABILITY_VALUE_TYPE_STRING});
  DefineRange(kFirstText, kTexts, {0, 0, 0, ONU_ABILITY_VALUE_TYPE_STRING});
  DefineRange(kFirstLampCode, kLampCodes, {0, 1});
  DefineRange(kFirstOther, kOthers, {});
}

const std::vector<Description>& RealDescriptions() {
  static const std::vector<Description> kProfiles = RollReal();
  return kProfiles;
}

const std::vector<Description>& MatchDescriptions() {
  static const std::vector<Description> kProfiles = RollMatch();
  return kProfiles;
}

std::vector<Report> MiddleReports(std::size_t patterns, std::size_t count) {
  Dice dice(3);
  std::vector<Report> reports;
  while (reports.size() < count) {
    const std::size_t place = patterns / 2 - patterns / 20 + dice.Below(patterns / 10);
    Compared compared = MatchDescriptions()[place].compared;
    for (std::size_t i = 0; i < kComparedCodes; ++i) {
      if (compared[i] == ONU_ABILITY_WILDCARD) compared[i] = RollCompared(dice, i);
    }
    if (NewestFit(patterns, compared) == place) {
      reports.push_back(MakeReport(compared, patterns, dice));
    }
  }
  return reports;
}

std::vector<Report> UnknownReports(std::size_t patterns, std::size_t count) {
  Dice dice(4);
  std::vector<Report> reports;
  while (reports.size() < count) {
    const Compared compared = RollCompared(dice);
    if (NewestFit(patterns, compared) == patterns) {
      reports.push_back(MakeReport(compared, patterns, dice));
    }
  }
  return reports;
}
