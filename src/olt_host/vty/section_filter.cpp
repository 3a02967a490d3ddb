#include "vty/section_filter.h"

namespace olt_host {
namespace {

constexpr std::size_t kFewestStars = 8;

bool IsLineOfStars(const std::string& line) {
  const std::size_t length = line.find_last_not_of(' ') + 1;
  return length >= kFewestStars && line.find_first_not_of('*') >= length;
}

}  // namespace

void SectionFilter::Take(const std::string& line, const Next& next) {
  const bool stars = IsLineOfStars(line);
  if (_block.empty() && !stars) {
    TakeOutsideBlocks(line, next);
    return;
  }
  const bool closes = stars && !_block.empty();
  _in_section = false;
  _block.push_back(line);
  _block_matches = _block_matches || Holds(line);
  if (!closes) return;
  if (_block_matches) {
    for (const std::string& kept : _block) next(kept);
  }
  _block.clear();
  _block_matches = false;
}

void SectionFilter::End(const Next& next) {
  for (const std::string& line : _block) TakeOutsideBlocks(line, next);
  _block.clear();
}

void SectionFilter::TakeOutsideBlocks(const std::string& line, const Next& next) {
  const std::size_t depth = line.find_first_not_of(" \t");
  const bool blank = depth == std::string::npos;
  if (_in_section && !blank && depth > _depth) {
    next(line);
    return;
  }
  _in_section = Holds(line);
  if (!_in_section) return;
  _depth = blank ? 0 : depth;
  next(line);
}

}  // namespace olt_host
