// Texts for a screen of 80 columns.
#ifndef OLT_HOST_RECOGNITION_WRAPPED_TEXT_H
#define OLT_HOST_RECOGNITION_WRAPPED_TEXT_H

#include <string>

namespace olt_host {

// A terminal that is written to its last column may break the line itself.
constexpr std::size_t kTextColumns = 79;

// Characters, not bytes.
std::size_t WidthOf(const std::string& text);

// `text` behind `title`, broken between words; the other lines begin with as many blanks as
// the title takes. Lines end in "\n".
std::string Wrapped(const std::string& title, const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_WRAPPED_TEXT_H
