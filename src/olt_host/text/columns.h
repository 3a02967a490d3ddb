// Text on a screen: what fits a line, and how wide a text is.
#ifndef OLT_HOST_TEXT_COLUMNS_H
#define OLT_HOST_TEXT_COLUMNS_H

#include <cstddef>
#include <string>

namespace olt_host {

constexpr std::size_t kScreenColumns = 80;
// The last column stays empty: in it some terminals begin the next line.
constexpr std::size_t kLineColumns = kScreenColumns - 1;

// The text with control characters as '?' and tabs as blanks, so that it can
// neither steer a terminal nor shift a caret.
std::string Printable(const std::string& text);

// Whether the byte begins a character of UTF-8 or is one of its own.
bool StartsCharacter(char c);

// Columns that the text takes, a character of UTF-8 as one.
std::size_t DisplayWidth(const std::string& text);

// Bytes of the first `columns` characters.
std::size_t BytesOf(const std::string& text, std::size_t columns);

}  // namespace olt_host

#endif  // OLT_HOST_TEXT_COLUMNS_H
