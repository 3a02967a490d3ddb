// State files: what is written comes back, whatever operators did and whatever the
// catalogue became; what is no whole state file is refused and changes nothing.
#include "state/state_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <random>

#include "catalogue/catalogue_loader.h"
#include "catalogue/catalogue_reader.h"
#include "host_files.h"
#include "state/random_operator.h"
#include "state/state_frame.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::Catalogue;
using olt_host::EncodeState;
using olt_host::InstallLibrary;
using olt_host::LibraryState;
using olt_host::ReadStateFile;
using olt_host::SameState;
using olt_host::StateError;

// The library with a catalogue in it, as a host starts.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const Catalogue& catalogue) {
    OnuAbilityGlobalVar::GetInstance()->_sfu_common_type = catalogue.sfu_common_type;
    OnuAbilityGlobalVar::GetInstance()->_hgu_common_type = catalogue.hgu_common_type;
    if (!catalogue.codes.empty()) olt_host::LoadCatalogue(catalogue);
  }

 private:
  CleanLibrary _library;
};

Catalogue Small() { return olt_host::ReadCatalogue(Fixture("small_catalogue.yaml")); }

olt_host::CodeEntry& CodeOf(Catalogue& catalogue, unsigned short code) {
  return *std::find_if(catalogue.codes.begin(), catalogue.codes.end(),
                       [code](const auto& entry) { return entry.code == code; });
}

void RemoveCode(Catalogue& catalogue, unsigned short code) {
  catalogue.codes.erase(std::find_if(catalogue.codes.begin(), catalogue.codes.end(),
                                     [code](const auto& entry) { return entry.code == code; }));
}

const ONU_ABILITY_CODE_ATTR_INFO* Find(const LibraryState& state, unsigned short code) {
  const auto found = std::find_if(state.codes.begin(), state.codes.end(),
                                  [code](const auto& entry) { return entry.ability_code == code; });
  return found == state.codes.end() ? nullptr : &*found;
}

std::vector<OnuAbilityProfile> OfSource(const std::vector<OnuAbilityProfile>& profiles,
                                        ONU_ABILITY_ENUM_PROFILE_SOURCE source) {
  std::vector<OnuAbilityProfile> chosen;
  for (const OnuAbilityProfile& profile : profiles) {
    if (profile._profile_source == source) chosen.push_back(profile);
  }
  return chosen;
}

// `saved` with the profiles of source 0 that a host which starts again has.
LibraryState AfterRestart(LibraryState saved, const LibraryState& started) {
  for (auto profiles : {&LibraryState::match_profiles, &LibraryState::real_profiles}) {
    std::vector<OnuAbilityProfile> all =
        OfSource(started.*profiles, ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
    const auto operators = OfSource(saved.*profiles, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL);
    all.insert(all.end(), operators.begin(), operators.end());
    (saved.*profiles).swap(all);
  }
  return saved;
}

class StateFile : public testing::Test {
 protected:
  StateFile() {
    InstallLibraryCommands();
    InstallRegisterAttribute();
  }

  std::string File() const { return _directory.Path("olt.state"); }

  // What `lines` leave behind over `catalogue`, as the content of a state file.
  static std::string Saved(const std::vector<std::string>& lines, const Catalogue& catalogue) {
    const LoadedLibrary library(catalogue);
    RandomOperator typist(0);
    for (const std::string& line : lines) typist.Type(line);
    return EncodeState(CaptureLibrary(), catalogue);
  }

  // The state of a host that starts with `catalogue` and the content.
  LibraryState Started(const std::string& content, const Catalogue& catalogue,
                       std::vector<std::string>* remarks = nullptr) {
    const LoadedLibrary library(catalogue);
    olt_host::WriteStateFile(File(), content);
    InstallLibrary(ReadStateFile(File(), catalogue, CaptureLibrary(), remarks));
    return CaptureLibrary();
  }

  // A file of its own each time: truncating one makes file systems flush it.
  void Place(const std::string& content) {
    std::filesystem::remove(File());
    _directory.Write("olt.state", content);
  }

  // The message with which the file is refused; fails when the library changed.
  std::string Refusal(const std::string& content) {
    const LibraryState before = CaptureLibrary();
    Place(content);
    std::string message =
        ErrorOf([&] { ReadStateFile(File(), _small, CaptureLibrary()); }, _directory);
    EXPECT_TRUE(SameState(CaptureLibrary(), before));
    return message;
  }

  const TemporaryDirectory _directory;
  const Catalogue _small = Small();
};

std::string AddLine(const std::string& type, const std::string& names) {
  return "add onu_ability_profile key 5 profile_type " + type + " reporttype 5 realtype 5 " + names;
}

const std::vector<std::string>& TypicalLines() {
  static const std::vector<std::string> lines = {
      "register attribute 7 COLOUR",
      "set ability_code 2000 name FANS 7 4",
      AddLine("1", "vendorid ZKWM onu_type_name FIVE"),
      "set onu_ability_profile key 5 47 4 2000 2",
      "apply onu_ability_profile key 5",
      AddLine("2", "vendorid null onu_type_name null"),
      "apply onu_ability_profile key 5",
      "set onu_common_type sfu 9",
  };
  return lines;
}

TEST_F(StateFile, BringsBackWhatOperatorsMade) {
  const std::string content = Saved(TypicalLines(), _small);
  const LibraryState state = Started(content, _small);
  EXPECT_EQ(state.sfu_common_type, 9);
  EXPECT_EQ(state.hgu_common_type, 700);
  EXPECT_EQ(state.attributes.at(7), "COLOUR");
  ASSERT_NE(Find(state, 2000), nullptr);
  EXPECT_EQ(Find(state, 2000)->ability_name, "FANS");
  ASSERT_EQ(state.real_profiles.size(), 4U);
  const OnuAbilityProfile& profile = state.real_profiles.back();
  EXPECT_EQ(profile._id, 30001);
  EXPECT_EQ(profile._common_ability.at(47).ability_ushort_value, 4U);
  EXPECT_EQ(profile._common_ability.at(1001).ability_ushort_value, 4U);
  EXPECT_EQ(profile._common_ability.at(1083).ability_string_value, "FIVE");
  ASSERT_EQ(state.match_profiles.size(), 4U);
  EXPECT_EQ(state.match_profiles.back()._ability_default_value, 0xFFFFFFFFU);
}

TEST_F(StateFile, DoesNotHoldTheProfilesOfTheCatalogue) {
  Catalogue fewer = _small;
  fewer.real_profiles.pop_back();
  const LibraryState state = Started(Saved(TypicalLines(), _small), fewer);
  EXPECT_EQ(OfSource(state.real_profiles, ONU_ABILITY_PROFILE_SOURCE_DEFAULT).size(), 2U);
  EXPECT_EQ(OfSource(state.real_profiles, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL).size(), 1U);
}

// How often random sessions came to what is hard to keep.
struct Rarities {
  unsigned int profiles = 0;
  unsigned int stale_counts = 0;
  unsigned int unset_entries = 0;
  unsigned int undefined_codes = 0;
  unsigned int bound = 0;

  void Count(const LibraryState& state) {
    for (const auto* table : {&state.real_profiles, &state.match_profiles}) {
      for (const OnuAbilityProfile& profile :
           OfSource(*table, ONU_ABILITY_PROFILE_SOURCE_EXTERNAL)) {
        ++profiles;
        stale_counts += profile._common_ability_num != profile._common_ability.size() ? 1 : 0;
        bound += profile._bind_count != 0 ? 1 : 0;
        for (const auto& [code, value] : profile._common_ability) {
          unset_entries += value.ability_value_type == ONU_ABILITY_VALUE_TYPE_NONE ? 1 : 0;
          undefined_codes += Find(state, code) == nullptr ? 1 : 0;
        }
      }
    }
  }
};

// The sessions that leave a shipped profile and its code deleted come back with the code,
// because the catalogue brings the profile back.
TEST_F(StateFile, OfAnyOperatorSessionIsReadBack) {
  unsigned int remarked = 0;
  Rarities rarities;
  for (unsigned int seed = 1; seed <= 150; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Catalogue catalogue = seed % 3 == 0 ? Catalogue() : _small;
    LibraryState saved;
    std::string content;
    {
      const LoadedLibrary library(catalogue);
      RandomOperator typist(seed);
      typist.RegisterUsualAttributes();
      typist.Act(80);
      saved = CaptureLibrary();
      content = EncodeState(saved, catalogue);
      rarities.Count(saved);
      // Into the running host, whatever was done since.
      typist.Act(40);
      olt_host::WriteStateFile(File(), content);
      const LibraryState current = CaptureLibrary();
      std::vector<std::string> remarks;
      const LibraryState read = ReadStateFile(File(), catalogue, current, &remarks);
      EXPECT_TRUE(SameState(CaptureLibrary(), current));
      InstallLibrary(read);
      if (remarks.empty()) {
        EXPECT_TRUE(SameState(CaptureLibrary(), AfterRestart(saved, current)));
      }
    }
    // Into a host that starts.
    const LoadedLibrary library(catalogue);
    const LibraryState started = CaptureLibrary();
    std::vector<std::string> remarks;
    InstallLibrary(ReadStateFile(File(), catalogue, started, &remarks));
    LibraryState expected = AfterRestart(saved, started);
    for (const std::string& remark : remarks) EXPECT_NE(remark.find("is not deleted"), remark.npos);
    if (remarks.empty()) {
      EXPECT_TRUE(SameState(CaptureLibrary(), expected));
      EXPECT_EQ(EncodeState(CaptureLibrary(), catalogue), content);
    } else {
      ++remarked;
      EXPECT_EQ(CaptureLibrary().codes.size(), expected.codes.size() + remarks.size());
      expected.codes = CaptureLibrary().codes;
      EXPECT_TRUE(SameState(CaptureLibrary(), expected));
    }
  }
  EXPECT_LT(remarked, 50U);
  EXPECT_GT(rarities.profiles, 500U);
  EXPECT_GT(rarities.stale_counts, 0U);
  EXPECT_GT(rarities.unset_entries, 0U);
  EXPECT_GT(rarities.undefined_codes, 0U);
  EXPECT_GT(rarities.bound, 0U);
  std::cout << rarities.profiles << " profiles, " << rarities.stale_counts << " stale counts, "
            << rarities.unset_entries << " unset entries, " << rarities.undefined_codes
            << " undefined codes, " << rarities.bound << " bound, " << remarked << " remarked\n";
}

TEST_F(StateFile, OverACatalogueIsNotTakenWithoutAny) {
  const char* const message =
      "olt.state: was written over a catalogue, and here is none; expected a CATALOGUE";
  const std::vector<std::string> deleted = {"del ability code 1012"};
  for (const auto& lines : {std::vector<std::string>(), TypicalLines(), deleted}) {
    Place(Saved(lines, _small));
    const LoadedLibrary library{Catalogue()};
    EXPECT_EQ(ErrorOf([&] { ReadStateFile(File(), Catalogue(), CaptureLibrary()); }, _directory),
              message);
  }
  // An operator made everything here, and it starts again.
  const std::vector<std::string> lines = {"register attribute 5 VALUE_TYPE",
                                          "set ability_code 2000 name FANS"};
  EXPECT_NE(Find(Started(Saved(lines, Catalogue()), Catalogue()), 2000), nullptr);
}

// --- Over a catalogue that has changed since.

TEST_F(StateFile, DoesNotUndoANewerCatalogue) {
  const std::string content = Saved(TypicalLines(), _small);
  Catalogue newer = _small;
  CodeOf(newer, 24).name = "FAST_PORTS";
  CodeOf(newer, 32).attributes[4] = 2;
  newer.attributes[1].name = "LIGHT";
  newer.sfu_common_type = 801;
  newer.hgu_common_type = 701;
  newer.codes.push_back({3000, "NEW", "", {}, {}});
  const LibraryState state = Started(content, newer);
  EXPECT_EQ(Find(state, 24)->ability_name, "FAST_PORTS");
  EXPECT_EQ(Find(state, 32)->ability_attr.at(ONU_ABILITY_ATTR_PORT_TYPE), 2);
  EXPECT_EQ(state.attributes.at(3), "LIGHT");
  EXPECT_EQ(state.hgu_common_type, 701);
  EXPECT_EQ(state.codes.back().ability_name, "NEW");
  // What the operator set stays.
  EXPECT_EQ(state.sfu_common_type, 9);
  EXPECT_EQ(Find(state, 2000)->ability_name, "FANS");
}

TEST_F(StateFile, KeepsWhatANewerCatalogueNoLongerHas) {
  const std::string content = Saved(TypicalLines(), _small);
  Catalogue newer = _small;
  RemoveCode(newer, 1012);
  newer.real_profiles.clear();
  const LibraryState state = Started(content, newer);
  ASSERT_NE(Find(state, 1012), nullptr);
  EXPECT_EQ(Find(state, 1012)->ability_name, "LAMPS");
}

TEST_F(StateFile, KeepsCodesOfTheCatalogueThatAnOperatorChanged) {
  const std::string content = Saved({"set ability_code 1012 name GLOW 3 2"}, _small);
  Catalogue newer = _small;
  CodeOf(newer, 1012).name = "LEDS";
  const LibraryState state = Started(content, newer);
  EXPECT_EQ(Find(state, 1012)->ability_name, "GLOW");
  EXPECT_EQ(Find(state, 1012)->ability_attr.at(ONU_ABILITY_ATTR_LAMP), 2);
}

TEST_F(StateFile, KeepsDeletedCodesDeleted) {
  Catalogue unused = _small;
  unused.codes.push_back({3000, "UNUSED", "", {}, {}});
  const std::string content = Saved({"del ability code 3000"}, unused);
  EXPECT_EQ(Find(Started(content, unused), 3000), nullptr);
}

TEST_F(StateFile, KeepsADeletedCodeThatAShippedProfileUses) {
  Catalogue unused = _small;
  unused.codes.push_back({3000, "UNUSED", "", {}, {}});
  const std::string content = Saved({"del ability code 3000"}, unused);
  olt_host::AbilityEntry ability;
  ability.code = 3000;
  ability.number = 7;
  unused.real_profiles.front().abilities.push_back(ability);
  std::vector<std::string> remarks;
  EXPECT_NE(Find(Started(content, unused, &remarks), 3000), nullptr);
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_EQ(remarks.front(),
            "code 3000 \"UNUSED\" is not deleted: a real profile of the catalogue uses it");
}

TEST_F(StateFile, LeavesOutACodeWhoseNameTheCatalogueGaveToAnother) {
  const std::string content = Saved({}, _small);
  Catalogue newer = _small;
  newer.real_profiles.clear();
  CodeOf(newer, 1012).code = 1013;
  std::vector<std::string> remarks;
  const LibraryState state = Started(content, newer, &remarks);
  EXPECT_EQ(Find(state, 1012), nullptr);
  EXPECT_EQ(Find(state, 1013)->ability_name, "LAMPS");
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_EQ(remarks.front(),
            "code 1012 \"LAMPS\" is left out: the catalogue gives its name to code 1013");
}

TEST_F(StateFile, IsRefusedWhenTheCatalogueTookAnOperatorsName) {
  const std::string content = Saved(TypicalLines(), _small);
  Catalogue newer = _small;
  newer.codes.push_back({3000, "FANS", "", {}, {}});
  EXPECT_EQ(ErrorOf([&] { Started(content, newer); }, _directory),
            "olt.state: does not go with this catalogue: codes 2000 and 3000 would both be named "
            "\"FANS\"");
  newer = _small;
  newer.attributes.push_back({9, "COLOUR", {}});
  EXPECT_EQ(ErrorOf([&] { Started(content, newer); }, _directory),
            "olt.state: does not go with this catalogue: attributes 7 and 9 would both be named "
            "\"COLOUR\"");
}

// --- What is no whole state file.

TEST_F(StateFile, CutAnywhereIsRefused) {
  const std::string content = Saved(TypicalLines(), Catalogue());
  const LoadedLibrary library(_small);
  EXPECT_EQ(Refusal(""), "olt.state: is empty; expected a file that save wrote");
  for (std::size_t length = 1; length < content.size(); ++length) {
    SCOPED_TRACE("cut at " + std::to_string(length));
    EXPECT_NE(Refusal(content.substr(0, length)).find("is cut short"), std::string::npos);
  }
}

TEST_F(StateFile, WithAnyBitFlippedIsRefused) {
  const std::string content = Saved(TypicalLines(), Catalogue());
  const LoadedLibrary library(_small);
  for (std::size_t bit = 0; bit < content.size() * 8; ++bit) {
    SCOPED_TRACE("bit " + std::to_string(bit));
    std::string flipped = content;
    flipped[bit / 8] = static_cast<char>(flipped[bit / 8] ^ (1 << (bit % 8)));
    EXPECT_NE(Refusal(flipped), "no error");
  }
  ASSERT_EQ(Refusal(content), "no error");
}

TEST_F(StateFile, SaysWhatIsWrongWithAFile) {
  const std::string content = Saved(TypicalLines(), _small);
  const LoadedLibrary library(_small);
  EXPECT_EQ(Refusal("catalogue: {name: x, version: 1}"),
            "olt.state: is no state file; expected a file that save wrote");
  std::string newer = content;
  newer[8] = 2;
  EXPECT_EQ(Refusal(newer),
            "olt.state: was written by a newer olt_host (format 2; this one reads up to 1)");
  std::string huge = content;
  std::fill(huge.begin() + 12, huge.begin() + 20, '\xff');
  EXPECT_EQ(Refusal(huge), "olt.state: is cut short: it has " + std::to_string(content.size()) +
                               " bytes; expected 18446744073709551615");
  EXPECT_EQ(Refusal(content + "x"), "olt.state: is damaged: it has " +
                                        std::to_string(content.size() + 1) + " bytes; expected " +
                                        std::to_string(content.size()) + " by its header");
  std::string damaged = content;
  damaged[60] = static_cast<char>(damaged[60] ^ 1);
  EXPECT_EQ(Refusal(damaged), "olt.state: is damaged: its checksum does not fit its content");
  EXPECT_EQ(ErrorOf([&] { ReadStateFile(_directory.Path("none"), _small, CaptureLibrary()); },
                    _directory),
            "none: cannot be read: No such file or directory");
  EXPECT_EQ(ErrorOf([&] { ReadStateFile("/dev/zero", _small, CaptureLibrary()); }, _directory),
            "/dev/zero: is no file; expected a file that save wrote");
  ASSERT_EQ(mkfifo(_directory.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { ReadStateFile(_directory.Path("pipe"), _small, CaptureLibrary()); },
                    _directory),
            "pipe: is no file; expected a file that save wrote");
}

// Files that somebody made to fit the checksum: refused with a message, or taken whole.
TEST_F(StateFile, MadeToFitItsChecksumIsRefusedOrTakenWhole) {
  const std::string content = Saved(TypicalLines(), _small);
  const LoadedLibrary library(_small);
  const LibraryState before = CaptureLibrary();
  unsigned int refused = 0;
  unsigned int taken = 0;
  for (unsigned int seed = 1; seed <= 2000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    auto sections = olt_host::UnframeSections(content);
    std::string& bytes = sections[random() % sections.size()].bytes;
    if (bytes.empty()) continue;
    for (auto changes = random() % 3 + 1; changes > 0; --changes) {
      bytes[random() % bytes.size()] = static_cast<char>(random() % 4 == 0 ? 0xFF : random() % 256);
    }
    if (random() % 8 == 0) bytes.resize(random() % bytes.size());
    Place(olt_host::FrameSections(sections));
    try {
      InstallLibrary(ReadStateFile(File(), _small, before));
      InstallLibrary(before);
      ++taken;
    } catch (const StateError& error) {
      ++refused;
      EXPECT_TRUE(SameState(CaptureLibrary(), before)) << error.what();
    }
  }
  EXPECT_GT(refused, 100U);
  EXPECT_GT(taken, 100U);
}

TEST_F(StateFile, NeedsItsSectionsInOrder) {
  const LoadedLibrary library(_small);
  const auto sections = olt_host::UnframeSections(Saved({}, Catalogue()));
  auto wrong = sections;
  wrong.pop_back();
  EXPECT_EQ(Refusal(olt_host::FrameSections(wrong)), "olt.state: lacks the section REAL");
  wrong = sections;
  std::swap(wrong[0], wrong[1]);
  EXPECT_EQ(Refusal(olt_host::FrameSections(wrong)), "olt.state: lacks the section SETT");
  wrong = sections;
  wrong.push_back(wrong[0]);
  EXPECT_EQ(Refusal(olt_host::FrameSections(wrong)),
            "olt.state: has a section too many; expected 6");
  wrong = sections;
  wrong[0].bytes += "x";
  EXPECT_EQ(Refusal(olt_host::FrameSections(wrong)),
            "olt.state: section SETT has 1 bytes too many; expected its end");
}

}  // namespace
}  // namespace olt_host_test
