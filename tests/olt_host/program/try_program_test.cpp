// Changes that were tried, and a restart of the host.
#include <gtest/gtest.h>

#include "program_runner.h"

namespace olt_host_test {
namespace {

class TryProgram : public testing::Test {
 protected:
  // Runs the lines with the state file.
  ProgramResult Run(const std::vector<std::string>& lines) {
    std::vector<std::string> arguments = {"run", Fixture("small_catalogue.yaml"),
                                          Fixture("small_reports.yaml"), "--state", _file};
    for (const std::string& line : lines) {
      arguments.insert(arguments.end(), {"-c", line});
    }
    return RunProgram(arguments);
  }

  bool IsKept() {
    return Run({"show onu_common_type"}).out.find("common_hgu_type:       701") !=
           std::string::npos;
  }

  TemporaryDirectory _directory;
  std::string _file = _directory.Path("olt.state");
};

TEST_F(TryProgram, ATriedChangeDoesNotSurviveARestart) {
  EXPECT_EQ(Run({"try set onu_common_type hgu 701"}).status, 0);
  EXPECT_FALSE(IsKept());
}

TEST_F(TryProgram, AnUnconfirmedChangeDoesNotSurviveARestart) {
  const ProgramResult result =
      Run({"try set onu_common_type hgu 701", "try commit confirmed 5", "show onu_common_type"});
  EXPECT_EQ(result.status, 0) << result.out;
  EXPECT_NE(result.out.find("common_hgu_type:       701"), std::string::npos) << result.out;
  EXPECT_FALSE(IsKept());
}

TEST_F(TryProgram, AConfirmedChangeDoes) {
  EXPECT_EQ(Run({"try set onu_common_type hgu 701", "try commit confirmed 5", "try commit"}).status,
            0);
  EXPECT_TRUE(IsKept());
}

TEST_F(TryProgram, SoDoesACommittedOne) {
  EXPECT_EQ(Run({"try set onu_common_type hgu 701", "try commit"}).status, 0);
  EXPECT_TRUE(IsKept());
}

}  // namespace
}  // namespace olt_host_test
