// A line of an operator, and the caret under a place in it.
#ifndef OLT_HOST_VTY_PLACE_H
#define OLT_HOST_VTY_PLACE_H

#include <cstddef>
#include <string>

namespace olt_host {

// The line behind `before`, and a caret under byte `column` of it (which may lie
// behind its end), both with a line break. A line that does not fit 80 columns is cut
// around the place, the cuts shown as "...".
std::string LineWithCaret(const std::string& before, const std::string& line, std::size_t column);

// The caret alone, for a line that is on the screen behind `before`.
std::string CaretUnder(const std::string& before, const std::string& line, std::size_t column);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_PLACE_H
