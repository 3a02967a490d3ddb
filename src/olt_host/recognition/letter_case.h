// Capitals and small letters of ASCII; all other bytes stay as they are.
#ifndef OLT_HOST_RECOGNITION_LETTER_CASE_H
#define OLT_HOST_RECOGNITION_LETTER_CASE_H

#include <string>

namespace olt_host {

inline std::string LowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

}  // namespace olt_host

#endif  // OLT_HOST_RECOGNITION_LETTER_CASE_H
