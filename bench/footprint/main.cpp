// Prints what every exported operation takes of a board's stack and heap. Each area
// begins on tables as they are loaded; what its operations change stays for the next.

#include <cstdio>

#include "footprint/board.h"
#include "footprint/measured_call.h"

namespace {

void PrintRows(const std::vector<Operation>& operations) {
  RestoreBoard();
  for (const Operation& operation : operations) {
    const Footprint first = Measure(operation.call);
    std::printf("%-58s %6zu %7zu %8zu %8zu %8td\n", operation.name.c_str(), first.stack,
                first.blocks, first.bytes, first.peak, first.kept);
  }
}

}  // namespace

int main() {
  MakeBoard();
  std::printf("%-58s %6s %7s %8s %8s %8s\n", "operation", "stack", "blocks", "bytes", "peak",
              "kept");
  PrintRows(VocabularyOperations());
  PrintRows(RegistryOperations());
  PrintRows(ProfileOperations());
  PrintRows(TableOperations());
  PrintRows(QueryAndConfirmationOperations());
  PrintRows(CommandOperations());
  return 0;
}
