// What operators have made, as a file that survives a restart: their profiles
// (source 1) of both tables, the attributes and codes, the key ability code and
// the common types. Profiles stand in it as the library serialises them.
#ifndef OLT_HOST_STATE_STATE_FILE_H
#define OLT_HOST_STATE_STATE_FILE_H

#include <stdexcept>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "state/library_state.h"

namespace olt_host {

// One message for the operator: the file, what is wrong with it, what to do.
class StateError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The content of a state file for `state`. What differs from `catalogue` is told
// apart from what only repeats it, so that a newer catalogue is not undone.
std::string EncodeState(const LibraryState& state, const Catalogue& catalogue);

// Writes `content` so that, whatever happens, `file` holds it or what it held
// before, whole: written aside, flushed to disk, renamed. What the file held
// before is kept as FILE.bak; where it holds `content` already, both stay. Takes the
// place of no file, under any of these names, that does not begin as a state file.
// Throws StateError, the file as it was (or replaced, when only its folder cannot be
// flushed; the message says so).
void WriteStateFile(const std::string& file, const std::string& content);
// The name of that backup; beside the file itself when `file` is a link.
std::string BackupOf(const std::string& file);

// The library's state after the state file `file` over `catalogue`: the profiles
// of source 0 as `current` has them, what operators changed as the file has it,
// everything else as the catalogue has it. Without any catalogue only a file that was
// written without one is taken. Adds to `remarks`, when it is not null,
// what could not be taken as it stands and is no reason to refuse the file.
// Checks everything first; throws StateError. Changes nothing.
LibraryState ReadStateFile(const std::string& file, const Catalogue& catalogue,
                           const LibraryState& current,
                           std::vector<std::string>* remarks = nullptr);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_STATE_FILE_H
