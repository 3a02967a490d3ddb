// Output that goes into a file: whole and new, or not at all.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "vty/json_output.h"
#include "vty/screen.h"

namespace olt_host {
namespace {

constexpr unsigned int kNode = 16;

std::string output;
int result = 0;

int Print(cmd_element*, struct vty* terminal, int argc, char** argv) {
  if (WantsJson(argc, argv)) {
    WriteJson(*terminal, {{"lines", 2}});
  } else {
    terminal->Write(output.data(), output.size());
  }
  return result;
}

cmd_element print_cmd = {"show print {[json]}*1", Print, ""};

class VtySave : public ::testing::Test {
 protected:
  void SetUp() override {
    install_element(kNode, &print_cmd);
    output = "one\r\ntwo\r\n";
    result = 0;
    folder =
        std::filesystem::path(::testing::TempDir()) / ("vty_save_" + std::to_string(::getpid()));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    file = (folder / "out.txt").string();
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  static std::string Content(const std::string& name) {
    std::ostringstream text;
    text << std::ifstream(name, std::ios::binary).rdbuf();
    return text.str();
  }

  std::string Type(const std::string& line) {
    last = ExecuteLine(screen.terminal(), kNode, line, {false, ""});
    return screen.Take();
  }

  // The error under the file's name in "show print | save NAME".
  static std::string CannotSave(const std::string& line, const std::string& name,
                                const std::string& reason) {
    return line + "\r\n" + std::string(line.find(name), ' ') + "^\r\n% Cannot save to \"" + name +
           "\": " + reason + "\r\n";
  }

  std::filesystem::path folder;
  std::string file;
  Screen screen{kNode};
  CommandResult last;
};

TEST_F(VtySave, WritesTheOutputAndSaysHowMuch) {
  EXPECT_EQ("8 bytes written to " + file + "\r\n", Type("show print | save " + file));
  EXPECT_EQ(CommandResult::kDone, last.kind);
  EXPECT_EQ("one\ntwo\n", Content(file));
}

TEST_F(VtySave, WritesWhatTheFiltersLeave) {
  EXPECT_EQ("4 bytes written to " + file + "\r\n",
            Type("show print | include t | save \"" + file + "\""));
  EXPECT_EQ("two\n", Content(file));
}

TEST_F(VtySave, SavesAnEmptyOutputToo) {
  EXPECT_EQ("0 bytes written to " + file + "\r\n", Type("show print | include x | save " + file));
  EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(VtySave, NeverTouchesAFileThatIsThere) {
  std::ofstream(file) << "mine";
  const std::string line = "show print | save out.txt";
  std::filesystem::current_path(folder);
  EXPECT_EQ(CannotSave(line, "out.txt", "File exists"), Type(line));
  EXPECT_EQ(CommandResult::kRefused, last.kind);
  EXPECT_EQ("mine", Content(file));
  const std::string full = "show print | save /dev/full";
  EXPECT_EQ(CannotSave(full, "/dev/full", "File exists"), Type(full));
}

TEST_F(VtySave, FollowsNoLinkThatLeadsNowhere) {
  std::filesystem::create_symlink(folder / "target", file);
  Type("show print | save " + file);
  EXPECT_EQ(CommandResult::kRefused, last.kind);
  EXPECT_FALSE(std::filesystem::exists(folder / "target"));
}

TEST_F(VtySave, SaysThatTheFolderIsMissing) {
  const std::string line = "show print | save no/out.txt";
  EXPECT_EQ(CannotSave(line, "no/out.txt", "No such file or directory"), Type(line));
}

TEST_F(VtySave, LeavesNothingOfAFileThatCouldNotBeWritten) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit = {};
  ASSERT_EQ(0, getrlimit(RLIMIT_FSIZE, &limit));
  limit.rlim_cur = 100000;
  ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
  output.clear();
  for (int i = 0; i < 50000; ++i) output += "a line of some length\r\n";
  const std::string line = "show print | save " + file;
  EXPECT_EQ(line + "\r\n% Cannot save to \"" + file.substr(0, 40) +
                (file.size() > 40 ? "..." : "") + "\": File too large\r\n",
            Type(line));
  EXPECT_EQ(CommandResult::kFailed, last.kind);
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_TRUE(screen.terminal().alive());
}

TEST_F(VtySave, AFullFileIsNoticedAtItsEndToo) {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit = {};
  ASSERT_EQ(0, getrlimit(RLIMIT_FSIZE, &limit));
  limit.rlim_cur = 4;
  ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
  Type("show print | save " + file);  // fits the buffer, so only closing fails
  EXPECT_EQ(CommandResult::kFailed, last.kind);
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(VtySave, LeavesNothingOfAFailedCommand) {
  result = 5;
  EXPECT_EQ("show print | save " + file + "\r\n% Command failed: 0x00000005\r\n",
            Type("show print | save " + file));
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(VtySave, AnswersInJsonWhereItWasAskedTo) {
  using nlohmann::json;
  EXPECT_EQ((json{{"saved", {{"file", file}, {"bytes", 17}}}}),
            json::parse(Type("show print json | save " + file)));
  EXPECT_EQ((json{{"lines", 2}}), json::parse(Content(file)));
  const json refused = json::parse(Type("show print json | save " + file));
  EXPECT_EQ(24U, refused["error"]["column"]);
  const std::string message = refused["error"]["message"];
  EXPECT_NE(std::string::npos, message.find("\": File exists")) << message;
}

}  // namespace
}  // namespace olt_host
