// Text of operators made fit for a terminal, and the caret under a place in it.
#ifndef OLT_HOST_VTY_PLACE_H
#define OLT_HOST_VTY_PLACE_H

#include <cstddef>
#include <string>

namespace olt_host {

// The text with control characters as '?' and tabs as blanks, so that it can
// neither steer a terminal nor shift a caret.
std::string Printable(const std::string& text);

// Whether the byte begins a character of UTF-8 or is one of its own.
bool StartsCharacter(char c);

// Columns that the text takes, a character of UTF-8 as one.
std::size_t DisplayWidth(const std::string& text);

// The line behind `before`, and a caret under byte `column` of it (which may lie
// behind its end), both with a line break. A line that does not fit 80 columns is cut
// around the place, the cuts shown as "...".
std::string LineWithCaret(const std::string& before, const std::string& line, std::size_t column);

// The caret alone, for a line that is on the screen behind `before`.
std::string CaretUnder(const std::string& before, const std::string& line, std::size_t column);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_PLACE_H
