// Short texts in columns, as many as a screen holds.
#ifndef OLT_HOST_SESSION_COLUMNS_H
#define OLT_HOST_SESSION_COLUMNS_H

#include <cstddef>
#include <string>
#include <vector>

namespace olt_host {

// Lines ending in "\r\n" that stay within `width`, unless one text alone is wider;
// read down the columns.
std::string InColumns(const std::vector<std::string>& texts, std::size_t width);

}  // namespace olt_host

#endif  // OLT_HOST_SESSION_COLUMNS_H
