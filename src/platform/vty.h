/// @file
/// The host's vty command-line framework: terminals, command records and their
/// installation. The host defines the functions; the library calls them on the thread on
/// which it is called itself, and holds no lock while it writes to a terminal.
#ifndef VTY_H
#define VTY_H

/* Exported also by a host that is compiled with hidden visibility. */
#if defined(__GNUC__)
#pragma GCC visibility push(default)
#endif

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
/** Lets the compiler check format and arguments of vty_out. */
#define VTY_PRINTF_FORMAT __attribute__((format(printf, 2, 3)))
#else
#define VTY_PRINTF_FORMAT
#endif

/** One operator's terminal; the library only hands the pointer back. */
struct vty;

/** One command. `func` gets the arguments as text: each `<value>`, `<string>`, range
 * and bracketed choice is one, a plain keyword is none. It returns 0, or a status that
 * the framework may show. */
struct cmd_element {
  const char* string; /**< its syntax */
  /** its handler */
  int (*func)(struct cmd_element*, struct vty*, int argc, char** argv);
  const char* doc; /**< its help, with a line a token */
};

/** Writes to the terminal; returns what the host likes. Lines end in
 * carriage return and line feed. */
int vty_out(struct vty* vty, const char* format, ...) VTY_PRINTF_FORMAT;

/** Offers `element` under the command node `node`. The record must outlive the
 * framework. */
int install_element(unsigned int node, struct cmd_element* element);

/** Registers a module: `install` installs its commands, `showrun` writes its
 * part of the running configuration. The library does not look at the result. */
int cl_install_module(const char* name, int (*install)(void), int (*showrun)(void));

#ifdef __cplusplus
}
#endif

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#endif  // VTY_H
