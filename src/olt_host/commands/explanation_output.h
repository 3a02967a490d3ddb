// An explanation for the eye and for programs.
#ifndef OLT_HOST_COMMANDS_EXPLANATION_OUTPUT_H
#define OLT_HOST_COMMANDS_EXPLANATION_OUTPUT_H

#include <nlohmann/json.hpp>

#include "recognition/explanation.h"
#include "vty/terminal.h"

namespace olt_host {

// Of an ONU of Host().population, as Host() is now. On the command thread.
Explanation ExplainLiveOnu(const OnuReport& report);

// What follows from the report in short, then each part of it. Of profiles that lost the
// nearest ten, and of those never asked the first ten that fit, unless `all` are asked for:
// those in the order of their turns.
void WriteExplanation(struct vty& terminal, const Explanation& explanation, bool all);

// Everything, always with all profiles.
nlohmann::ordered_json ExplanationJson(const Explanation& explanation);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_EXPLANATION_OUTPUT_H
