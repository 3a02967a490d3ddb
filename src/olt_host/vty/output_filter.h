// Sends the output of a command through the filters that its line asked for,
// whole lines, while it is written. One object a command, on its thread.
#ifndef OLT_HOST_VTY_OUTPUT_FILTER_H
#define OLT_HOST_VTY_OUTPUT_FILTER_H

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "vty/filter_syntax.h"

namespace olt_host {

// One filter: takes lines, without their line breaks, and hands on others.
class LineFilter {
 public:
  using Next = std::function<void(const std::string& line)>;

  virtual ~LineFilter() = default;
  virtual void Take(const std::string& line, const Next& next) = 0;
  // No line follows.
  virtual void End(const Next& next) { static_cast<void>(next); }
};

class OutputFilters {
 public:
  // Takes a line without its line break; false when nobody takes lines any more.
  using Sink = std::function<bool(const std::string& line)>;

  // kSave is not a filter of lines and is left to the sink.
  OutputFilters(const std::vector<Filter>& filters, Sink sink);

  // Bytes of the command; lines end in "\n" or "\r\n". False as the sink.
  bool Write(const char* bytes, std::size_t length);
  // The command is over: a last line without a line break counts as a line.
  void Finish();

 private:
  void Pass(std::size_t stage, const std::string& line);

  std::vector<std::unique_ptr<LineFilter>> _stages;
  Sink _sink;
  bool _open = true;
  std::string _line;  // begun and not ended
};

}  // namespace olt_host

#endif  // OLT_HOST_VTY_OUTPUT_FILTER_H
