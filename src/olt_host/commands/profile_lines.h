// The lines that make one profile, and the profile that they make.
#ifndef OLT_HOST_COMMANDS_PROFILE_LINES_H
#define OLT_HOST_COMMANDS_PROFILE_LINES_H

#include <string>
#include <vector>

#include "onu_ability_common_table.h"

namespace olt_host {

// Finds lines for the profile `wanted` step by step. Every line that would not bring the
// profile nearer to it is left out. REQUIRES: `wanted` outlives this.
class ProfileLines {
 public:
  explicit ProfileLines(const OnuAbilityProfile& wanted);

  // The lines up to the one that hands the profile to its table.
  void Build();
  // The lines that change it there: numbers that a pending profile does not take, texts.
  // REQUIRES: Build, and that the table finds this profile by its key.
  void Update();

  // False when the key of the built profile is not the one that the lines name it by:
  // where the key ability code is one that the commands set otherwise.
  bool KeepsItsKey() const;

  const OnuAbilityProfile& built() const { return _built; }
  const std::vector<std::string>& lines() const { return _lines; }
  // By which the commands find the profile.
  unsigned int key() const { return _key; }

 private:
  using Value = ONU_ABILITY_COMMON_ABILITY_VALUE;

  const Value* Wanted(unsigned short code) const;
  std::string ShortArgument(unsigned short code) const;
  std::string NameArgument(unsigned short code, std::size_t most_bytes) const;
  void AddNumber(unsigned short code, const std::string& argument);
  void AddText(unsigned short code, const std::string& text);

  void Begin();
  void SetNumbers(bool totals);
  void SetNumber(unsigned short code, unsigned int number);
  void WritePairs();

  void UpdateNumbers(bool totals);
  void UpdateTexts();
  void WriteUpdate(const char* index, unsigned short code, const std::string& value);

  const OnuAbilityProfile& _wanted;
  OnuAbilityProfile _built;
  unsigned int _key = 0;
  std::vector<std::string> _pairs;
  std::vector<std::string> _lines;
};

// Whether two profiles hold the same under the code, absence included.
bool SameUnder(unsigned short code, const OnuAbilityProfile& a, const OnuAbilityProfile& b);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_PROFILE_LINES_H
