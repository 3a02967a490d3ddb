// Lines of reports that had to be left out.
#ifndef OLT_HOST_NETWORK_REFUSED_LINES_H
#define OLT_HOST_NETWORK_REFUSED_LINES_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <tuple>

namespace olt_host {

// A line that is no report, and why.
struct RefusedLine {
  std::string file;
  std::uint64_t line = 0;
  std::string problem;  // "problem; expected ..."

  // "FILE:LINE: problem; expected ..."
  std::string Text() const;
  bool operator<(const RefusedLine& other) const {
    return std::tie(file, line) < std::tie(other.file, other.line);
  }
};

// How many lines were left out, and the first few of them.
class RefusedLines {
 public:
  void Add(RefusedLine line);
  void Merge(const RefusedLines& other);

  std::uint64_t count() const { return _count; }
  const std::set<RefusedLine>& first() const { return _first; }

  // For people: how many and the first of them, after an empty line; "" for none.
  std::string Text() const;

  nlohmann::ordered_json ToJson() const;
  // Throws nlohmann::json::exception or std::runtime_error for another document.
  static RefusedLines FromJson(const nlohmann::ordered_json& json);

 private:
  std::uint64_t _count = 0;
  std::set<RefusedLine> _first;
};

}  // namespace olt_host

#endif  // OLT_HOST_NETWORK_REFUSED_LINES_H
