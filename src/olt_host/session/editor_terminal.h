// What the line editor takes for its terminal: a pseudo-terminal that carries no
// bytes and only holds modes and a window size, and a stream whose output is kept
// until the session sends it.
//
// Used by the session's thread.
#ifndef OLT_HOST_SESSION_EDITOR_TERMINAL_H
#define OLT_HOST_SESSION_EDITOR_TERMINAL_H

#include <cstdio>
#include <string>

#include "session/channel.h"

namespace olt_host {

class EditorTerminal {
 public:
  // Throws std::system_error when the system has no more pseudo-terminals.
  EditorTerminal();
  ~EditorTerminal();
  EditorTerminal(const EditorTerminal&) = delete;
  EditorTerminal& operator=(const EditorTerminal&) = delete;

  int descriptor() const { return _slave; }
  std::FILE* stream() const { return _stream; }

  // Sizes that the editor cannot work with are brought to the nearest one.
  void SetWindow(Channel::Window window);
  unsigned int columns() const { return _columns; }

  // Takes what was written to the stream, each line break as CR LF.
  std::string TakeOutput();
  // How much there is to take, what the stream still buffers not counted.
  std::size_t output_size() const { return _output.size(); }

 private:
  long Append(const char* bytes, unsigned long length) noexcept;
  void Close();

  int _master = -1;
  int _slave = -1;
  std::FILE* _stream = nullptr;
  std::string _output;
  unsigned int _columns = 80;
};

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_EDITOR_TERMINAL_H
