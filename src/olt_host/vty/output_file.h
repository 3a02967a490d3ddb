// A new file that takes the output of one command. Unless it was completed, it is
// removed again: a file that is there is whole.
#ifndef OLT_HOST_VTY_OUTPUT_FILE_H
#define OLT_HOST_VTY_OUTPUT_FILE_H

#include <cstdio>
#include <string>

namespace olt_host {

class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Makes the file. Returns an empty text, or why it cannot be: it exists, its
  // folder does not, and so on.
  std::string Create(const std::string& name);
  bool created() const { return !_name.empty(); }

  // Adds a line. False, once and for all, when it could not be written.
  bool WriteLine(const std::string& line);
  // Completes the file. Returns an empty text, or, the file removed, what failed.
  std::string Complete();

  unsigned long long bytes() const { return _bytes; }
  const std::string& name() const { return _name; }

 private:
  void NoteFailure();

  std::string _name;
  std::FILE* _file = nullptr;  // open until it is completed
  int _failure = 0;            // the first error number
  unsigned long long _bytes = 0;
};

}  // namespace olt_host

#endif  // OLT_HOST_VTY_OUTPUT_FILE_H
