// What operators change stays: each session's own pending profile, and the state file
// after every change.
#include "commands/operator_changes.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "commands/command_session.h"
#include "commands/host_commands.h"
#include "state/state_file.h"

namespace olt_host_test {
namespace {

using olt_host::CaptureLibrary;
using olt_host::SameState;

constexpr const char* kAdd =
    "add onu_ability_profile key 5 profile_type 1 reporttype 5 realtype 5 vendorid ZKWM "
    "onu_type_name FIVE";
constexpr const char* kApply = "apply onu_ability_profile key 5";

class OperatorChanges : public testing::Test {
 protected:
  ~OperatorChanges() override { olt_host::ObserveCommands({}); }

  void Start(const std::string& file) {
    olt_host::Host().state_file = file;
    olt_host::KeepOperatorChanges();
    olt_host::RestoreAtStart();
  }

  // The library as a start of the host finds it.
  void Restart() {
    OnuAbilityTableManager* manager = OnuAbilityTableManager::GetInstance();
    for (const auto type : {ONU_ABILITY_PROFILE_TYPE_MATCH, ONU_ABILITY_PROFILE_TYPE_REAL}) {
      manager->DelOnuAbilityTable(type);
    }
    manager->Init();
    OnuAbilityCodeInfo::GetInstance()->Get().clear();
    olt_host::LoadCatalogue(olt_host::Host().catalogue.catalogue);
    Start(olt_host::Host().state_file);
  }

  std::string File() const { return _directory.Path("olt.state"); }

  // What a second operator, on a terminal of its own, is answered.
  static std::string TypeOn(struct vty& terminal, std::string& output, const std::string& line) {
    output.clear();
    olt_host::ExecuteLine(terminal, olt_host::kCommandNode, line);
    return output;
  }

  const TemporaryDirectory _directory;
  CommandSession _session{{olt_host::InstallStateCommands}};
};

TEST_F(OperatorChanges, GiveEverySessionItsOwnPendingProfile) {
  Start("");
  std::string output;
  struct vty other(olt_host::kCommandNode, [&output](const char* bytes, std::size_t length) {
    output.append(bytes, length);
    return true;
  });
  _session.Type(kAdd);
  EXPECT_NE(_session.terminal().settings().pending_profile, nullptr);
  EXPECT_EQ(other.settings().pending_profile, nullptr);
  // There is nothing for the other one to apply.
  TypeOn(other, output, kApply);
  EXPECT_TRUE(CaptureLibrary().real_profiles.back()._profile_source ==
              ONU_ABILITY_PROFILE_SOURCE_DEFAULT);
  TypeOn(other, output,
         "add onu_ability_profile key 6 profile_type 1 reporttype 6 realtype 6 vendorid null "
         "onu_type_name null");
  EXPECT_EQ(_session.Type(kApply), "add ability profile successfully,key_ability_value:5\r\n");
  EXPECT_EQ(TypeOn(other, output, "apply onu_ability_profile key 6"),
            "add ability profile successfully,key_ability_value:6\r\n");
  EXPECT_EQ(OnuAbilityGlobalVar::GetInstance()->_onu_ability_profile, nullptr);
}

TEST_F(OperatorChanges, AreWrittenAfterEveryCommandThatChangedSomething) {
  Start(File());
  _session.Type(kAdd);
  EXPECT_FALSE(std::filesystem::exists(File())) << "a pending profile is no change";
  _session.Type(kApply);
  const std::string applied = ReadFile(File());
  EXPECT_EQ(applied, olt_host::EncodeState(CaptureLibrary(), olt_host::Host().catalogue.catalogue));
  const auto written = std::filesystem::last_write_time(File());
  _session.Type("show running-config");
  _session.Type("set onu_common_type sfu 800");
  EXPECT_EQ(std::filesystem::last_write_time(File()), written) << "nothing changed";
  _session.Type("set onu_common_type sfu 9");
  EXPECT_NE(ReadFile(File()), applied);
  EXPECT_EQ(ReadFile(File() + ".bak"), applied);
}

TEST_F(OperatorChanges, AreThereAgainAfterARestart) {
  Start(File());
  for (const char* line :
       {kAdd, kApply, "set onu_common_type sfu 9", "set ability_code 2000 name X",
        "del ability code 1023", "set key_ability_code 2000"}) {
    _session.Type(line);
  }
  const olt_host::LibraryState before = CaptureLibrary();
  Restart();
  EXPECT_TRUE(SameState(CaptureLibrary(), before));
}

TEST_F(OperatorChanges, BackToWhatTheCatalogueHasAreWrittenToo) {
  Start(File());
  _session.Type(kAdd);
  _session.Type(kApply);
  Restart();
  _session.Type("del onu_ability_profile key 5 profile_type 1 profile_source 1");
  const olt_host::LibraryState before = CaptureLibrary();
  Restart();
  EXPECT_EQ(CaptureLibrary().real_profiles.size(), 3U);
  EXPECT_TRUE(SameState(CaptureLibrary(), before));
}

TEST_F(OperatorChanges, ThatCannotBeWrittenStayAndAreTriedAgain) {
  Start(_directory.Path("folder/olt.state"));
  const std::string answer = _session.Type("set onu_common_type sfu 9");
  EXPECT_FALSE(_session.last().ok());
  EXPECT_NE(answer.find("set onu common type ok!common_type:9\r\n"), std::string::npos);
  EXPECT_NE(answer.find("% The change is not saved: "), std::string::npos);
  EXPECT_NE(answer.find("No such file or directory"), std::string::npos);
  EXPECT_EQ(CaptureLibrary().sfu_common_type, 9);
  std::filesystem::create_directory(_directory.Path("folder"));
  _session.Type("set onu_common_type sfu 9");
  EXPECT_TRUE(_session.last().ok());
  EXPECT_TRUE(std::filesystem::exists(_directory.Path("folder/olt.state")));
}

TEST_F(OperatorChanges, ThatSaveCannotWriteAreToldOfOnce) {
  Start(_directory.Path("folder/olt.state"));
  _session.Type("set onu_common_type sfu 9");
  const std::string answer = _session.Type("save");
  EXPECT_NE(answer.find("% Cannot save: "), std::string::npos) << answer;
  EXPECT_EQ(answer.find("The change is not saved"), std::string::npos) << answer;
  // Another command tells again.
  EXPECT_NE(_session.Type("set onu_common_type sfu 9").find("% The change is not saved: "),
            std::string::npos);
}

TEST_F(OperatorChanges, AreNotKeptOverACatalogueThatWasNotTakenWhole) {
  const std::string problem =
      "the catalogue was taken without some of its files; expected a catalogue that is taken whole";
  Start(File());
  olt_host::Host().catalogue.refused_files = {"x.yaml: cannot be read"};
  EXPECT_EQ(_session.Refusal("set onu_common_type sfu 9"), "The change is not saved: " + problem);
  EXPECT_EQ(ErrorOf([&] { Restart(); }, _directory), "olt.state: " + problem);
  EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(OperatorChanges, InADamagedFileStopTheStartWithAHintAtTheBackup) {
  Start(File());
  _session.Type("set onu_common_type sfu 9");
  _session.Type("set onu_common_type sfu 10");
  const std::string content = ReadFile(File());
  _directory.Write("olt.state", content.substr(0, 100));
  EXPECT_EQ(ErrorOf([&] { Restart(); }, _directory),
            "olt.state: is cut short: it has 100 bytes; expected " +
                std::to_string(content.size()) + "; what it held before is in olt.state.bak");
  EXPECT_EQ(CaptureLibrary().real_profiles.size(), 3U);
  std::filesystem::copy_file(File() + ".bak", File(),
                             std::filesystem::copy_options::overwrite_existing);
  Restart();
  EXPECT_EQ(CaptureLibrary().sfu_common_type, 9);
}

}  // namespace
}  // namespace olt_host_test
