// What a sequence of operations works on, and the trace of what the library did:
// results, outputs, terminal bytes, and log lines, locks, hooks and memory calls in
// the order in which the host saw them.
//
// The library's singletons belong to one stage at a time.
#ifndef TESTS_SHORT_WAYS_STAGE_H
#define TESTS_SHORT_WAYS_STAGE_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "hostile_input.h"
#include "onu_ability_common_table.h"
#include "support/recording_host.h"

// A table that the test itself makes. The manager knows nothing of it, and the test
// changes its profiles behind its back.
template <typename Table>
class OwnTable : public Table {
 public:
  std::vector<OnuAbilityProfile>& profiles() ONU_ABILITY_NOT_ANALYSED { return this->_vec_profile; }
};

class Stage {
 public:
  // Brings the library into the state of a fresh process, with its short ways open or
  // closed. Only where `records_handed_out` may operations ask the code registry for
  // its records to change them directly: the first time closes, for the rest of the
  // process, the short ways that rely on knowing every change.
  Stage(bool walks_only, bool records_handed_out);
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  // What the operation is about to do, for the trace and the report.
  void Say(const std::string& text);
  std::function<void(const std::string&)> listener;  // hears it at once

  // A result or output of the operation.
  void Note(const std::string& what, long long value);
  void Note(const std::string& what, const std::string& text);
  void Note(const std::string& what, const OnuAbilityProfile& profile);
  void Note(const std::string& what, const std::vector<OnuAbilityProfile>& profiles);

  // Notes everything that can be observed, with nobody listening.
  void NoteState();

  // All since the last call.
  std::string TakeTrace();

  // A key ability value or real type: the favourite, or that of a profile below, or
  // any.
  unsigned int Key(HostileInput& random) const;
  std::optional<unsigned int> favourite;

  bool HandsRecordsOut() const { return records_handed_out_; }
  // Null unless it does.
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>* Records();

  std::vector<OnuAbilityProfile> profiles;
  std::unique_ptr<OwnTable<OnuRealAbilityTable>> own_real;
  std::unique_ptr<OwnTable<OnuMatchAbilityTable>> own_match;
  vty terminal;

 private:
  void NoteRegistries();
  void NoteSettings();
  void NoteTables();
  void AppendEvents();
  unsigned int NumberOf(const MutexCall& call);
  void Forget();

  const bool records_handed_out_;
  std::vector<ONU_ABILITY_CODE_ATTR_INFO>* records_ = nullptr;  // kept once handed out
  std::string trace_;
  std::vector<const void*> mutexes_;  // in the order of their construction
};

// A table of the manager, null when the type has none.
OnuAbilityTableBase* TableOfType(ONU_ABILITY_ENUM_PROFILE_TYPE type);

struct Operation {
  const char* name;
  unsigned int weight;
  void (*run)(Stage& stage, HostileInput& random);
  // Kinds that some sequences leave out: a cost that grows with the square of a
  // table's size; what keeps short ways from being taken, so that others take them.
  bool goes_over_tables = false;
  bool unsettles = false;
};

// The operations of each area. `RecordOperations` are those that need the records.
std::vector<Operation> RegistryOperations();
std::vector<Operation> RecordOperations();
std::vector<Operation> ProfileOperations();
std::vector<Operation> ProfileValueOperations();
std::vector<Operation> TableOperations();
std::vector<Operation> StoredProfileOperations();
std::vector<Operation> MatchOperations();
std::vector<Operation> LoadOperations();
std::vector<Operation> LookupOperations();
std::vector<Operation> ConfirmationOperations();
std::vector<Operation> QueryOperations();
std::vector<Operation> CommandOperations();
std::vector<Operation> SettingOperations();
std::vector<Operation> RepeatedQuestions();

// What starts a sequence: attributes and codes, all of them or with gaps, the tables,
// and loads of more than 64 and more than 2,000 profiles.
void DefineWholeCatalogue(Stage& stage, HostileInput& random);
void DefineCatalogue(Stage& stage, HostileInput& random);
void InitTables(Stage& stage, HostileInput& random);
void Load(Stage& stage, HostileInput& random);
void LoadMedium(Stage& stage, HostileInput& random);
void LoadLarge(Stage& stage, HostileInput& random);
// The log mask of a host in production, or of one that looks for something.
void ListenQuietly(Stage& stage, HostileInput& random);
void ListenLoudly(Stage& stage, HostileInput& random);
// One profile as they are found in the field, one as they are not.
void FillProfile(OnuAbilityProfile& profile, HostileInput& random);
void FillIrregularProfile(OnuAbilityProfile& profile, HostileInput& random);

#endif  // TESTS_SHORT_WAYS_STAGE_H
