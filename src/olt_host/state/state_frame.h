// The outer form of a state file: what it is, which version, how long, and a checksum
// over all of it. Knows nothing of what the sections hold.
#ifndef OLT_HOST_STATE_STATE_FRAME_H
#define OLT_HOST_STATE_STATE_FRAME_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace olt_host {

struct StateSection {
  std::string name;  // four letters
  std::string bytes;
};

// What every state file begins with.
constexpr std::string_view kStateMagic = "OLTSTATE";
// That, the version and the whole length.
constexpr std::size_t kStateHeaderBytes = kStateMagic.size() + 4 + 8;
constexpr std::uint32_t kStateVersion = 1;

std::string FrameSections(const std::vector<StateSection>& sections);

// Looks at the header alone; throws StateError unless it begins a state file that this
// host reads and that has exactly `file_bytes` bytes. `header` may be shorter than a
// header when the file is.
void CheckStateHeader(std::string_view header, std::uint64_t file_bytes);

// Takes a whole file apart after checking header, lengths and checksum. Throws StateError.
std::vector<StateSection> UnframeSections(std::string_view content);

}  // namespace olt_host

#endif  // OLT_HOST_STATE_STATE_FRAME_H
