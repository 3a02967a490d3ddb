// What the sources of a port and the check of it (port_check.cpp) offer each other.
#ifndef PORT_H
#define PORT_H

struct vty;

// Stands where a body is to be written; the check then tells what is left to do.
[[noreturn]] void NotPorted();

// A terminal on which the check may write.
struct vty* PortTerminal();

// Registers the ten hooks.
void RegisterHooks();

#endif  // PORT_H
