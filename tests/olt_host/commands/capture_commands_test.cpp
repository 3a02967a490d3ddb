// Capturing and replaying as operators do it.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "commands/command_session.h"
#include "commands/host_commands.h"

namespace olt_host_test {
namespace {

class CaptureCommands : public testing::Test {
 protected:
  // What a line answers, the folder of the files left out.
  std::string Told(const std::string& line) {
    std::string text = _session.Type(line);
    ExpectFitsScreen(text);
    const std::string folder = _directory.Path("");
    for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder)) {
      text.erase(at, folder.size());
    }
    return text;
  }
  std::string RefusalOf(const std::string& line) {
    const std::string text = _session.Type(line);
    EXPECT_FALSE(_session.last().ok()) << text;
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
      // Undoes the wrapping.
      if (text.compare(at, 4, "\r\n  ") == 0) {
        plain += ' ';
        at += 3;
      } else {
        plain += text[at];
      }
    }
    const std::string folder = _directory.Path("");
    const std::size_t at = plain.find(folder);
    if (at != std::string::npos) plain.erase(at, folder.size());
    return plain;
  }
  std::string File(const std::string& name) const { return _directory.Path(name); }

  CommandSession _session{{olt_host::InstallOnuCommands, olt_host::InstallCaptureCommands}};
  TemporaryDirectory _directory;
};

TEST_F(CaptureCommands, CapturesAllOnus) {
  const std::string told = Told("capture onu all " + File("all.yaml"));
  EXPECT_EQ(told,
            "Captured 7 ONUs to all.yaml\r\n"
            "Note: 1 by the order of match profiles alone, declared as ambiguous\r\n");
  EXPECT_EQ(Told("replay " + File("all.yaml")),
            "7 ONUs replayed, 0 not as expected, 1 ambiguous as declared\r\n");
}

TEST_F(CaptureCommands, CapturesOneOnu) {
  EXPECT_EQ(Told("capture onu 1 2 " + File("one.yaml")), "Captured 1 ONU to one.yaml\r\n");
  const std::string text = ReadFile(File("one.yaml"));
  EXPECT_NE(text.find("- {place: 1, onu: 2, "), std::string::npos) << text;
  EXPECT_EQ(text.find("onu: 1,"), std::string::npos) << text;
}

TEST_F(CaptureCommands, NeverWritesOverAFileUntold) {
  const std::string file = _directory.Write("kept.yaml", "kept\n");
  EXPECT_EQ(_session.Refusal("capture onu all " + file).rfind("Nothing is captured: ", 0), 0U);
  EXPECT_EQ(ReadFile(file), "kept\n");
  Told("capture onu all " + file + " replace");
  EXPECT_TRUE(_session.last().ok());
  EXPECT_EQ(ReadFile(file).rfind("# Captured under ", 0), 0U);
}

TEST_F(CaptureCommands, LeavesNothingBesideTheFile) {
  const std::string file = _directory.Write("kept.yaml", "kept\n");
  _session.Type("capture onu all " + file);
  _session.Type("capture onu all " + File("new.yaml"));
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(_directory.Path(""))) {
    names.insert(entry.path().filename());
  }
  EXPECT_EQ(names, (std::set<std::string>{"kept.yaml", "new.yaml"}));
}

TEST_F(CaptureCommands, DoesNotTakeThePlaceOfWhatIsNoFile) {
  std::filesystem::create_directory(File("folder"));
  std::filesystem::create_symlink(File("nowhere"), File("link"));
  for (const char* name : {"folder", "link"}) {
    EXPECT_NE(RefusalOf("capture onu all " + File(name) + " replace")
                  .find(std::string(name) + ": is no file; expected a new name"),
              std::string::npos);
  }
  EXPECT_FALSE(std::filesystem::exists(File("nowhere")));
}

TEST_F(CaptureCommands, SaysWhyAFileCannotBeMade) {
  EXPECT_NE(RefusalOf("capture onu all " + File("none/new.yaml"))
                .find("none/new.yaml: cannot be made: No such file or directory; expected a file "
                      "that can be written"),
            std::string::npos);
  EXPECT_NE(RefusalOf("capture onu all \"\"").find("is no name; expected the name of a file"),
            std::string::npos);
}

TEST_F(CaptureCommands, UnknownOnuIsRefused) {
  EXPECT_EQ(_session.Refusal("capture onu 7 1 " + File("x")).rfind("No ONU at place 7", 0), 0U);
  EXPECT_FALSE(std::filesystem::exists(File("x")));
}

TEST_F(CaptureCommands, SaysWhatWasAmbiguousAndNotAsExpected) {
  // An operator's pattern for one port, of no vendor: it takes 1/2 and 1/3, and 3/1 becomes
  // one that is translated.
  for (const char* line :
       {"add onu_ability_profile key 1002 profile_type 2 reporttype 1002 realtype 1002 vendorid "
        "null onu_type_name null",
        "set onu_ability_profile key 1002 47 1", "apply onu_ability_profile key 1002"}) {
    _session.Type(line);
  }
  EXPECT_EQ(Told("capture onu all " + File("all.yaml")),
            "Captured 7 ONUs to all.yaml\r\n"
            "Note: 2 by the order of match profiles alone, declared as ambiguous\r\n"
            "Note: 3 not as the reports file expects, which stays expected\r\n");
  const std::string replayed = Told("replay " + File("all.yaml"));
  EXPECT_NE(replayed.find("ONU 1/2 is real type 1002 by abilities"), std::string::npos) << replayed;
  EXPECT_NE(replayed.find("7 ONUs replayed, 3 not as expected"), std::string::npos) << replayed;
}

TEST_F(CaptureCommands, ReplayAnswersInJson) {
  const std::string file = _directory.Write(
      "one.yaml", "onus: [{place: 1, onu: 1, reported_type: 1001, expect: {real_type: 5}}]\n");
  const CommandSession::Json json = _session.TypeJson("replay " + file + " json");
  EXPECT_EQ(json["onus"], 1);
  EXPECT_EQ(json["not_as_expected"], 1);
  ASSERT_EQ(json["failures"].size(), 1U);
  EXPECT_EQ(json["failures"][0]["file"], file);
  EXPECT_EQ(json["failures"][0]["line"], 1);
  EXPECT_EQ(json["failures"][0]["expected"], "real type 5");
}

TEST_F(CaptureCommands, FileThatIsWrongIsNotReplayed) {
  const std::string file = _directory.Write("wrong.yaml", "onus: [{place: 1}]\n");
  EXPECT_NE(RefusalOf("replay " + file).find("Nothing is replayed: "), std::string::npos);
}

TEST_F(CaptureCommands, ReadOnlyOperatorsMayNot) {
  _session.terminal().settings().access = olt_host::Access::kReadOnly;
  _session.Type("capture onu all " + File("x.yaml"));
  EXPECT_FALSE(_session.last().ok());
  EXPECT_FALSE(std::filesystem::exists(File("x.yaml")));
}

}  // namespace
}  // namespace olt_host_test
