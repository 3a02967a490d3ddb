#include "state/state_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/file_descriptor.h"
#include "state/state_frame.h"
#include "state/state_merge.h"
#include "state/stored_state.h"

namespace olt_host {

namespace {

[[noreturn]] void FailToRead() {
  throw StateError(std::string("cannot be read: ") + std::strerror(errno));
}

std::string ReadBytes(int descriptor, std::size_t length) {
  std::string bytes(length, '\0');
  std::size_t filled = 0;
  while (filled < length) {
    const ssize_t count = read(descriptor, &bytes[filled], length - filled);
    if (count < 0 && errno != EINTR) FailToRead();
    if (count == 0) break;
    if (count > 0) filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return bytes;
}

// Looks at the header before it reads the rest, so that no file of any size or kind is
// read because somebody named it.
std::string ReadWholeFile(const std::string& file) {
  const FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!descriptor.is_open() || fstat(descriptor.get(), &status) != 0) FailToRead();
  if (!S_ISREG(status.st_mode)) throw StateError("is no file; expected a file that save wrote");
  const auto size = static_cast<std::uint64_t>(status.st_size);
  std::string content = ReadBytes(descriptor.get(), kStateHeaderBytes);
  CheckStateHeader(content, size);
  content += ReadBytes(descriptor.get(), static_cast<std::size_t>(size) - content.size());
  return content;
}

// Over a catalogue that was forgotten, its codes would become an operator's own.
void RequireCatalogue(const StoredState& stored, const Catalogue& catalogue) {
  if (!catalogue.attributes.empty() || !catalogue.codes.empty()) return;
  const auto repeats = [](const auto& entry) { return !entry.changed; };
  if (std::any_of(stored.attributes.begin(), stored.attributes.end(), repeats) ||
      std::any_of(stored.codes.begin(), stored.codes.end(), repeats) ||
      !stored.deleted_codes.empty()) {
    throw StateError("was written over a catalogue, and here is none; expected a CATALOGUE");
  }
}

}  // namespace

std::string EncodeState(const LibraryState& state, const Catalogue& catalogue) {
  return EncodeStored(CompareWithCatalogue(state, catalogue));
}

LibraryState ReadStateFile(const std::string& file, const Catalogue& catalogue,
                           const LibraryState& current, std::vector<std::string>* remarks) {
  try {
    const StoredState stored = DecodeStored(ReadWholeFile(file));
    RequireCatalogue(stored, catalogue);
    std::vector<std::string> notes;
    LibraryState state = MergeWithCatalogue(stored, catalogue, current, notes);
    if (remarks != nullptr) remarks->insert(remarks->end(), notes.begin(), notes.end());
    return state;
  } catch (const StateError& error) {
    throw StateError(file + ": " + error.what());
  }
}

}  // namespace olt_host
