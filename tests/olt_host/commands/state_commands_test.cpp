// save and restore, as an operator types them.
#include <filesystem>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "commands/operator_changes.h"
#include "state/library_state.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::LibraryState;
using olt_host::SameState;

class StateCommands : public testing::Test {
 protected:
  std::string File() const { return _directory.Path("olt.state"); }

  // An answer without the directory of its files, its broken lines joined.
  std::string Short(std::string answer) const {
    for (const std::string& gone : {std::string("\r\n  "), _directory.Path("")}) {
      for (std::size_t at = answer.find(gone); at != answer.npos; at = answer.find(gone)) {
        answer.replace(at, gone.size(), gone[0] == '\r' ? " " : "");
      }
    }
    return answer;
  }

  void AddProfiles() {
    for (const char* type : {"1", "2"}) {
      _session.Type(std::string("add onu_ability_profile key 5 profile_type ") + type +
                    " reporttype 5 realtype 5 vendorid ZKWM onu_type_name FIVE");
      _session.Type("set onu_ability_profile key 5 47 4");
      _session.Type("apply onu_ability_profile key 5");
    }
  }

  const TemporaryDirectory _directory;
  CommandSession _session{{olt_host::InstallStateCommands}};
};

TEST_F(StateCommands, SaveAndRestoreWhatOperatorsMade) {
  AddProfiles();
  const LibraryState saved = CaptureLibrary();
  const std::string answer = _session.Type("save " + File());
  ExpectFitsScreen(answer);
  EXPECT_EQ(Short(answer), "Saved 1 real and 1 match profiles to olt.state, " +
                               std::to_string(std::filesystem::file_size(File())) + " bytes\r\n");
  _session.Type("del onu_ability_profile key 5 profile_type 1 profile_source 1");
  _session.Type("set onu_common_type sfu 9");
  EXPECT_EQ(Short(_session.Type("restore " + File())),
            "Restored 1 real and 1 match profiles from olt.state\r\n");
  EXPECT_TRUE(SameState(CaptureLibrary(), saved));
}

TEST_F(StateCommands, SaveGoesToTheStateFileUnlessAnotherIsNamed) {
  EXPECT_EQ(_session.Refusal("save"),
            "Cannot save: name a file, or start the host with --state FILE");
  olt_host::Host().state_file = File();
  EXPECT_EQ(Short(_session.Type("save")).substr(0, 46),
            "Saved 0 real and 0 match profiles to olt.state");
  _session.Type("save " + _directory.Path("other"));
  EXPECT_TRUE(std::filesystem::exists(_directory.Path("other")));
}

TEST_F(StateCommands, SaveWarnsOfChangedProfilesOfTheCatalogue) {
  _session.Type(
      "update onu_ability_profile key 1001 profile_type 1 profile_source 0 ability_code 47 "
      "uint_ability_value 8");
  const std::string answer = _session.Type("save " + File());
  ExpectFitsScreen(answer);
  EXPECT_NE(Short(answer).find("Not saved: changes to 1 profile of the catalogue"),
            std::string::npos)
      << answer;
}

TEST_F(StateCommands, RestoreLeavesTheProfilesOfTheCatalogueAsTheyAre) {
  _session.Type("save " + File());
  _session.Type("del onu_ability_profile key 1001 profile_type 1 profile_source 0");
  const LibraryState changed = CaptureLibrary();
  _session.Type("restore " + File());
  EXPECT_TRUE(SameState(CaptureLibrary(), changed));
}

TEST_F(StateCommands, RestoreRefusesAFileThatIsNotWholeAndChangesNothing) {
  AddProfiles();
  _session.Type("save " + File());
  const std::string content = ReadFile(File());
  const LibraryState before = CaptureLibrary();
  for (std::size_t length = 0; length < content.size(); ++length) {
    std::filesystem::remove(File());
    _directory.Write("olt.state", content.substr(0, length));
    const std::string answer = _session.Type("restore " + File());
    ASSERT_FALSE(_session.last().ok()) << length;
    ASSERT_NE(answer.find("% Nothing is restored: "), std::string::npos) << answer;
    ASSERT_TRUE(SameState(CaptureLibrary(), before)) << length;
  }
  EXPECT_EQ(Short(_session.Refusal("restore " + _directory.Path("none"))),
            "Nothing is restored: none: cannot be read: No such file or directory");
}

TEST_F(StateCommands, SaveLeavesAFileThatIsNoStateFileAlone) {
  _directory.Write("notes", "my notes");
  EXPECT_EQ(Short(_session.Refusal("save " + _directory.Path("notes"))),
            "Cannot save: notes: is no state file; expected one or a new name");
  EXPECT_EQ(ReadFile(_directory.Path("notes")), "my notes");
}

TEST_F(StateCommands, SaveNeedsACatalogueThatIsTakenWhole) {
  olt_host::Host().catalogue.refused_files = {"x.yaml: cannot be read"};
  EXPECT_EQ(_session.Refusal("save " + File()),
            "Cannot save: the catalogue was taken without some of its files; expected a catalogue "
            "that is taken whole");
  EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(StateCommands, NeedTheNameOfAFile) {
  EXPECT_EQ(_session.Refusal("restore \"\""), "Nothing is restored: expected the name of a file");
  EXPECT_EQ(_session.Refusal("save \"\""),
            "Cannot save: name a file, or start the host with --state FILE");
}

TEST_F(StateCommands, RestoreIsAChangeThatIsKept) {
  olt_host::KeepOperatorChanges();
  AddProfiles();
  _session.Type("save " + _directory.Path("other"));
  _session.Type("del onu_ability_profile key 5 profile_type 1 profile_source 1");
  olt_host::Host().state_file = File();
  _session.Type("restore " + _directory.Path("other"));
  olt_host::ObserveCommands({});
  EXPECT_EQ(ReadFile(File()), ReadFile(_directory.Path("other")));
}

TEST_F(StateCommands, RestoreTellsWhatCouldNotBeAsItWas) {
  _session.Type("del onu_ability_profile key 1003 profile_type 1 profile_source 0");
  _session.Type("del ability code 24");
  _session.Type("save " + File());
  olt_host::Catalogue& catalogue = olt_host::Host().catalogue.catalogue;
  const CleanLibrary restarted;
  olt_host::LoadCatalogue(catalogue);
  const std::string answer = _session.Type("restore " + File());
  ExpectFitsScreen(answer);
  EXPECT_EQ(
      Short(answer),
      "Restored 0 real and 0 match profiles from olt.state\r\n"
      "Note: code 24 \"FE_PORTS\" is not deleted: a real profile of the catalogue uses it\r\n");
}

}  // namespace
}  // namespace olt_host_test
