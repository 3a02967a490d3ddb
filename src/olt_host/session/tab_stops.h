// Tabs made fit for a screen. The library's listings stand in columns that tabs
// divide, and with the usual stops their lines are wider than 80 columns.
#ifndef OLT_HOST_SESSION_TAB_STOPS_H
#define OLT_HOST_SESSION_TAB_STOPS_H

#include <cstddef>
#include <string>

namespace olt_host {

// The text with blanks for its tabs: up to the next of the stops that stand 8 columns
// apart or, where a line with tabs would not fit then, the fewest more with which all
// do. Blanks at the end of such lines are left out.
std::string ExpandTabs(const std::string& text, std::size_t columns);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_TAB_STOPS_H
