// The first use of each singleton, which makes it, with each of its requests for memory
// failing in turn: the next use makes it, and the library is as if nothing had happened.
#include <gtest/gtest.h>

#include <new>

#include "failing_memory.h"
#include "observed_call.h"
#include "onu_ability_common_reg_extern_func.h"
#include "onu_ability_common_table.h"
#include "short_ways/texts.h"
#include "support/catalogue_builder.h"
#include "support/recording_host.h"

namespace {

struct Singleton {
  const char* name;
  unsigned int requests;  // at least, of its first use
  void (*use)();
};

const std::vector<Singleton> kSingletons = {
    {"Attributes", 0, [] { OnuAbilityAttrInfo::GetInstance(); }},
    {"Codes", 2, [] { OnuAbilityCodeInfo::GetInstance(); }},
    {"Manager", 0, [] { OnuAbilityTableManager::GetInstance(); }},
    {"Hooks", 0, [] { OnuAbilityRegExternFunc::GetInstance(); }},
    {"Settings", 0, [] { OnuAbilityGlobalVar::GetInstance(); }},
};

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
std::string FirstUse(const Singleton& singleton, unsigned int k) {
  return InChild([&singleton, k] {
    failing_memory::Fail(k, failing_memory::From::kOnce);
    bool thrown = false;
    try {
      singleton.use();
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    const bool came = failing_memory::Recover();
    EXPECT_EQ(came, thrown);
    singleton.use();
    return (came ? "short\n" : "enough\n") + StateOnceInService();
  });
}

class FirstUseInShortage : public ::testing::TestWithParam<size_t> {};

TEST_P(FirstUseInShortage, IsMadeUpForByTheNext) {
  const Singleton& singleton = kSingletons[GetParam()];
  const std::string state = InChild(StateOnceInService);
  unsigned int k = 1;
  for (std::string said; said.rfind("enough\n", 0) != 0; ++k) {
    said = FirstUse(singleton, k);
    EXPECT_EQ(state, said.substr(said.find('\n') + 1)) << "request " << k;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GE(k - 2, singleton.requests);
}

std::string NameOf(const ::testing::TestParamInfo<size_t>& parameter) {
  return kSingletons[parameter.param].name;
}

INSTANTIATE_TEST_SUITE_P(Of, FirstUseInShortage, ::testing::Range(size_t{0}, kSingletons.size()),
                         NameOf);

}  // namespace
