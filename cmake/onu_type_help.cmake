# Turns the list of an installation's ONU types (INPUT, "code model-name" a line)
# into a header (OUTPUT) with the help text "code:model-name;..." as a literal.
# Blank lines and lines that start with '#' are skipped. A line that does not fit
# stops the build with its number.
cmake_minimum_required(VERSION 3.25)

if(NOT EXISTS "${INPUT}")
  message(FATAL_ERROR "${INPUT}: no such file; expected the ONU types, 'code model-name' a line")
endif()
file(READ "${INPUT}" content)
# A list would lose empty lines and split at semicolons: walk the text instead.
string(REPLACE "\r\n" "\n" content "${content}")

set(help "")
set(seen_codes ";")
set(number 0)
while(NOT content STREQUAL "")
  math(EXPR number "${number} + 1")
  string(FIND "${content}" "\n" end)
  if(end EQUAL -1)
    set(line "${content}")
    set(content "")
  else()
    string(SUBSTRING "${content}" 0 ${end} line)
    math(EXPR end "${end} + 1")
    string(SUBSTRING "${content}" ${end} -1 content)
  endif()
  if(line MATCHES "^[ \t]*$" OR line MATCHES "^#")
    continue()
  endif()
  set(expected "expected 'code model-name'")
  if(NOT line MATCHES "^([0-9]+) +([^ \t].*)$")
    message(FATAL_ERROR "${INPUT}:${number}: '${line}' is no ONU type; ${expected}")
  endif()
  set(code "${CMAKE_MATCH_1}")
  string(STRIP "${CMAKE_MATCH_2}" name)
  string(LENGTH "${code}" digits)
  if(digits GREATER 5 OR code GREATER 65535)
    message(FATAL_ERROR "${INPUT}:${number}: code ${code} is out of range; expected 0 to 65535")
  endif()
  # The characters that a C literal or the help text's own form would take amiss.
  if(name MATCHES "[\"\\;:]" OR NOT name MATCHES "^[ -~]+$")
    message(FATAL_ERROR "${INPUT}:${number}: model name '${name}' has a character that the help "
      "text cannot show; expected printable ASCII without quotes, backslash, ':' and ';'")
  endif()
  if(seen_codes MATCHES ";${code};")
    message(FATAL_ERROR "${INPUT}:${number}: code ${code} is listed twice; expected each once")
  endif()
  string(APPEND seen_codes "${code};")
  string(APPEND help "  \"${code}:${name};\" \\\n")
endwhile()
if(help STREQUAL "")
  message(FATAL_ERROR "${INPUT}: no ONU type in it; expected 'code model-name' a line")
endif()

file(WRITE "${OUTPUT}" "// Made from the installation's list of ONU types; do not edit.
#ifndef ONU_TYPE_HELP_H
#define ONU_TYPE_HELP_H

#define ONU_TYPE_HELP \\
${help}  \"\"

#endif  // ONU_TYPE_HELP_H
")
