// Decimal numbers as operators and syntax strings write them.
#ifndef OLT_HOST_TEXT_NUMBER_H
#define OLT_HOST_TEXT_NUMBER_H

#include <string>

namespace olt_host {

// Whether the text is digits only, and at least one.
bool IsAllDigits(const std::string& text);

// Reads digits up to 4294967295; false (and `number` unchanged) for anything
// else, a sign, a blank and a larger number included.
bool ReadNumber(const std::string& text, unsigned int& number);

}  // namespace olt_host

#endif  // OLT_HOST_TEXT_NUMBER_H
