// The population that is measured: a registry of 120 codes with five attributes, and
// as many real and match profiles of 60 abilities each as a row asks for. Always the
// same, and the first profiles of a large population are those of a small one.
#ifndef BENCH_POPULATION_H
#define BENCH_POPULATION_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "onu_ability_common_table.h"

constexpr std::size_t kLargestPopulation = 10000;

// Twelve codes are compared with patterns, in the order of the codes: ten numbers of
// ports and alike, the capability, the vendor.
constexpr std::size_t kComparedCodes = 12;
constexpr std::size_t kVendorPlace = 11;
constexpr unsigned short kFirstComparedCode = 100;
constexpr std::size_t kComparedNumbers = 10;

// Sixty codes are asked from an ONU: these and, as the last, the capability.
constexpr unsigned short kFirstAskedCode = 100;
constexpr std::size_t kAskedCodes = 60;

constexpr unsigned short kFirstLampCode = 1200;
constexpr std::size_t kLampCodes = 6;

struct Ability {
  unsigned short code;
  ONU_ABILITY_COMMON_ABILITY_VALUE value;
};

// The compared values of a pattern or a report; the wildcard where it says nothing, the
// number of the vendor at kVendorPlace.
using Compared = std::array<unsigned int, kComparedCodes>;

// A profile, as a catalogue would give it.
struct Description {
  unsigned int key = 0;
  unsigned short real_type = 0;
  Compared compared{};
  std::vector<Ability> given;
  std::vector<Ability> derived;  // what the library adds to them
};

// What one ONU answers to the hooks.
struct Report {
  Compared compared{};
  std::array<unsigned int, kAskedCodes> asked{};
  std::string vendor;
  std::string device_name;
  unsigned int known_type = 0;  // the key of a match profile
};

// A type that no profile has.
constexpr unsigned int kUnknownType = 3000000;

// Registers attributes and codes. Once a process.
void DefineRegistry();

// The first `kLargestPopulation` profiles of each table; a real and a match profile of
// the same place have the same key and real type.
const std::vector<Description>& RealDescriptions();
const std::vector<Description>& MatchDescriptions();

// Reports that the newest-first search over the first `patterns` match profiles finds
// about in the middle, and reports that no pattern fits.
std::vector<Report> MiddleReports(std::size_t patterns, std::size_t count);
std::vector<Report> UnknownReports(std::size_t patterns, std::size_t count);

std::string VendorName(unsigned int vendor);

#endif  // BENCH_POPULATION_H
