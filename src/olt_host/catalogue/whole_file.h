// Reads a file whole. Writes it whole or not at all: a file that is there is complete.
#ifndef OLT_HOST_CATALOGUE_WHOLE_FILE_H
#define OLT_HOST_CATALOGUE_WHOLE_FILE_H

#include <string>

namespace olt_host {

// All bytes of the file, of a pipe as well. Throws InputError, "FILE: cannot be read: why;
// expected EXPECTATION".
std::string ReadWholeFile(const std::string& file, const char* expectation);

// Takes the place of an existing file only when told to `replace` it. Throws
// std::runtime_error, "FILE: what is wrong; expected what"; nothing is changed then.
void WriteWholeFile(const std::string& file, const std::string& content, bool replace);

}  // namespace olt_host

#endif  // OLT_HOST_CATALOGUE_WHOLE_FILE_H
