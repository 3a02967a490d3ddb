// The password file.
#include "session/users.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace olt_host {
namespace {

class PasswordFile : public ::testing::Test {
 protected:
  PasswordFile() {
    char name[] = "/tmp/users.XXXXXX";
    folder = mkdtemp(name);
    file = folder + "/users";
  }
  ~PasswordFile() override { std::filesystem::remove_all(folder); }

  void Write(const std::string& content, mode_t mode = 0600) {
    std::ofstream(file) << content;
    chmod(file.c_str(), mode);
  }
  std::string Problem() {
    try {
      Users::Read(file);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }

  std::string folder;
  std::string file;
};

TEST_F(PasswordFile, ItsUsersMayLogInWithTheirPasswords) {
  Write("# operators\n\n" + PasswordLine("anna", "secret", Access::kFull) + "\r\n" +
        PasswordLine("bert.2", "other one", Access::kReadOnly));
  const Users users = Users::Read(file);
  EXPECT_EQ(Access::kFull, users.LogIn("anna", "secret"));
  EXPECT_EQ(Access::kReadOnly, users.LogIn("bert.2", "other one"));
  EXPECT_FALSE(users.LogIn("anna", "other one"));
  EXPECT_FALSE(users.LogIn("anna", ""));
  EXPECT_FALSE(users.LogIn("Anna", "secret"));
  EXPECT_FALSE(users.LogIn("carl", "secret"));
  EXPECT_FALSE(users.LogIn("", ""));
  EXPECT_FALSE(users.LogIn("anna", std::string("secret\0x", 8)));
}

TEST_F(PasswordFile, HashesAreSaltedAndNeverThePassword) {
  const std::string one = PasswordLine("anna", "secret", Access::kFull);
  EXPECT_NE(one, PasswordLine("anna", "secret", Access::kFull));
  EXPECT_EQ(std::string::npos, one.find("secret"));
  EXPECT_EQ("anna:$", one.substr(0, 6));
}

TEST_F(PasswordFile, IsRefusedWhenOthersMayReadOrWriteIt) {
  const std::string line = PasswordLine("anna", "secret", Access::kFull);
  for (const mode_t mode : {0640U, 0604U, 0620U, 0602U, 0644U}) {
    Write(line, mode);
    EXPECT_EQ(file + ": is open to group or others; expected mode 0600", Problem()) << mode;
  }
  Write(line, 0400);
  EXPECT_EQ("", Problem());
}

TEST_F(PasswordFile, WhatIsWrongIsNamedWithItsLine) {
  const std::string form = "; expected name:hash:full or name:hash:read-only";
  Write("# none\nanna\n");
  EXPECT_EQ(file + ":2: is no user" + form, Problem());
  Write("an na:$6$x:full\n");
  EXPECT_EQ(file + ":1: the name cannot be one" + form, Problem());
  Write("anna:secret:full\n");
  EXPECT_EQ(file + ":1: the hash of anna cannot be checked" + form, Problem());
  Write("anna:$nosuch$x:full\n");
  EXPECT_EQ(file + ":1: the hash of anna cannot be checked" + form, Problem());
  const std::string line = PasswordLine("anna", "secret", Access::kFull);
  Write(line + "x\n");
  EXPECT_EQ(file + ":1: the access of anna is unknown" + form, Problem());
  Write(line + "\n\n" + line + "\n");
  EXPECT_EQ(file + ":3: anna stands there twice; expected every name once", Problem());
  Write("# nobody\n");
  EXPECT_EQ(file + ": has no user" + form, Problem());
}

TEST_F(PasswordFile, MustBeAFile) {
  EXPECT_EQ(file + ": cannot be read: No such file or directory; expected a password file",
            Problem());
  file = folder;
  EXPECT_EQ(folder + ": is no regular file; expected a password file", Problem());
}

TEST_F(PasswordFile, NamesAndPasswordsThatCannotStandThereAreRefused) {
  EXPECT_THROW(PasswordLine("", "secret", Access::kFull), std::runtime_error);
  EXPECT_THROW(PasswordLine("a:b", "secret", Access::kFull), std::runtime_error);
  EXPECT_THROW(PasswordLine("a b", "secret", Access::kFull), std::runtime_error);
  EXPECT_THROW(PasswordLine(std::string(33, 'a'), "secret", Access::kFull), std::runtime_error);
  EXPECT_THROW(PasswordLine("anna", "", Access::kFull), std::runtime_error);
  EXPECT_THROW(PasswordLine("anna", "two\nlines", Access::kFull), std::runtime_error);
  EXPECT_THROW(PasswordLine("anna", std::string(600, 'x'), Access::kFull), std::runtime_error);
}

}  // namespace
}  // namespace olt_host
