// The library and the model side by side while a sequence of operations runs:
// what an operation works on, and the comparison of what it did.
#ifndef TESTS_MODEL_BOTH_SIDES_H
#define TESTS_MODEL_BOTH_SIDES_H

#include <string>
#include <vector>

#include "commands.h"
#include "onu_ability_common_table.h"
#include "profile.h"
#include "random_input.h"
#include "support/recording_host.h"

constexpr unsigned int kSlots = 4;

class BothSides {
 public:
  // Brings both into the state of a fresh process.
  BothSides();
  ~BothSides();
  BothSides(const BothSides&) = delete;
  BothSides& operator=(const BothSides&) = delete;

  // A key ability value, often that of one of the profiles below.
  unsigned int Key(RandomInput& random) const;

  // What the operation does, for the report; called once per operation.
  void Describe(const std::string& text) { description_ = text; }
  const std::string& description() const { return description_; }

  // Compare one result. The first difference is kept.
  void Same(const std::string& what, long long library, long long model);
  void Same(const std::string& what, const std::string& library, const std::string& model);
  void Same(const std::string& what, const OnuAbilityProfile& library, const model::Profile& model);
  void Same(const std::string& what, const std::vector<OnuAbilityProfile>& library,
            const std::vector<model::Profile>& model);

  // Compares and forgets the records of the operation that just ran.
  void CompareRecords();
  // Compares everything that can be observed.
  void CompareState();

  // Empty while both agree.
  const std::string& difference() const { return difference_; }

  std::vector<OnuAbilityProfile> library;  // profiles that operations work on
  std::vector<model::Profile> model;
  vty terminal;

 private:
  void Differ(const std::string& what, const std::string& library_text,
              const std::string& model_text);
  void CompareLogs();
  void CompareLocks();
  void CompareHooks();
  void CompareMemory();
  void CompareRegistries();
  void CompareSettings();
  void CompareTables();
  void Forget();

  std::string description_;
  std::string difference_;
  std::vector<std::pair<const void*, int>> mutexes_;  // of the library, by the model's number
};

struct Operation {
  const char* name;
  unsigned int weight;
  void (*run)(BothSides& both, RandomInput& random);
};

// The operations of each area.
std::vector<Operation> RegistryOperations();
std::vector<Operation> ProfileOperations();
std::vector<Operation> MatchingOperations();
std::vector<Operation> TableOperations();
std::vector<Operation> LookupOperations();
std::vector<Operation> ConfirmationOperations();
std::vector<Operation> QueryOperations();
std::vector<Operation> CommandOperations();
std::vector<Operation> TextOperations();

// A registry of attributes and codes that makes the other operations meaningful.
void DefineCatalogue(BothSides& both, RandomInput& random);

ONU_ABILITY_COMMON_ABILITY_VALUE ToLibrary(const model::Value& value);
ONU_ABILITY_PHYSICAL_SN ToLibrary(const model::SerialNumber& number);
std::string Text(const model::Value& value);
// With the unprintable bytes escaped, and cut when it is long.
std::string Quoted(const std::string& text);

inline ONU_ABILITY_ENUM_PROFILE_TYPE AsType(int type) {
  return static_cast<ONU_ABILITY_ENUM_PROFILE_TYPE>(type);
}
inline ONU_ABILITY_ENUM_PROFILE_SOURCE AsSource(int source) {
  return static_cast<ONU_ABILITY_ENUM_PROFILE_SOURCE>(source);
}
inline ONU_ABILITY_ENUM_MATCH_TYPE AsMatchType(int type) {
  return static_cast<ONU_ABILITY_ENUM_MATCH_TYPE>(type);
}
inline ONU_ABILITY_ENUM_ABILITY_ATTR_ID AsAttribute(int id) {
  return static_cast<ONU_ABILITY_ENUM_ABILITY_ATTR_ID>(id);
}

#endif  // TESTS_MODEL_BOTH_SIDES_H
