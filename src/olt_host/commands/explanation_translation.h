// The translation of an ONU's type in sentences.
#ifndef OLT_HOST_COMMANDS_EXPLANATION_TRANSLATION_H
#define OLT_HOST_COMMANDS_EXPLANATION_TRANSLATION_H

#include <string>
#include <vector>

#include "recognition/explanation.h"

namespace olt_host {

// "762 instead of 9001, by HGU mode 2", "9001".
std::string OutcomeText(const Explanation& explanation);

// A sentence a step, the last with the outcome.
std::vector<std::string> TranslationSteps(const Explanation& explanation);

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_EXPLANATION_TRANSLATION_H
