// Why an ONU is confirmed as what it is: what it told, the road to its type, what became
// of every match profile, the translation of its type.
//
// Recognised by the library's own steps and comparisons, beside its tables: nothing of the
// library is changed, nothing is handed over to the host, nothing is logged.
#ifndef OLT_HOST_RECOGNITION_EXPLANATION_H
#define OLT_HOST_RECOGNITION_EXPLANATION_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/reports.h"
#include "confirmation/hooks.h"
#include "recognition/gathered_report.h"
#include "recognition/pattern_comparison.h"
#include "recognition/profile_origin.h"
#include "recognition/type_translation.h"

namespace olt_host {

// kNeverAsked: older than the winner; or no profile was compared at all.
enum class ProfileFate { kWon, kLost, kNeverAsked };

// "won", "lost" or "never asked".
const char* ToText(ProfileFate fate);

struct ProfileVerdict {
  std::size_t turn = 0;  // 1 is asked first
  std::uint16_t id = 0;
  unsigned int source = 0;
  std::optional<std::uint32_t> key;
  std::string name;  // type name of its real profile; empty without one
  ProfileFate fate = ProfileFate::kNeverAsked;
  bool fits = false;   // by the library's comparison, whether or not it was asked
  AbilityTally tally;  // of all abilities, also those behind the one that decided
};

struct Explanation {
  OnuReport report;
  IdentifySettings settings;
  std::vector<ReportedValue> values;

  Recognition how = Recognition::kNone;
  // Whether profiles were compared. Not when the reported type is the key of one; nor when
  // no type was reported and a profile has no key either, which the library takes for the
  // same and `how` counts as recognised by abilities.
  bool compared = false;
  std::vector<ProfileVerdict> profiles;  // newest first: in the order of their turns
  std::optional<std::size_t> winner;     // index of `profiles`
  ProfileOrigin origin;                  // of the winner
  std::vector<AbilityComparison> winner_abilities;
  // Compared codes for which the winner has a value and the ONU told none: they pass.
  std::vector<std::uint16_t> unreported;
  // Who would have won by abilities alone; nothing when no profile fits.
  std::optional<std::size_t> by_abilities;

  std::optional<std::uint16_t> real_type;  // nothing: not recognised
  std::string type_name;
  TypeTranslation translation;
  ProfileOrigin real_origin;      // of the translation's real profile
  std::uint16_t report_type = 0;  // what the host is told: the translation's `after`
};

// Explains by the match profiles as they were when this was made.
//
// REQUIRES: the hooks are registered, the library is loaded. On the thread that works with
// the library.
class Explainer {
 public:
  // REQUIRES: `origins` outlives this.
  explicit Explainer(const ProfileOrigins& origins);

  // REQUIRES: `source` knows the ONU of `report`; the match profiles did not change.
  Explanation Explain(const ReportSource& source, const OnuReport& report);

 private:
  void Compare(const OnuAbilityProfile& report, Explanation& explanation);
  void Recognise(const GatheredReport& report, ConfirmOnuType& onu, Explanation& explanation);
  void DescribeWinner(const GatheredReport& report, Explanation& explanation);

  const ProfileOrigins& _origins;
  std::vector<OnuAbilityProfile> _profiles;  // copies, newest first
  std::vector<ProfileVerdict> _verdicts;     // what no report changes
};

// Indices of the profiles with one of the two fates that did not fit, or that fit, nearest
// first: the fewest abilities against, then the most that agree, then the newest.
std::vector<std::size_t> NearestOf(const Explanation& explanation, ProfileFate fate, bool fits);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_EXPLANATION_H
