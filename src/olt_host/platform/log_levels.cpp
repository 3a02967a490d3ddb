#include "platform/log_levels.h"

#include <sstream>

namespace olt_host {

namespace {

constexpr unsigned int kLevels = 32;
constexpr unsigned int kAllLevels = 0xFFFFFFFF;

// One level, 0 to 31.
std::optional<unsigned int> ParseLevel(const std::string& text) {
  if (text.empty() || text.size() > 2 ||
      text.find_first_not_of("0123456789") != std::string::npos) {
    return std::nullopt;
  }
  const auto level = static_cast<unsigned int>(std::stoul(text));
  return level < kLevels ? std::optional(level) : std::nullopt;
}

}  // namespace

std::optional<unsigned int> ParseLogLevels(const std::string& text) {
  if (text == "all") {
    return kAllLevels;
  }
  if (text == "none") {
    return 0;
  }
  unsigned int mask = 0;
  std::istringstream list(text);
  for (std::string item; std::getline(list, item, ',');) {
    const auto level = ParseLevel(item);
    if (!level) {
      return std::nullopt;
    }
    mask |= 1U << *level;
  }
  const bool complete = !text.empty() && text.back() != ',';
  return complete ? std::optional(mask) : std::nullopt;
}

std::string LogLevelsText(unsigned int mask) {
  if (mask == kAllLevels) {
    return "all";
  }
  std::string text;
  for (unsigned int level = 0; level < kLevels; ++level) {
    if (((mask >> level) & 1U) != 0) {
      text += (text.empty() ? "" : ",") + std::to_string(level);
    }
  }
  return text.empty() ? "none" : text;
}

const std::vector<LogLevelMeaning>& LogLevelMeanings() {
  static const std::vector<LogLevelMeaning> kMeanings = {
      {0, "rejected input that breaks a rule"},
      {1, "lookups that found nothing, refusals, failed queries"},
      {4, "progress of profiles and of type confirmation"},
      {5, "results handed back and compared values"},
      {6, "walks over the registries, derived counts"},
      {9, "successful finds"},
      {10, "start and end of functions, the most frequent"},
      {13, "null pointers, profiles that do not pack or unpack"},
  };
  return kMeanings;
}

}  // namespace olt_host
