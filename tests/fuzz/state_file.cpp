// The readers of state files over any bytes, and over sections of any bytes in a sound
// frame: what they take can be put into the library whole or not at all, and is the same
// when it is written and read again.
#include <exception>
#include <string>
#include <vector>

#include "fuzz_target.h"
#include "input_bytes.h"
#include "loaded_host.h"
#include "state/library_state.h"
#include "state/state_file.h"
#include "state/state_frame.h"
#include "state/state_merge.h"
#include "state/stored_state.h"

namespace {

using olt_host::LibraryState;
using olt_host::StateError;
using olt_host::StateSection;
using olt_host::StoredState;

// The state of the small catalogue alone.
const LibraryState& CatalogueState() {
  static const LibraryState state = olt_host::CaptureLibrary();
  return state;
}

// The input as if it were a state file whose lengths and checksum are right, as far as
// its sections can be told apart.
std::string Repaired(std::string_view content) {
  constexpr std::size_t kChecksumBytes = 32;
  std::string_view body = content.substr(std::min(olt_host::kStateHeaderBytes, content.size()));
  body.remove_suffix(std::min(kChecksumBytes, body.size()));
  InputBytes input(reinterpret_cast<const std::uint8_t*>(body.data()), body.size());
  std::vector<StateSection> sections;
  while (!input.empty()) {
    StateSection section;
    for (int i = 0; i < 4; ++i) section.name += static_cast<char>(input.Byte());
    const std::size_t length = input.Number32();
    input.Number32();
    section.bytes = input.Take(length);
    sections.push_back(std::move(section));
  }
  return olt_host::FrameSections(sections);
}

// Whole, or as it was.
void HoldInstalls(const LibraryState& wanted) {
  const LibraryState before = olt_host::CaptureLibrary();
  bool installed = true;
  try {
    olt_host::InstallLibrary(wanted);
  } catch (const std::runtime_error&) {
    installed = false;
  }
  Hold(olt_host::SameState(olt_host::CaptureLibrary(), installed ? wanted : before),
       installed ? "the library holds what was installed" : "the library is as before");
  olt_host::InstallLibrary(CatalogueState());
}

void HoldSameWritten(const StoredState& stored) {
  const std::string content = olt_host::EncodeStored(stored);
  HoldSame("a state file written twice", content,
           olt_host::EncodeStored(olt_host::DecodeStored(content)));
}

void Attack(std::string_view content) {
  StoredState stored;
  LibraryState merged;
  std::vector<std::string> remarks;
  try {
    stored = olt_host::DecodeStored(content);
  } catch (const StateError&) {
    return;
  }
  HoldSameWritten(stored);
  try {
    merged = olt_host::MergeWithCatalogue(stored, SmallCatalogue(), CatalogueState(), remarks);
  } catch (const StateError&) {
    return;
  }
  HoldInstalls(merged);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LoadSmallCatalogue();
  CatalogueState();
  const std::string_view content = InputBytes(data, size).Rest();
  Attack(content);
  Attack(Repaired(content));
  return 0;
}
