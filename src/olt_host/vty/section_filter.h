// The filter that keeps what belongs together: a matching line with the more
// deeply indented lines behind it; where a listing has blocks between two lines
// of stars, as the listings of profiles and codes do, the whole block that holds
// a match.
#ifndef OLT_HOST_VTY_SECTION_FILTER_H
#define OLT_HOST_VTY_SECTION_FILTER_H

#include <cstddef>
#include <string>
#include <vector>

#include "vty/output_filter.h"

namespace olt_host {

class SectionFilter : public LineFilter {
 public:
  explicit SectionFilter(std::string text) : _text(std::move(text)) {}

  void Take(const std::string& line, const Next& next) override;
  // A block that was not closed was none: its lines count one by one.
  void End(const Next& next) override;

 private:
  bool Holds(const std::string& line) const { return line.find(_text) != std::string::npos; }
  void TakeOutsideBlocks(const std::string& line, const Next& next);

  const std::string _text;
  bool _in_section = false;
  std::size_t _depth = 0;           // of the section's first line
  std::vector<std::string> _block;  // from its line of stars on; empty outside blocks
  bool _block_matches = false;
};

}  // namespace olt_host

#endif  // OLT_HOST_VTY_SECTION_FILTER_H
