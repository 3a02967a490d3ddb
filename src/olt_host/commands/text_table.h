// What commands write as text: a table under headings, pairs of a name and a value,
// plain lines. Lines end in "\r\n" and, but for plain ones, fit 80 columns; control
// characters in them cannot steer the terminal.
#ifndef OLT_HOST_COMMANDS_TEXT_TABLE_H
#define OLT_HOST_COMMANDS_TEXT_TABLE_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "vty/terminal.h"

namespace olt_host {

// kPath: left, and cut at its front, because paths differ at their ends.
enum class Align { kLeft, kRight, kPath };

class TextTable {
 public:
  using Row = std::vector<std::string>;

  explicit TextTable(std::vector<std::pair<std::string, Align>> columns);

  // REQUIRES: a cell for every column.
  void Add(Row row);

  // Columns are as wide as their longest cell. When that is too much for a line, the
  // widest ones give way: their cells are cut, which "..." shows.
  void Write(struct vty& terminal) const;

 private:
  std::vector<std::size_t> Widths() const;

  std::vector<Align> _align;
  std::vector<Row> _rows;  // the headings first
};

// "  name            value", a line each, the names in a column. A value that does
// not fit goes on in the next line under its beginning.
void WritePairs(struct vty& terminal,
                const std::vector<std::pair<std::string, std::string>>& pairs);

// `head` and `text` behind it in lines that fit 80 columns; every line but the first begins
// with `indent` blanks.
void WriteWrapped(struct vty& terminal, const std::string& head, const std::string& text,
                  std::size_t indent);

// The text, whose lines end in "\n".
void WriteLines(struct vty& terminal, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_TEXT_TABLE_H
