// The first use of the code registry, which makes it and its index, with each of its requests
// for memory failing in turn: the next use makes it, and the library is as if nothing had
// happened. The other singletons ask for none. In a process that has used none of them.
#include <gtest/gtest.h>

#include <new>

#include "failing_memory.h"
#include "observed_call.h"
#include "onu_ability_common_table.h"
#include "short_ways/texts.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

std::string StateOnceInService() {
  DefineUsualCodes();
  InitTables();
  AddToTable(MakeRealProfile(7, 70));
  std::string text;
  for (const StatePart& part : ObserveState()) {
    text += Words(part.name, ": ", part.text, "\n");
  }
  RecordingHost::Instance().ForgetLog();
  return text;
}

// "enough" when the first use makes fewer than k requests, then the state in either case.
std::string FirstUse(unsigned int k) {
  return InChild([k] {
    failing_memory::Fail(k, failing_memory::From::kOnce);
    bool thrown = false;
    try {
      OnuAbilityCodeInfo::GetInstance();
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    const bool came = failing_memory::Recover();
    EXPECT_EQ(came, thrown);
    OnuAbilityCodeInfo::GetInstance();
    return (came ? "short\n" : "enough\n") + StateOnceInService();
  });
}

TEST(FirstUseInShortage, IsMadeUpForByTheNext) {
  const std::string state = InChild(StateOnceInService);
  unsigned int shortages = 0;
  for (std::string said; said.rfind("enough\n", 0) != 0;) {
    said = FirstUse(shortages + 1);
    EXPECT_EQ(state, said.substr(said.find('\n') + 1)) << "request " << shortages + 1;
    ASSERT_FALSE(HasFailure());
    shortages += said.rfind("short\n", 0) == 0 ? 1 : 0;
  }
  EXPECT_EQ(2U, shortages);
}

}  // namespace
