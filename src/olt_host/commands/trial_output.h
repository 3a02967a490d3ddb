// What an operator is told about a tried change, as text and as JSON.
#ifndef OLT_HOST_COMMANDS_TRIAL_OUTPUT_H
#define OLT_HOST_COMMANDS_TRIAL_OUTPUT_H

#include <string>

#include "commands/tried_change.h"
#include "vty/terminal.h"

namespace olt_host {

// "1 line", "3 lines".
std::string LinesText(std::size_t lines);

// What the lines would do to the live ONUs, and how to go on.
void WriteTrial(struct vty& terminal, const TriedChange& tried);
// `answer` is what the tried command itself wrote.
void WriteTrialJson(struct vty& terminal, const TriedChange& tried, const std::string& answer);

// What waits, of the session and of the whole host; `tried` may be null.
void WriteTrialState(struct vty& terminal, const TriedChange* tried);
void WriteTrialStateJson(struct vty& terminal, const TriedChange* tried);

// "the change of anna (session 2) waits for try commit, for 4m 10s more".
std::string WaitingText();

}  // namespace olt_host

#endif  // OLT_HOST_COMMANDS_TRIAL_OUTPUT_H
