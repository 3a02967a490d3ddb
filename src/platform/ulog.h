/// @file
/// The host's logging function: the only way a line leaves the library.
///
/// Owned by the host, which defines the symbol. Called from whichever thread
/// entered the library, also while a table's lock is held, so the host's
/// implementation must be safe against concurrent calls.
///
/// It may call back into the library: registries, settings, hooks and the log mask while
/// any line is written, and IsEqual and IsExist of a code, which lock nothing; whatever
/// else there is of tables, manager, query functions and commands only for a line that no
/// table operation writes, because those hold a table's lock, the lock is not recursive,
/// and two of them have no order. None of tables and manager for `OnuAbilityTableManager
/// start!` and `release OnuAbilityTableManager!`, at which there is no manager yet, or no
/// longer. Lines that the call back causes arrive here, too.
#ifndef ULOG_H
#define ULOG_H

/* Exported also by a host that is compiled with hidden visibility. */
#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
/** Lets the compiler check format and arguments of the declaration below. */
#define ULOG_PRINTF_FORMAT __attribute__((format(printf, 3, 4)))
#else
#define ULOG_PRINTF_FORMAT
#endif

/** Writes one line of module `module_id` at `level` (0 to 31; what the levels mean is
 * said in log_settings.h). `format` and its arguments follow printf; the format is never
 * null, and nearly every one ends in ` func:%s,line:%d` and two line breaks. */
void ulogPrintf(unsigned int module_id, unsigned int level, const char* format,
                ...) ULOG_PRINTF_FORMAT;

#ifdef __cplusplus
}
#endif

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#endif  // ULOG_H
