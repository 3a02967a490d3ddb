// A state file belongs to one process at a time.
#include "state/state_lock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include "host_files.h"
#include "platform/file_descriptor.h"
#include "state/state_file.h"

namespace olt_host_test {
namespace {

using olt_host::FileDescriptor;
using olt_host::HoldStateFile;

class StateLock : public testing::Test {
 protected:
  std::string File() const { return _directory.Path("olt.state"); }

  // Whether somebody else could hold the file that has this lock.
  static bool IsFree(const std::string& lock) {
    const FileDescriptor other(open(lock.c_str(), O_RDONLY | O_CLOEXEC));
    return other.is_open() && flock(other.get(), LOCK_EX | LOCK_NB) == 0;
  }

  const TemporaryDirectory _directory;
};

TEST_F(StateLock, KeepsOthersAwayUntilAnotherFileIsHeld) {
  HoldStateFile(File());
  HoldStateFile(File());
  EXPECT_FALSE(IsFree(File() + ".lock"));
  HoldStateFile(_directory.Path("other"));
  EXPECT_TRUE(IsFree(File() + ".lock"));
  EXPECT_FALSE(IsFree(_directory.Path("other.lock")));
}

TEST_F(StateLock, StaysWhenTheFileComesToBe) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(_directory.Path(""));
  HoldStateFile("olt.state");
  _directory.Write("olt.state", "");
  HoldStateFile("olt.state");
  std::filesystem::current_path(before);
  EXPECT_FALSE(IsFree(File() + ".lock"));
}

TEST_F(StateLock, IsRefusedWhenAnotherHoldsIt) {
  const FileDescriptor other(open((File() + ".lock").c_str(), O_RDONLY | O_CREAT, 0600));
  ASSERT_EQ(flock(other.get(), LOCK_EX), 0);
  EXPECT_EQ(ErrorOf([&] { HoldStateFile(File()); }, _directory),
            "olt.state is kept by another olt_host");
  ASSERT_EQ(flock(other.get(), LOCK_UN), 0);
  HoldStateFile(File());
  EXPECT_FALSE(IsFree(File() + ".lock"));
}

TEST_F(StateLock, IsTheSameBehindALink) {
  _directory.Write("real.state", "");
  std::filesystem::create_symlink("real.state", File());
  HoldStateFile(File());
  EXPECT_FALSE(IsFree(_directory.Path("real.state.lock")));
}

TEST_F(StateLock, IsTakenLaterWhereTheFolderIsMissing) {
  const std::string file = _directory.Path("folder/olt.state");
  HoldStateFile(file);
  std::filesystem::create_directory(_directory.Path("folder"));
  HoldStateFile(file);
  EXPECT_FALSE(IsFree(file + ".lock"));
}

TEST_F(StateLock, LeavesTheContentOfAForeignFileAlone) {
  _directory.Write("olt.state.lock", "my notes");
  HoldStateFile(File());
  EXPECT_EQ(ReadFile(File() + ".lock"), "my notes");
}

}  // namespace
}  // namespace olt_host_test
