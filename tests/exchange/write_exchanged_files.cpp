// write_exchanged_files DIRECTORY: writes what this machine would hand to another, for
// exchange_test there.
#include <fstream>
#include <iostream>

#include "exchanged_content.h"

namespace {

void Write(const std::string& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  out.exceptions(std::ios::failbit | std::ios::badbit);
  out.close();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: write_exchanged_files DIRECTORY\n";
    return 2;
  }
  const std::string directory = std::string(argv[1]) + "/";
  exchange::FillRegistries();
  Write(directory + "profile.bin", exchange::ProfileBytes());
  exchange::FillTables();
  Write(directory + "board.state", exchange::StateBytes());
  return 0;
}
