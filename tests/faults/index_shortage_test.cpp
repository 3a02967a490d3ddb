// An index that found no memory holds nothing half made. A table whose index was given up so
// walks until the next change, which makes it anew: also when that change is only a value.
#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "failing_memory.h"
#include "observed_call.h"
#include "observed_state.h"
#include "onu_ability_common_service_cinterface.h"
#include "onu_ability_common_table/pattern_index.h"
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

// What the tables answer in the moment in which the k-th request for memory fails. The host
// itself asks for none.
std::string AskInShortage(unsigned int k) {
  return InChild([k] {
    failing_memory::Fail(k, failing_memory::From::kThenOnAll);
    std::string said = "threw";
    unsigned int number = 0;
    try {
      number = onu_ability_get_onu_ability_value_by_key_value(kKey, kPorts);
      said = "answered ";
    } catch (const std::bad_alloc&) {
      number = 0;
    }
    const bool came = failing_memory::Recover();
    return Words(said, std::to_string(number), came ? ", short" : "");
  });
}

// An index serves questions, and is not owed an answer: without memory for it the profile
// itself is asked.
TEST(IndexShortage, KeepsNoQuestionFromItsAnswer) {
  PrepareLibrary(Service::kFresh);
  bool came = true;
  unsigned int shortages = 0;
  for (unsigned int k = 1; came; ++k) {
    const std::string said = AskInShortage(k);
    came = said.find(", short") != std::string::npos;
    shortages += came ? 1 : 0;
    EXPECT_EQ(came ? "answered 2, short" : "answered 2", said) << "request " << k;
    ASSERT_LT(k, 1000U);
  }
  EXPECT_GT(shortages, 0U);
}

// A list that was given up half made is not taken for the one made before it.
TEST(IndexShortage, ListOfOneKeyCodeIsNotTakenForThatOfAnother) {
  constexpr unsigned short kHeld = 1010;
  constexpr unsigned short kLacked = 1011;
  PrepareLibrary(Service::kFresh);
  std::vector<OnuAbilityProfile> profiles(9);
  for (OnuAbilityProfile& profile : profiles) {
    profile.Add(kHeld, 4U);
  }
  profiles.emplace_back();  // the only one that lacks both
  PatternIndex index;
  ASSERT_EQ(std::vector<unsigned int>{9}, index.Lacking(profiles, kHeld));

  failing_memory::Fail(1, failing_memory::From::kOnce);
  EXPECT_THROW(index.Lacking(profiles, kLacked), std::bad_alloc);
  EXPECT_TRUE(failing_memory::Recover());

  EXPECT_EQ(std::vector<unsigned int>{9}, index.Lacking(profiles, kHeld));
  EXPECT_EQ(10U, index.Lacking(profiles, kLacked).size());
}

}  // namespace
