// A file of lines, or standard input, block by block: as much as memory is set aside for,
// whole lines only, whatever the size of the file.
#ifndef OLT_HOST_NETWORK_LINE_BLOCKS_H
#define OLT_HOST_NETWORK_LINE_BLOCKS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_descriptor.h"

namespace olt_host {

constexpr std::size_t kBlockBytes = 1U << 20U;

struct LineBlock {
  std::uint64_t first_line = 1;  // number of its first line in the input
  std::uint64_t end = 0;         // offset of the first byte behind it
  std::string text;              // whole lines; the last of the input may lack its line break
};

// What messages call an input: its path, or "standard input" for "-".
std::string InputName(const std::string& path);

// The next line without its line break, taken off the front of `text`.
std::string_view TakeLine(std::string_view& text);
// Blanks alone, or nothing.
bool IsBlank(std::string_view line);

class LineBlocks {
 public:
  // `path`, or standard input for "-". Throws std::runtime_error when it cannot be opened.
  explicit LineBlocks(const std::string& path);

  // Goes on behind `offset`, where `line` begins. Throws std::runtime_error when no line
  // begins there. REQUIRES: nothing was read; a file.
  void Skip(std::uint64_t offset, std::uint64_t line);

  // The next block; nothing at the end. Throws std::runtime_error for a read error, for a
  // file that became shorter and, naming the line, for one longer than kBlockBytes with its
  // line break.
  std::optional<LineBlock> Next();

  // Bytes of the file; nothing where that is not known beforehand.
  std::optional<std::uint64_t> size() const;

 private:
  bool Fill(std::string& text, std::size_t bytes);
  void CutAtLastBreak(std::string& text);
  [[noreturn]] void FailWith(const std::string& reason) const;

  std::string _name;
  FileDescriptor _file;
  std::optional<std::uint64_t> _size;
  std::uint64_t _offset = 0;  // of the first byte not handed out
  std::uint64_t _line = 1;    // that begins there
  std::string _begun;         // read already: the beginning of a line
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_LINE_BLOCKS_H
