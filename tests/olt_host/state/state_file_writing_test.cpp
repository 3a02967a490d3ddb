// Replacing a state file: whatever happens in the middle, the old or the new one is
// there, whole.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <iostream>
#include <random>
#include <set>

#include "host_files.h"
#include "platform/file_descriptor.h"
#include "state/state_file.h"

namespace olt_host_test {
namespace {

using olt_host::WriteStateFile;

// What a child process of the test ends with.
constexpr int kDone = 0;
constexpr int kNotAllowed = 77;

// Only what begins as a state file is ever replaced.
constexpr const char* kOne = "OLTSTATE one";
constexpr const char* kTwo = "OLTSTATE two";
constexpr const char* kThree = "OLTSTATE three";
constexpr const char* kLast = "OLTSTATE last";
constexpr const char* kHalf = "OLTST";

std::string Long(std::size_t length, char filling) {
  return "OLTSTATE" + std::string(length - 8, filling);
}

// Runs `act` in a process of its own; its exit status.
int InChild(const std::function<int()>& act) {
  const pid_t child = fork();
  if (child == 0) _exit(act());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class StateFileWriting : public testing::Test {
 protected:
  std::string File() const { return _directory.Path("olt.state"); }

  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(_directory.Path(""))) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }

  std::string WriteError(const std::string& content) const {
    return ErrorOf([&] { WriteStateFile(File(), content); }, _directory);
  }

  mode_t ModeOf(const std::string& file) const {
    struct stat status {};
    EXPECT_EQ(stat(file.c_str(), &status), 0);
    return status.st_mode & 07777U;
  }

  const TemporaryDirectory _directory;
};

TEST_F(StateFileWriting, MakesAFileThatOnlyItsGroupMayReadToo) {
  umask(0);
  WriteStateFile(File(), kOne);
  EXPECT_EQ(ReadFile(File()), kOne);
  EXPECT_EQ(ModeOf(File()), 0640U);
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state"}));
}

TEST_F(StateFileWriting, KeepsTheModeOfTheFileAndTheLastContentAsABackup) {
  WriteStateFile(File(), kOne);
  ASSERT_EQ(chmod(File().c_str(), 0604), 0);
  WriteStateFile(File(), kTwo);
  EXPECT_EQ(ReadFile(File()), kTwo);
  EXPECT_EQ(ReadFile(File() + ".bak"), kOne);
  EXPECT_EQ(ModeOf(File()), 0604U);
  WriteStateFile(File(), kThree);
  EXPECT_EQ(ReadFile(File()), kThree);
  EXPECT_EQ(ReadFile(File() + ".bak"), kTwo);
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state", "olt.state.bak"}));
}

TEST_F(StateFileWriting, KeepsTheBackupWhereNothingChanged) {
  WriteStateFile(File(), kOne);
  WriteStateFile(File(), kTwo);
  WriteStateFile(File(), kTwo);
  EXPECT_EQ(ReadFile(File()), kTwo);
  EXPECT_EQ(ReadFile(File() + ".bak"), kOne);
}

TEST_F(StateFileWriting, WritesBehindALinkAndLeavesTheLink) {
  _directory.Write("real.state", kOne);
  std::filesystem::create_symlink("real.state", File());
  WriteStateFile(File(), kTwo);
  EXPECT_TRUE(std::filesystem::is_symlink(File()));
  EXPECT_EQ(ReadFile(_directory.Path("real.state")), kTwo);
  EXPECT_EQ(ReadFile(_directory.Path("real.state.bak")), kOne);
}

// The disk behind it may only be missing for now.
TEST_F(StateFileWriting, LeavesALinkToNothingAlone) {
  std::filesystem::create_symlink("real.state", File());
  EXPECT_EQ(WriteError(kOne),
            "olt.state: is a link to a file that is not there; expected a file or a new name");
  EXPECT_TRUE(std::filesystem::is_symlink(File()));
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state"}));
}

TEST_F(StateFileWriting, ClearsAwayWhatAKilledProcessLeft) {
  _directory.Write("olt.state", kOne);
  _directory.Write("olt.state.new", kHalf);
  std::filesystem::create_hard_link(File(), File() + ".bak.new");
  WriteStateFile(File(), kTwo);
  EXPECT_EQ(ReadFile(File()), kTwo);
  EXPECT_EQ(ReadFile(File() + ".bak"), kOne);
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state", "olt.state.bak"}));
  // Between the backup and the renaming, both names are one file.
  std::filesystem::remove(File() + ".bak");
  std::filesystem::create_hard_link(File(), File() + ".bak");
  WriteStateFile(File(), kThree);
  EXPECT_EQ(ReadFile(File() + ".bak"), kTwo);
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state", "olt.state.bak"}));
}

TEST_F(StateFileWriting, DoesNotWriteThroughALinkThatSomebodyLeftAside) {
  _directory.Write("victim", "precious");
  std::filesystem::create_symlink("victim", File() + ".new");
  EXPECT_EQ(WriteError(kOne),
            "olt.state: cannot replace olt.state.new: it is no file; expected one of olt_host, or "
            "nothing");
  EXPECT_TRUE(std::filesystem::is_symlink(File() + ".new"));
  EXPECT_EQ(ReadFile(_directory.Path("victim")), "precious");
}

TEST_F(StateFileWriting, TakesThePlaceOfNoFileThatIsNoStateFile) {
  for (const char* foreign : {"catalogue:\n", "OLT", "OLTSTATS and more"}) {
    _directory.Write("olt.state", foreign);
    EXPECT_EQ(WriteError(kOne), "olt.state: is no state file; expected one or a new name");
    EXPECT_EQ(ReadFile(File()), foreign);
    EXPECT_EQ(Names(), (std::set<std::string>{"olt.state"}));
  }
  // Nothing is lost with an empty one.
  _directory.Write("olt.state", "");
  WriteStateFile(File(), kOne);
  EXPECT_EQ(ReadFile(File()), kOne);
}

TEST_F(StateFileWriting, TakesThePlaceOfNothingForeignBesideTheFile) {
  for (const auto& [name, hindrance] :
       {std::pair<std::string, std::string>("olt.state.bak", "keep a backup as olt.state.bak"),
        {"olt.state.bak.new", "keep a backup as olt.state.bak.new"},
        {"olt.state.new", "replace olt.state.new"}}) {
    std::string message = "olt.state: cannot " + hindrance;
    message += ": it is no state file; expected one of olt_host, or nothing";
    _directory.Write("olt.state", kOne);
    _directory.Write(name, "my notes");
    EXPECT_EQ(WriteError(kTwo), message);
    EXPECT_EQ(ReadFile(File()), kOne);
    EXPECT_EQ(ReadFile(_directory.Path(name)), "my notes");
    EXPECT_EQ(Names(), (std::set<std::string>{"olt.state", name}));
    // What an interrupted writing leaves may be cut anywhere.
    for (const char* own : {"", "OLTS", kThree}) {
      _directory.Write("olt.state", kOne);
      _directory.Write(name, own);
      WriteStateFile(File(), kTwo);
      EXPECT_EQ(ReadFile(File()), kTwo);
      EXPECT_EQ(ReadFile(File() + ".bak"), kOne);
      std::filesystem::remove(File() + ".bak");
      EXPECT_EQ(Names(), (std::set<std::string>{"olt.state"}));
    }
  }
}

TEST_F(StateFileWriting, KeepsAwayFromAFileThatAnotherProcessIsWriting) {
  _directory.Write("olt.state", kOne);
  _directory.Write("olt.state.new", kHalf);
  const olt_host::FileDescriptor other(open((File() + ".new").c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(flock(other.get(), LOCK_EX), 0);
  EXPECT_EQ(WriteError(kTwo), "olt.state: another process is writing olt.state.new");
  EXPECT_EQ(ReadFile(File()), kOne);
  EXPECT_EQ(ReadFile(File() + ".new"), kHalf);
}

TEST_F(StateFileWriting, SaysWhereNothingCanBeWritten) {
  EXPECT_EQ(ErrorOf([&] { WriteStateFile(_directory.Path("none/olt.state"), kOne); }, _directory),
            "none/olt.state: cannot create none/olt.state.new: No such file or directory");
  std::filesystem::create_directory(File());
  EXPECT_EQ(WriteError(kOne), "olt.state: is no file; expected a file or a new name");
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state"}));
}

// A limit on the size of files fails a write in its middle, as a full disk does.
TEST_F(StateFileWriting, WithoutRoomLeavesTheOldFileAndNothingElse) {
  const std::string old = Long(2000, 'a');
  WriteStateFile(File(), old);
  const int ended = InChild([this] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {8192, 8192};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return kNotAllowed;
    const std::string message = WriteError(Long(20000, 'b'));
    return message == "olt.state: cannot write olt.state.new: File too large" ? kDone : 1;
  });
  EXPECT_EQ(ended, kDone);
  EXPECT_EQ(ReadFile(File()), old);
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state"}));
}

// The same on a disk that really is full, where this process may mount one.
TEST_F(StateFileWriting, OnAFullDiskLeavesTheOldFileAndNothingElse) {
  const int ended = InChild([this] {
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return kNotAllowed;
    if (mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("tmpfs", _directory.Path("").c_str(), "tmpfs", 0, "size=64k") != 0) {
      return kNotAllowed;
    }
    const std::string old = Long(20000, 'a');
    WriteStateFile(File(), old);
    if (WriteError(Long(60000, 'b')) !=
        "olt.state: cannot write olt.state.new: No space left on device") {
      return 1;
    }
    if (ReadFile(File()) != old || Names() != std::set<std::string>{"olt.state"}) return 2;
    // With room again, the same content is taken.
    const std::string small = Long(30000, 'c');
    WriteStateFile(File(), small);
    return ReadFile(File()) == small && ReadFile(File() + ".bak") == old ? kDone : 3;
  });
  if (ended == kNotAllowed) {
    std::cout << "no disk may be mounted here: only the limit on file sizes was tried\n";
  } else {
    std::cout << "tried on a tmpfs of 64 KiB\n";
    EXPECT_EQ(ended, kDone);
  }
}

[[noreturn]] void SaveForever(const std::string& file, const std::string& one,
                              const std::string& two) {
  for (;;) {
    try {
      WriteStateFile(file, one);
      WriteStateFile(file, two);
    } catch (const std::exception&) {
      _exit(1);
    }
  }
}

TEST_F(StateFileWriting, KilledAnywhereLeavesTheOldOrTheNewFileWhole) {
  const std::string one = Long(30000, '1');
  const std::string two = Long(50000, '2');
  const auto is_whole = [&](const std::string& content) {
    return content == one || content == two;
  };
  const unsigned int seed = std::random_device()();
  std::cout << "seed " << seed << "\n";
  std::mt19937 random(seed);
  std::uniform_int_distribution<unsigned int> moment(0, 6000);
  WriteStateFile(File(), two);
  WriteStateFile(File(), one);
  unsigned int leftovers = 0;
  for (int round = 0; round < 200; ++round) {
    const pid_t child = fork();
    if (child == 0) SaveForever(File(), one, two);
    usleep(moment(random));
    ASSERT_EQ(kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "a round could not save";
    ASSERT_TRUE(is_whole(ReadFile(File()))) << "round " << round;
    ASSERT_TRUE(is_whole(ReadFile(File() + ".bak"))) << "round " << round;
    leftovers += Names().size() > 2 ? 1 : 0;
  }
  // The kills met the writing, not only the pauses.
  EXPECT_GT(leftovers, 10U);
  std::cout << "200 kills, " << leftovers << " left something aside\n";
  WriteStateFile(File(), kLast);
  EXPECT_EQ(ReadFile(File()), kLast);
  EXPECT_EQ(Names(), (std::set<std::string>{"olt.state", "olt.state.bak"}));
}

}  // namespace
}  // namespace olt_host_test
