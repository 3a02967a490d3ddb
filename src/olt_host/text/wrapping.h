// Breaks long texts into lines that fit a screen.
#ifndef OLT_HOST_TEXT_WRAPPING_H
#define OLT_HOST_TEXT_WRAPPING_H

#include <cstddef>
#include <string>

#include "text/columns.h"

namespace olt_host {

// `head` and `text` behind it, in lines of less than `columns` columns that end
// in "\r\n"; every line but the first begins with `indent` blanks. A text of items
// that end in ';' is broken behind them where it can be, any other text at blanks,
// and a word that is longer than a line anywhere. Behind the indent there is room for
// some characters however few columns there are.
std::string Wrap(const std::string& head, const std::string& text, std::size_t indent,
                 std::size_t columns = kScreenColumns);

// The same for 80 columns, with lines that end in "\n", and broken at blanks alone; several
// together count as one.
std::string WrapWords(const std::string& head, const std::string& text, std::size_t indent);
// The further lines begin under the text.
std::string WrapWords(const std::string& head, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_TEXT_WRAPPING_H
