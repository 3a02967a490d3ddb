#include "text/wrapping.h"

#include <algorithm>
#include <sstream>
#include <vector>

namespace olt_host {
namespace {

// On a screen that is narrower still, lines are too wide.
constexpr std::size_t kLeastRoom = 8;

// The parts of a text, each with the separator that ends it.
std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size() - 1) + 1;
    parts.push_back(text.substr(start, end - start));
    start = end;
  }
  return parts;
}

std::string WithoutBlanksAtEnd(const std::string& text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

class Wrapper {
 public:
  Wrapper(const std::string& head, std::size_t indent, std::size_t columns, const char* line_end)
      : _line(head),
        _width(DisplayWidth(head.substr(head.rfind('\n') + 1))),
        _indent(indent),
        _columns(columns),
        _line_end(line_end) {}

  // Adds what has to stay on one line as far as it fits one.
  void Add(const std::string& part, bool may_split) {
    const std::size_t width = DisplayWidth(WithoutBlanksAtEnd(part));
    if (_width + width >= _columns && may_split && _indent + width >= _columns) {
      for (const std::string& word : Split(part, ' ')) Add(word, false);
      return;
    }
    if (_width + width >= _columns && _width > _indent) Break();
    const bool fresh = _width == _indent && !_text.empty();
    AddCut(fresh ? part.substr(std::min(part.find_first_not_of(' '), part.size())) : part, width);
  }

  std::string Take() {
    Break();
    return _text;
  }

 private:
  void AddCut(const std::string& part, std::size_t width) {
    std::size_t start = 0;
    while (_width + width >= _columns && width > 1) {
      const std::size_t room = std::min(_columns - 1 - std::min(_columns - 2, _width), width);
      const std::size_t taken = BytesOf(part.substr(start), room);
      _line += part.substr(start, taken);
      start += taken;
      width -= room;
      Break();
    }
    _line += part.substr(start);
    _width += DisplayWidth(part.substr(start));
  }

  void Break() {
    _text += WithoutBlanksAtEnd(_line) + _line_end;
    _line.assign(_indent, ' ');
    _width = _indent;
  }

  std::string _text;
  std::string _line;
  std::size_t _width;
  const std::size_t _indent;
  const std::size_t _columns;
  const char* const _line_end;
};

}  // namespace

std::string Wrap(const std::string& head, const std::string& text, std::size_t indent,
                 std::size_t columns) {
  Wrapper wrapper(head, indent, std::max(columns, indent + kLeastRoom), "\r\n");
  for (const std::string& item : Split(text, ';')) wrapper.Add(item, true);
  return wrapper.Take();
}

std::string WrapWords(const std::string& head, const std::string& text, std::size_t indent) {
  Wrapper wrapper(head, indent, kScreenColumns, "\n");
  std::istringstream words(text);
  for (std::string word; words >> word;) wrapper.Add(word + " ", false);
  return wrapper.Take();
}

std::string WrapWords(const std::string& head, const std::string& text) {
  return WrapWords(head, text, DisplayWidth(head));
}

}  // namespace olt_host
