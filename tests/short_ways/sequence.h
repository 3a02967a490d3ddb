// Random sequences of operations, each run twice: with the library's short ways open,
// and with walks only. Both runs must leave the same trace.
//
// A sequence runs in a child process. So each starts from a library that never
// handed its code records out, and a crash is a difference like any other.
#ifndef TESTS_SHORT_WAYS_SEQUENCE_H
#define TESTS_SHORT_WAYS_SEQUENCE_H

#include <cstdint>
#include <string>

// Runs the sequence of a seed. Empty when both runs agree; otherwise a report of the
// first difference: seed, step, operation, both sides, and the shortest run of
// operations found that leads to one.
//
// `records_handed_out`: whether its operations also change the records of the code
// registry directly.
std::string RunSequence(std::uint64_t seed, bool records_handed_out);

#endif  // TESTS_SHORT_WAYS_SEQUENCE_H
