// A table whose index found no memory in one change walks until the next one, which makes
// the index anew: also when that next change is only a value.
#include <gtest/gtest.h>

#include <new>

#include "failing_memory.h"
#include "observed_call.h"
#include "observed_state.h"
#include "prepared_library.h"
#include "short_ways/texts.h"

namespace {

constexpr unsigned int kKey = 102;  // of a profile of the prepared library
constexpr unsigned short kPorts = 1010;

struct Shortage {
  bool came = false;
  std::string said;
};

// Adds a profile while the k-th request for memory fails, then a value.
Shortage AddProfileThenValue(unsigned int k) {
  const std::string said = InChild([k] {
    OnuAbilityTableManager& manager = *OnuAbilityTableManager::GetInstance();
    OnuAbilityProfile profile = NewProfile(ONU_ABILITY_PROFILE_TYPE_REAL, 700);
    failing_memory::Fail(k, failing_memory::From::kOnce);
    try {
      manager.Add(profile);
    } catch (const std::bad_alloc&) {
      // The index of what is there may have been given up all the same.
    }
    const bool came = failing_memory::Recover();
    const unsigned int added = manager.Add(ONU_ABILITY_PROFILE_TYPE_REAL,
                                           ONU_ABILITY_PROFILE_SOURCE_DEFAULT, kKey, kPorts, 11U);
    const Answers answers = AskEverything();
    return Words(came ? "short" : "enough", added == 0 ? "" : "; no value was added",
                 answers.short_ways == answers.walks
                     ? ""
                     : "; " + Difference(answers.short_ways, answers.walks));
  });
  return {said.rfind("short", 0) == 0, said};
}

TEST(IndexShortage, IsMadeUpForByTheNextValue) {
  PrepareLibrary(Service::kInUse);
  Shortage last{true, ""};
  for (unsigned int k = 1; last.came; ++k) {
    last = AddProfileThenValue(k);
    EXPECT_EQ(last.came ? "short" : "enough", last.said) << "request " << k;
    ASSERT_LT(k, 1000U);
  }
}

}  // namespace
