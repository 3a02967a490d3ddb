// Every symbol that the library asks of a host, each with what it must keep to. Fill in the
// bodies with what your system has; port_check tells what is missing and what does not do
// as it should. examples/minimal_host has all of them filled in.
//
// All of them may be called by any thread that is inside the library, several at once, and
// none may throw. No pointer is null unless it says so here.
#include "bep.h"
#include "mutex_lock.h"
#include "port.h"
#include "ulog.h"
#include "variant.h"
#include "vty.h"

// ----------------------------------------------------------------------------- ulog.h

// Writes one line. `level` is 0 to 31; the format, which is never null, follows printf and
// ends with " func:%s,line:%d" and two line ends. The library may hold a table's lock:
// what is called from here must ask nothing of that table, or it waits for itself. Lines
// that nobody wants are best left out with onu_ability_set_log_level_mask: they then cost
// next to nothing.
void ulogPrintf(unsigned int module_id, unsigned int level, const char* format, ...) {
  NotPorted();
}

// ----------------------------------------------------------------------- mutex_lock.h

// One mutex a table, made and destroyed with it. It need not be recursive.
CMutexLock::CMutexLock() { NotPorted(); }
CMutexLock::~CMutexLock() {}

// Waits until the calling thread has the mutex. `wait_limit` is in milliseconds and -1, the
// only value that the library passes, waits without limit; `file` is null. 0 when the
// mutex was taken. The library uses the table whatever the result.
unsigned int CMutexLock::Lock(int wait_limit, const char* file, unsigned int line) { NotPorted(); }

// Gives the mutex back, by the thread that took it. 0 on success.
unsigned int CMutexLock::Unlock(const char* file, unsigned int line) { NotPorted(); }

// -------------------------------------------------------------------------- variant.h

// A buffer of items, in which a profile travels. The library writes and reads in sequence:
// `index` is 0xFFFF. The form in which items are kept is yours; whoever reads the buffer on
// another board must agree on it, and on the order of bytes.
Variant::Variant() { NotPorted(); }
Variant::~Variant() {}

// Add an item at the end. 0 on success, anything else when there is no room; the profile is
// then incomplete, and the log says so.
unsigned int Variant::Append(unsigned short value, unsigned int index) { NotPorted(); }
unsigned int Variant::Append(unsigned int value, unsigned int index) { NotPorted(); }
// `length` bytes, none of them a terminator; `length` may be 0.
unsigned int Variant::Append(char* bytes, unsigned int length, unsigned int index) { NotPorted(); }

// Read the item at the cursor and move it on, although they are const. 0 on success, anything
// else when no item is left, which ends the reading of a profile.
unsigned int Variant::Fetch(unsigned short& value, unsigned int index) const { NotPorted(); }
unsigned int Variant::Fetch(unsigned int& value, unsigned int index) const { NotPorted(); }
// Exactly `length` bytes; no terminator is added.
unsigned int Variant::Fetch(char* bytes, unsigned int length, unsigned int index) const {
  NotPorted();
}

// ------------------------------------------------------------------------------ bep.h

// As strcmp: below 0, 0 or above 0.
int bep_StrCmp(const char* a, const char* b) { NotPorted(); }

// The bytes before the terminator.
unsigned int bep_StrLen(const char* text) { NotPorted(); }

// `count` * `size` zeroed bytes, aligned for any type, or null when there are none left. `file`
// and `line` name the caller.
void* bep_callocEx(unsigned int count, unsigned int size, const char* file, unsigned int line) {
  NotPorted();
}

// Takes back a block of bep_callocEx. `block` may be null.
void bep_freeEx(void* block, const char* file, unsigned int line) { NotPorted(); }

// Copies `count` bytes to `dst`, which has room for `dst_size`; the two do not overlap. With a
// count above `dst_size` it may copy nothing, but it must not copy a part.
void bep_memCpyEx(void* dst, unsigned int dst_size, const void* src, unsigned int count) {
  NotPorted();
}

// Fills `count` bytes with the low 8 bits of `value`, under the same rule.
void bep_memSetEx(void* dst, unsigned int dst_size, int value, unsigned int count) { NotPorted(); }

// ------------------------------------------------------------------------------ vty.h
// The command line. Handlers run on one thread, that of the command line: the profile that
// an operator is building is theirs and has no lock.

// Your terminal. The library hands the pointer from a command's handler to vty_out, no more.
struct vty {};

// Writes to the terminal; lines end with "\r\n". The result is not looked at.
int vty_out(struct vty* terminal, const char* format, ...) { NotPorted(); }

// Offers a command under the node of OnuAbilityRegExternFunc::SetCmdNode, 26 unless set. The
// record and its texts stay for good. `element->string` is the syntax: plain words, <value>,
// <string>, a range <0-255>, a choice (a|b), what may be left out in [brackets];
// `element->doc` has a line of help a token. Call `element->func` with what the operator typed
// for each value, range, choice and bracketed word, in order; plain words are no argument.
// The result is not looked at.
int install_element(unsigned int node, struct cmd_element* element) { NotPorted(); }

// Registers the module "onu_ability": call `install`, which calls install_element sixteen
// times, before the first line is typed, and `showrun`, which writes nothing, whenever the
// running configuration is shown. Called once, by onu_ability_service_cbb_cli_init.
int cl_install_module(const char* name, int (*install)(void), int (*showrun)(void)) { NotPorted(); }

// --------------------------------------------------------------------- for the check

struct vty* PortTerminal() {
  static vty terminal;
  return &terminal;
}
