// JSON on a terminal: one document, indented, its lines ending in "\r\n".
#ifndef OLT_HOST_VTY_JSON_OUTPUT_H
#define OLT_HOST_VTY_JSON_OUTPUT_H

#include <nlohmann/json.hpp>

#include "vty/terminal.h"

namespace olt_host {

// Texts that are no UTF-8 are shown with replacement characters.
void WriteJson(struct vty& terminal, const nlohmann::ordered_json& document);

// Whether a handler was asked for JSON: its last argument is the keyword json.
bool WantsJson(int argc, char** argv);

}  // namespace olt_host

#endif  // OLT_HOST_VTY_JSON_OUTPUT_H
