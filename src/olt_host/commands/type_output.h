// What operators and programs see of the ONU types: which can do something, and how two
// differ. As text on a terminal, and as JSON.
#ifndef OLT_HOST_COMMANDS_TYPE_OUTPUT_H
#define OLT_HOST_COMMANDS_TYPE_OUTPUT_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "recognition/real_types.h"
#include "vty/terminal.h"

namespace olt_host {

// The types for which `expression` holds, with what each has of the abilities that it
// asks about; all types when it is empty. Both throw ExpressionError.
void WriteTypes(struct vty& terminal, const std::string& expression);
nlohmann::ordered_json TypesJson(const std::string& expression);

// The abilities in which the types called `a` and `b` differ, then those that are alike.
// Both throw TypeNameError.
void WriteTypeComparison(struct vty& terminal, const std::string& a, const std::string& b);
nlohmann::ordered_json TypeComparisonJson(const std::string& a, const std::string& b);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_TYPE_OUTPUT_H
