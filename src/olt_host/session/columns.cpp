#include "session/columns.h"

#include <algorithm>

#include "text/columns.h"

namespace olt_host {

std::string InColumns(const std::vector<std::string>& texts, std::size_t width) {
  constexpr std::size_t kGap = 2;  // before every column
  std::size_t widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, DisplayWidth(text));
  // The last cell of a row stays free, so that no terminal wraps there.
  const std::size_t cell = widest + kGap;
  const std::size_t columns = std::max<std::size_t>(1, (width > 1 ? width - 1 : 1) / cell);
  const std::size_t rows = (texts.size() + columns - 1) / columns;
  std::string lines;
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t i = row; i < texts.size(); i += rows) {
      lines += std::string(kGap, ' ') + Printable(texts[i]);
      if (i + rows < texts.size()) lines += std::string(widest - DisplayWidth(texts[i]), ' ');
    }
    lines += "\r\n";
  }
  return lines;
}

}  // namespace olt_host
