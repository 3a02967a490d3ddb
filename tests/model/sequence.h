// Random sequences of operations on the library and the model.
#ifndef TESTS_MODEL_SEQUENCE_H
#define TESTS_MODEL_SEQUENCE_H

#include <cstdint>
#include <string>

// Runs the sequence of a seed. Empty when both sides agree; otherwise a report
// of the first difference: seed, step, operation, both sides, and the shortest
// run of operations found that leads to it.
std::string RunSequence(std::uint64_t seed);

#endif  // TESTS_MODEL_SEQUENCE_H
