// Runs a target on every file of the named folders and files: a corpus as an ordinary
// test, without libFuzzer. A target that finds something ends the process.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fuzz_target.h"

namespace {

namespace fs = std::filesystem;

// By name, so that every run has the same order.
std::vector<fs::path> FilesOf(const fs::path& place) {
  if (!fs::is_directory(place)) return {place};
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(place)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// False when the file cannot be read.
bool Replay(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(stream),
                            std::istreambuf_iterator<char>()};
  if (!stream.is_open() || stream.bad()) {
    std::fprintf(stderr, "%s cannot be read\n", file.c_str());
    return false;
  }
  std::fprintf(stderr, "%s\n", file.c_str());
  // A block of exactly its size: reading behind it is seen.
  const std::unique_ptr<std::uint8_t[]> bytes(new std::uint8_t[content.size()]);
  std::copy(content.begin(), content.end(), bytes.get());
  LLVMFuzzerTestOneInput(bytes.get(), content.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t replayed = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& file : FilesOf(argv[i])) {
      if (!Replay(file)) return 1;
      ++replayed;
    }
  }
  std::fprintf(stderr, "%zu inputs\n", replayed);
  // An empty corpus would be a test that cannot fail.
  return replayed == 0 ? 1 : 0;
}
