// The file of the Unix socket: what is replaced, what is left alone, its mode.
#include "transport/unix_listener.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "host_files.h"

namespace olt_host {
namespace {

using olt_host_test::ReadFile;
using olt_host_test::TemporaryDirectory;

// A socket of the given kind at `path`, made by somebody else.
class ForeignSocket {
 public:
  ForeignSocket(const std::string& path, int kind) : descriptor_(socket(AF_UNIX, kind, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    if (bind(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      throw std::runtime_error("no socket at " + path);
    }
    if (kind == SOCK_STREAM) listen(descriptor_, 1);
  }
  ~ForeignSocket() { close(descriptor_); }
  ForeignSocket(const ForeignSocket&) = delete;
  ForeignSocket& operator=(const ForeignSocket&) = delete;

 private:
  int descriptor_;
};

class UnixSocketFile : public ::testing::Test {
 protected:
  std::unique_ptr<UnixListener> Listen() { return std::make_unique<UnixListener>(io, path); }
  std::string Refusal() {
    try {
      Listen();
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "taken";
  }
  mode_t Mode() const {
    struct stat file {};
    return lstat(path.c_str(), &file) == 0 ? file.st_mode : 0;
  }

  TemporaryDirectory directory;
  std::string path = directory.Path("olt.sock");
  asio::io_context io;
};

TEST_F(UnixSocketFile, IsForOwnerAndGroupWhateverTheUmask) {
  for (const mode_t mask : {0000U, 0022U, 0077U, 0777U}) {
    const mode_t before = umask(mask);
    const auto listener = Listen();
    umask(before);
    EXPECT_EQ(static_cast<mode_t>(S_IFSOCK | 0660), Mode()) << mask;
  }
}

TEST_F(UnixSocketFile, GoesWithItsListener) {
  Listen().reset();
  EXPECT_EQ(0U, Mode());
}

TEST_F(UnixSocketFile, OfADeadServerIsReplaced) {
  { const ForeignSocket dead(path, SOCK_STREAM); }
  ASSERT_TRUE(S_ISSOCK(Mode()));
  const auto listener = Listen();
  EXPECT_EQ(static_cast<mode_t>(S_IFSOCK | 0660), Mode());
}

TEST_F(UnixSocketFile, OfALivingServerIsLeftAlone) {
  const ForeignSocket living(path, SOCK_STREAM);
  EXPECT_EQ("cannot listen on the socket " + path + ": another process serves it", Refusal());
  EXPECT_TRUE(S_ISSOCK(Mode()));
}

TEST_F(UnixSocketFile, OfAServerThatIsTooBusyToAnswerIsLeftAlone) {
  const ForeignSocket living(path, SOCK_STREAM);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ("cannot listen on the socket " + path + ": another process serves it", Refusal());
  }
}

TEST_F(UnixSocketFile, OfTheSameProcessIsLeftAlone) {
  const auto listener = Listen();
  EXPECT_NE("taken", Refusal());
  EXPECT_TRUE(S_ISSOCK(Mode()));
}

TEST_F(UnixSocketFile, OfAnotherKindIsLeftAlone) {
  const ForeignSocket datagrams(path, SOCK_DGRAM);
  EXPECT_NE("taken", Refusal());
  EXPECT_TRUE(S_ISSOCK(Mode()));
}

TEST_F(UnixSocketFile, NeverReplacesAnotherFile) {
  directory.Write("olt.sock", "precious");
  EXPECT_EQ("cannot listen on the socket " + path + ": the file is there and is no socket",
            Refusal());
  EXPECT_EQ("precious", ReadFile(path));
}

TEST_F(UnixSocketFile, NeverFollowsALink) {
  ASSERT_EQ(0, symlink(directory.Path("elsewhere").c_str(), path.c_str()));
  EXPECT_NE("taken", Refusal());
  EXPECT_TRUE(S_ISLNK(Mode()));
}

TEST_F(UnixSocketFile, ThatSomebodyPutInItsPlaceStays) {
  auto listener = Listen();
  unlink(path.c_str());
  const ForeignSocket other(path, SOCK_STREAM);
  listener.reset();
  EXPECT_TRUE(S_ISSOCK(Mode()));
}

TEST_F(UnixSocketFile, NeedsAPathThatFitsASocket) {
  path = directory.Path(std::string(120, 'x'));
  EXPECT_EQ("the path of the socket " + path + " is too long: " + std::to_string(path.size()) +
                " bytes; expected at most 107",
            Refusal());
  path = "";
  EXPECT_EQ("the path of the socket is empty", Refusal());
}

TEST_F(UnixSocketFile, NeedsADirectory) {
  path = directory.Path("missing") + "/olt.sock";
  EXPECT_EQ("cannot listen on the socket " + path + ": No such file or directory", Refusal());
}

}  // namespace
}  // namespace olt_host
