// What the line editor takes for its terminal: a pseudo-terminal that carries no
// bytes and only holds modes and a window size, and a stream whose output is kept
// until the session sends it.
//
// Used by the session's thread.
#ifndef OLT_HOST_SESSION_EDITOR_TERMINAL_H
#define OLT_HOST_SESSION_EDITOR_TERMINAL_H

#include <cstdio>
#include <memory>
#include <string>

#include "platform/file_descriptor.h"
#include "session/channel.h"

namespace olt_host {

class EditorTerminal {
 public:
  // Throws std::system_error when the system has no more pseudo-terminals.
  EditorTerminal();
  EditorTerminal(const EditorTerminal&) = delete;
  EditorTerminal& operator=(const EditorTerminal&) = delete;

  int descriptor() const { return _slave.get(); }
  std::FILE* stream() const { return _stream.get(); }

  // Sizes that the editor cannot work with are brought to the nearest one.
  void SetWindow(Channel::Window window);
  unsigned int columns() const { return _columns; }
  unsigned int rows() const { return _rows; }

  // Takes what was written to the stream, each line break as CR LF.
  std::string TakeOutput();
  // How much there is to take, what the stream still buffers not counted.
  std::size_t output_size() const { return _output.size(); }

 private:
  struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };

  std::FILE* OpenStream();
  long Append(const char* bytes, unsigned long length) noexcept;

  const FileDescriptor _master;
  const FileDescriptor _slave;
  std::string _output;
  const std::unique_ptr<std::FILE, CloseStream> _stream;  // writes to the output as it closes
  unsigned int _columns = 80;
  unsigned int _rows = 24;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_TERMINAL_H
