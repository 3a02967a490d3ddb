// The memory of the process: operator new, which fails on command and counts the blocks
// that are in use. Memory that the host asks for (support/host_code.h) neither counts
// nor fails.
#ifndef TESTS_FAULTS_FAILING_MEMORY_H
#define TESTS_FAULTS_FAILING_MEMORY_H

namespace failing_memory {

enum class From {
  kOnce,       // one request fails, the next ones are served: a moment's shortage
  kThenOnAll,  // that one and all after it: nothing is left, for clean-up neither
};

// The k-th request from now fails (1 is the next one).
void Fail(unsigned int k, From from);
// Serves all requests again. True when one had failed.
bool Recover();

// Blocks in use that were not asked for by the host.
long Blocks();

}  // namespace failing_memory

#endif  // TESTS_FAULTS_FAILING_MEMORY_H
