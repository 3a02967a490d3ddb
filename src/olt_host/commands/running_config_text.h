// What the lines of a running configuration are made of.
#ifndef OLT_HOST_COMMANDS_RUNNING_CONFIG_TEXT_H
#define OLT_HOST_COMMANDS_RUNNING_CONFIG_TEXT_H

#include <string>

namespace olt_host {

// Whether an operator can type the text as one word and see it again: no control
// characters, and short enough that a line has room for the rest of its command.
bool IsTypable(const std::string& text);

// The text as a word of a line, in quotes unless it is plain. REQUIRES: IsTypable.
std::string AsWord(const std::string& text);

// A value in a remark: "7", "\"text\"".
std::string InRemark(const std::string& text);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_RUNNING_CONFIG_TEXT_H
