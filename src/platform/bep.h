/**
 * @file
 * The host's string and memory primitives: what the library copies text and blocks with
 * at its borders. The host defines them; any thread may call them at any time, also while
 * a table's lock is held.
 */
#ifndef BEP_H
#define BEP_H

/* Exported also by a host that is compiled with hidden visibility. */
#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** As strcmp: below 0, 0 or above 0. Neither text is null. */
int bep_StrCmp(const char* a, const char* b);

/** The bytes of `text` before its terminator. `text` is never null. */
unsigned int bep_StrLen(const char* text);

/** `count` * `size` zeroed bytes for the caller at `file`:`line`, or null. The library
 * goes on without the block when it gets none: the string that it was for is empty. */
void* bep_callocEx(unsigned int count, unsigned int size, const char* file, unsigned int line);

/** Releases a block of bep_callocEx; a null block is ignored. */
void bep_freeEx(void* block, const char* file, unsigned int line);

/** Copies `count` bytes to `dst`, which has room for `dst_size`. The host may
 * refuse a count above `dst_size`, leaving `dst` as it was. */
void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count);

/** Fills `count` bytes of `dst`, which has room for `dst_size`, with the low 8
 * bits of `value`. The host may refuse a count above `dst_size`. */
void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count);

#ifdef __cplusplus
}
#endif

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#endif  // BEP_H
