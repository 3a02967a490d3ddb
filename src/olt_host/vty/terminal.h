// One operator's terminal, as command handlers see it: the record behind the
// opaque `struct vty` of the platform interface. It formats text and hands the
// bytes to a sink (standard output, a socket, a string); it reads nothing.
//
// Owned by the session that runs commands on it, and used by the thread that
// runs them. A terminal whose other end is gone swallows what is written, so
// that a handler never has to look.
#ifndef OLT_HOST_VTY_TERMINAL_H
#define OLT_HOST_VTY_TERMINAL_H

#include <cstddef>
#include <functional>
#include <string>

#include "vty.h"
#include "vty/session_settings.h"

struct vty {
 public:
  // Takes `length` bytes to the operator; false when the other end is gone.
  using Sink = std::function<bool(const char* bytes, std::size_t length)>;

  // A terminal on which the commands of `command_node` are offered.
  vty(unsigned int command_node, Sink sink);
  vty(const vty&) = delete;
  vty& operator=(const vty&) = delete;

  // Hands the bytes on as they are; nothing once the terminal is not alive.
  void Write(const char* bytes, std::size_t length);

  // False after Close, and once the sink has reported that the other end is
  // gone. A session ends then.
  bool alive() const { return _alive; }
  void Close() { _alive = false; }

  // Sends what is written from now on to `sink`; returns the sink before it.
  Sink Redirect(Sink sink);

  unsigned int node() const { return _node; }

  // What belongs to the operator's session and outlasts a command.
  olt_host::SessionSettings& settings() { return _settings; }
  const olt_host::SessionSettings& settings() const { return _settings; }

  // A handler that cannot do what it was asked says why, in one line without
  // line break, and returns the result of this call. The framework shows the
  // message in the form that the operator asked for, text or JSON.
  int Refuse(const std::string& message);
  // Takes the message of the last Refuse; empty when there was none.
  std::string TakeRefusal();

 private:
  unsigned int _node;
  Sink _sink;
  bool _alive = true;
  olt_host::SessionSettings _settings;
  std::string _refusal;
};

#endif  // OLT_HOST_VTY_TERMINAL_H
