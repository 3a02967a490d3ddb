// A session on the process's own terminal: prompt, line editing with emacs
// keys, history, and TAB completion of keywords.
#ifndef OLT_HOST_CONSOLE_EDITOR_SESSION_H
#define OLT_HOST_CONSOLE_EDITOR_SESSION_H

#include "vty/terminal.h"

namespace olt_host {

// Runs lines from standard input until exit or Ctrl-D; Ctrl-C drops the line
// being typed. `terminal` writes to standard output.
// REQUIRES: standard input and output are a terminal; one session at a time.
void RunEditor(struct vty& terminal);

}  // namespace olt_host

#endif  // OLT_HOST_CONSOLE_EDITOR_SESSION_H
