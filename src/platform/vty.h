// The host's vty command-line framework: terminals, command records and their
// installation.
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
#define VTY_PRINTF_FORMAT __attribute__((format(printf, 2, 3)))
#else
#define VTY_PRINTF_FORMAT
#endif

/* One operator's terminal; the library only hands the pointer back. */
struct vty;

/* One command. `string` is its syntax, `doc` its help with a line a token.
 * `func` gets the arguments as text: each `<value>`, `<string>`, range and
 * bracketed choice is one, a plain keyword is none. */
struct cmd_element {
  const char* string;
  int (*func)(struct cmd_element*, struct vty*, int argc, char** argv);
  const char* doc;
};

/* Writes to the terminal; returns what the host likes. */
int vty_out(struct vty* vty, const char* format, ...) VTY_PRINTF_FORMAT;

/* Offers `element` under the command node `node`. The record must outlive the
 * framework. */
int install_element(unsigned int node, struct cmd_element* element);

/* Registers a module: `install` installs its commands, `showrun` writes its
 * part of the running configuration. */
int cl_install_module(const char* name, int (*install)(void), int (*showrun)(void));

#ifdef __cplusplus
}
#endif

#if defined(__GNUC__)
#pragma GCC visibility pop
#endif

#endif  // VTY_H
