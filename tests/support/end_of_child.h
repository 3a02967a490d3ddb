// How a forked child of a test ends: at once, without what its parent would clean up.
#ifndef TESTS_SUPPORT_END_OF_CHILD_H
#define TESTS_SUPPORT_END_OF_CHILD_H

// Where the program counts what it runs, what the child ran counts, too. The status is the
// process's exit status.
[[noreturn]] void EndChild(int status = 0);

#endif  // TESTS_SUPPORT_END_OF_CHILD_H
