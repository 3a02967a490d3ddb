// Breaks long texts into lines that fit a screen.
#ifndef OLT_HOST_VTY_WRAPPING_H
#define OLT_HOST_VTY_WRAPPING_H

#include <cstddef>
#include <string>

namespace olt_host {

constexpr std::size_t kScreenColumns = 80;

// `head` and `text` behind it, in lines of less than `columns` columns that end
// in "\r\n"; every line but the first begins with `indent` blanks. A text of items
// that end in ';' is broken behind them where it can be, any other text at blanks,
// and a word that is longer than a line anywhere. Behind the indent there is room for
// some characters however few columns there are.
std::string Wrap(const std::string& head, const std::string& text, std::size_t indent,
                 std::size_t columns = kScreenColumns);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_WRAPPING_H
