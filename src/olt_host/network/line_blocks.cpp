#include "network/line_blocks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>

// Files of networks are larger than 4 GiB, on boards of 32 bits as well.
static_assert(sizeof(off_t) == 8);

namespace olt_host {

namespace {

bool IsStandardInput(const std::string& path) { return path == "-"; }

FileDescriptor Open(const std::string& path) {
  if (IsStandardInput(path)) return FileDescriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
  return FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

}  // namespace

std::string InputName(const std::string& path) {
  return IsStandardInput(path) ? "standard input" : path;
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

LineBlocks::LineBlocks(const std::string& path) : _name(InputName(path)), _file(Open(path)) {
  struct stat status {};
  if (!_file.is_open() || fstat(_file.get(), &status) != 0) FailWith(std::strerror(errno));
  if (S_ISDIR(status.st_mode)) FailWith(std::strerror(EISDIR));
  // Files that the kernel makes up tell no size.
  if (!S_ISREG(status.st_mode) || status.st_size == 0) return;
  // Standard input may have been read by others before.
  const off_t start = lseek(_file.get(), 0, SEEK_CUR);
  if (start >= 0) _size = static_cast<std::uint64_t>(std::max<off_t>(0, status.st_size - start));
}

void LineBlocks::Skip(std::uint64_t offset, std::uint64_t line) {
  if (offset > 0 && offset != _size) {
    char before = '\0';
    const ssize_t count = pread(_file.get(), &before, 1, static_cast<off_t>(offset - 1));
    if (count < 0) FailWith(std::strerror(errno));
    if (count == 0 || before != '\n') {
      FailWith("no line begins at byte " + std::to_string(offset) + "; expected line " +
               std::to_string(line) + " there");
    }
  }
  if (lseek(_file.get(), static_cast<off_t>(offset), SEEK_SET) < 0) FailWith(std::strerror(errno));
  _offset = offset;
  _line = line;
}

std::optional<LineBlock> LineBlocks::Next() {
  LineBlock block;
  block.text = std::move(_begun);
  _begun.clear();
  const bool is_last = !Fill(block.text, kBlockBytes);
  if (!is_last) CutAtLastBreak(block.text);
  _offset += block.text.size();
  if (is_last && _size && _offset < *_size) {
    FailWith("was cut while it was read, at byte " + std::to_string(_offset) + " of " +
             std::to_string(*_size));
  }
  if (block.text.empty()) return std::nullopt;
  block.first_line = _line;
  block.end = _offset;
  _line += static_cast<std::uint64_t>(std::count(block.text.begin(), block.text.end(), '\n'));
  return block;
}

std::optional<std::uint64_t> LineBlocks::size() const { return _size; }

// False when the input ends before.
bool LineBlocks::Fill(std::string& text, std::size_t bytes) {
  std::size_t filled = text.size();
  text.resize(bytes);
  while (filled < bytes) {
    const ssize_t count = read(_file.get(), text.data() + filled, bytes - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) FailWith(std::strerror(errno));
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return filled == bytes;
}

void LineBlocks::CutAtLastBreak(std::string& text) {
  const std::size_t last_break = text.rfind('\n');
  if (last_break != std::string::npos) {
    _begun.assign(text, last_break + 1, std::string::npos);
    text.resize(last_break + 1);
    return;
  }
  // One line fills the block. It may be the last, without a break.
  if (Fill(_begun, 1)) {
    throw std::runtime_error(_name + ":" + std::to_string(_line) + ": the line has more than " +
                             std::to_string(kBlockBytes) + " bytes; expected a line break before");
  }
}

void LineBlocks::FailWith(const std::string& reason) const {
  throw std::runtime_error(_name + ": " + reason);
}

}  // namespace olt_host
