// Every exported operation, with each of its requests for memory failing in turn, alone
// and with all that follow it. It completes or throws std::bad_alloc; afterwards no lock
// is held, nothing is lost, the library holds what it held before the operation or what
// it holds after it, and answers every question, with short ways and walks alike.
#include <gtest/gtest.h>

#include <iostream>

#include "exhaustion.h"
#include "prepared_library.h"
#include "short_ways/texts.h"

namespace {

class MemoryExhaustion : public ::testing::TestWithParam<size_t> {
 protected:
  void Expect(Service service) {
    PrepareLibrary(service);
    const Exhaustion outcome = RunOutOfMemory(EveryOperation()[GetParam()]);
    for (const std::string& fault : outcome.faults) {
      ADD_FAILURE() << fault;
    }
    std::cout << "requests that failed in turn: " << outcome.requests << "\n";
  }
};

TEST_P(MemoryExhaustion, WhileEveryLineIsHeard) { Expect(Service::kHeard); }
TEST_P(MemoryExhaustion, WhileNothingWasAskedYet) { Expect(Service::kFresh); }
TEST_P(MemoryExhaustion, InService) { Expect(Service::kInUse); }

std::string NameOf(const ::testing::TestParamInfo<size_t>& parameter) {
  return EveryOperation()[parameter.param].name;
}

INSTANTIATE_TEST_SUITE_P(Of, MemoryExhaustion, ::testing::Range(size_t{0}, EveryOperation().size()),
                         NameOf);

}  // namespace
