// What an operator's line says, before anything is done about it.
#ifndef OLT_HOST_VTY_PARSED_LINE_H
#define OLT_HOST_VTY_PARSED_LINE_H

#include <cstddef>
#include <string>
#include <vector>

#include "vty/filter_syntax.h"
#include "vty/matcher.h"

namespace olt_host {

struct ParsedLine {
  bool blank = false;           // nothing but blanks, or a remark
  Match match;                  // of the words before the filters
  std::size_t column = 0;       // of the command's first word
  std::vector<Filter> filters;  // complete only without an error
  std::string error;            // without "% "; empty for a line that can be run
  std::size_t error_column = 0;
  // Whether errors are to be told in JSON: the command's last word is its keyword
  // json; or the words mean no command, begin like "show" and end in json.
  bool wants_json = false;
};

// Whether the line asks for nothing: blanks, or a remark after '!'.
bool IsBlankLine(const std::string& line);

ParsedLine ParseLine(unsigned int node, const std::string& line);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_PARSED_LINE_H
