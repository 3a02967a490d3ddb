#include "vty/output_file.h"

#include <cerrno>
#include <system_error>

namespace olt_host {
namespace {

std::string Reason(int error) { return std::generic_category().message(error); }

}  // namespace

OutputFile::~OutputFile() {
  if (_file == nullptr) return;
  std::fclose(_file);
  std::remove(_name.c_str());
}

std::string OutputFile::Create(const std::string& name) {
  _file = std::fopen(name.c_str(), "wxe");  // x: never an existing file, e: not for children
  if (_file == nullptr) return Reason(errno);
  _name = name;
  return "";
}

bool OutputFile::WriteLine(const std::string& line) {
  if (_failure != 0) return false;
  errno = 0;
  if (std::fwrite(line.data(), 1, line.size(), _file) != line.size() ||
      std::fputc('\n', _file) == EOF) {
    NoteFailure();
    return false;
  }
  _bytes += line.size() + 1;
  return true;
}

std::string OutputFile::Complete() {
  errno = 0;
  if (std::fclose(_file) != 0 && _failure == 0) NoteFailure();
  _file = nullptr;
  if (_failure == 0) return "";
  std::remove(_name.c_str());
  return Reason(_failure);
}

void OutputFile::NoteFailure() { _failure = errno == 0 ? EIO : errno; }

}  // namespace olt_host
