// What every source of a fuzz target shares: the function that it defines, and the way
// in which it tells of a wrong result. libFuzzer drives it with inputs of its own
// making, replay_main.cpp with those of a corpus.
//
// A target is on its own in its process, and leaves nothing behind from one input to
// the next.
#ifndef TESTS_FUZZ_FUZZ_TARGET_H
#define TESTS_FUZZ_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <string>

// Attacks with one input. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Says on standard error what differs from what must be, and aborts.
[[noreturn]] void Fail(const std::string& what);

// Fails unless it holds.
void Hold(bool holds, const std::string& what);

// Fails when `was` is something else than `expected`.
void HoldSame(const std::string& what, const std::string& expected, const std::string& was);

#endif  // TESTS_FUZZ_FUZZ_TARGET_H
