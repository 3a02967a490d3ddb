// The lines of every exported operation: whatever says that it starts says that it ends, and
// nothing ends that has not started, but for the functions below; every line with a tail names a
// function.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "operations.h"
#include "prepared_library.h"
#include "support/recording_host.h"
#include "support/traces.h"

namespace {

// These do not say the end of every run, as meant: questions of a profile, its value and a
// comparison by which one outcome is told from the other; constructors; the lamps of a table
// that counts none; a change of a table that finds no profile.
bool MayEndSilently(const std::string& function) {
  static const std::set<std::string> functions = {"Get",
                                                  "IsExist",
                                                  "IsEqual",
                                                  "IsAmbiguousMatch",
                                                  "operator==",
                                                  "Add",
                                                  "GetLampTotalNum",
                                                  "OnuAbilityProfile",
                                                  "OnuAbilityTableBase",
                                                  "OnuRealAbilityTable",
                                                  "OnuMatchAbilityTable"};
  return functions.count(function) != 0;
}

// A text that a profile lacks is asked for to the end twice, as meant.
bool EndsTwice(const std::string& operation) { return operation == "ProfileGetTextThatIsAbsent"; }

// Follows the lines of one operation.
class RunningFunctions {
 public:
  void Start(const std::string& function) { running_.push_back(function); }

  void End(const std::string& function) {
    if (std::find(running_.begin(), running_.end(), function) == running_.end()) {
      faults_ += function + " ends, and did not start; ";
      return;
    }
    while (running_.back() != function) {
      EndSilently();
    }
    running_.pop_back();
  }

  std::string Faults() {
    while (!running_.empty()) {
      EndSilently();
    }
    return faults_;
  }

 private:
  void EndSilently() {
    if (!MayEndSilently(running_.back())) {
      faults_ += running_.back() + " started, and does not end; ";
    }
    running_.pop_back();
  }

  std::vector<std::string> running_;  // the innermost is the last
  std::string faults_;
};

// The name of one, as a tail has it; listings have no tail.
bool IsNameOfFunction(const std::string& name) {
  static const std::regex names("(~(Onu|Confirm)|operator==|[A-Za-z_])\\w*");
  return name.empty() || std::regex_match(name, names);
}

class OperationTraces : public ::testing::TestWithParam<size_t> {};

TEST_P(OperationTraces, EndWhatTheyStart) {
  PrepareLibrary(Service::kHeard);
  const Operation& operation = EveryOperation()[GetParam()];
  const Call call = operation.prepare();
  RecordingHost::Instance().ForgetLog();
  call.run();
  RunningFunctions running;
  for (const LogLine& line : RecordingHost::Instance().TakeLog()) {
    if (SaysStart(line)) running.Start(line.function);
    if (SaysEnd(line)) running.End(line.function);
    EXPECT_TRUE(IsNameOfFunction(line.function)) << line;
  }
  EXPECT_EQ(EndsTwice(operation.name) ? "Get ends, and did not start; " : "", running.Faults());
}

std::string NameOf(const ::testing::TestParamInfo<size_t>& parameter) {
  return EveryOperation()[parameter.param].name;
}

INSTANTIATE_TEST_SUITE_P(Of, OperationTraces, ::testing::Range(size_t{0}, EveryOperation().size()),
                         NameOf);

}  // namespace
