#include "commands/text_table.h"

#include <algorithm>
#include <numeric>
#include <sstream>

#include "text/columns.h"
#include "text/wrapping.h"

namespace olt_host {

namespace {

constexpr std::size_t kGap = 2;

std::string Fitted(const std::string& text, std::size_t width, Align align) {
  const std::size_t columns = DisplayWidth(text);
  if (columns > width) {
    const std::string dots(std::min<std::size_t>(width, 3), '.');
    const std::size_t kept = width - dots.size();
    if (align == Align::kPath) return dots + text.substr(BytesOf(text, columns - kept));
    return text.substr(0, BytesOf(text, kept)) + dots;
  }
  const std::string blanks(width - columns, ' ');
  return align == Align::kRight ? blanks + text : text + blanks;
}

void WriteLine(struct vty& terminal, std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  line += "\r\n";
  terminal.Write(line.data(), line.size());
}

}  // namespace

TextTable::TextTable(std::vector<std::pair<std::string, Align>> columns) {
  Row headings;
  for (auto& [heading, align] : columns) {
    headings.push_back(std::move(heading));
    _align.push_back(align);
  }
  _rows.push_back(std::move(headings));
}

void TextTable::Add(Row row) {
  for (std::string& cell : row) {
    cell = Printable(cell);
  }
  _rows.push_back(std::move(row));
}

std::vector<std::size_t> TextTable::Widths() const {
  std::vector<std::size_t> widths(_align.size(), 0);
  for (const Row& row : _rows) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(widths[i], DisplayWidth(row[i]));
    }
  }
  const std::size_t room = kLineColumns - kGap * (widths.size() - 1);
  while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > room) {
    --*std::max_element(widths.begin(), widths.end());
  }
  return widths;
}

void TextTable::Write(struct vty& terminal) const {
  const std::vector<std::size_t> widths = Widths();
  for (const Row& row : _rows) {
    std::string line;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      line += (i == 0 ? "" : std::string(kGap, ' ')) + Fitted(row[i], widths[i], _align[i]);
    }
    WriteLine(terminal, line);
  }
}

void WritePairs(struct vty& terminal,
                const std::vector<std::pair<std::string, std::string>>& pairs) {
  std::size_t width = 0;
  for (const auto& [name, value] : pairs) {
    width = std::max(width, DisplayWidth(name));
  }
  const std::size_t begin = kGap + width + kGap;
  for (const auto& [name, value] : pairs) {
    std::string rest = Printable(value);
    std::string before = std::string(kGap, ' ') + Fitted(name, width + kGap, Align::kLeft);
    do {
      const std::size_t taken = BytesOf(rest, kLineColumns - begin);
      WriteLine(terminal, before + rest.substr(0, taken));
      rest.erase(0, taken);
      before = std::string(begin, ' ');
    } while (!rest.empty());
  }
}

void WriteWrapped(struct vty& terminal, const std::string& head, const std::string& text,
                  std::size_t indent) {
  const std::string lines = Wrap(head, Printable(text), indent);
  terminal.Write(lines.data(), lines.size());
}

void WriteLines(struct vty& terminal, const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    WriteLine(terminal, Printable(line));
  }
}

}  // namespace olt_host
