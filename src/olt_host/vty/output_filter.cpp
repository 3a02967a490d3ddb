#include "vty/output_filter.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "vty/section_filter.h"

namespace olt_host {
namespace {

class PatternFilter : public LineFilter {
 public:
  explicit PatternFilter(std::string text) : _text(std::move(text)) {}

 protected:
  bool Holds(const std::string& line) const { return line.find(_text) != std::string::npos; }

 private:
  const std::string _text;
};

class Include : public PatternFilter {
 public:
  using PatternFilter::PatternFilter;
  void Take(const std::string& line, const Next& next) override {
    if (Holds(line)) next(line);
  }
};

class Exclude : public PatternFilter {
 public:
  using PatternFilter::PatternFilter;
  void Take(const std::string& line, const Next& next) override {
    if (!Holds(line)) next(line);
  }
};

class Begin : public PatternFilter {
 public:
  using PatternFilter::PatternFilter;
  void Take(const std::string& line, const Next& next) override {
    _begun = _begun || Holds(line);
    if (_begun) next(line);
  }

 private:
  bool _begun = false;
};

class Count : public PatternFilter {
 public:
  using PatternFilter::PatternFilter;
  void Take(const std::string& line, const Next&) override {
    if (Holds(line)) ++_lines;
  }
  void End(const Next& next) override { next(std::to_string(_lines)); }

 private:
  unsigned long long _lines = 0;
};

std::unique_ptr<LineFilter> MakeFilter(const Filter& filter) {
  switch (filter.kind) {
    case FilterKind::kInclude:
      return std::make_unique<Include>(filter.text);
    case FilterKind::kExclude:
      return std::make_unique<Exclude>(filter.text);
    case FilterKind::kBegin:
      return std::make_unique<Begin>(filter.text);
    case FilterKind::kSection:
      return std::make_unique<SectionFilter>(filter.text);
    case FilterKind::kCount:
      return std::make_unique<Count>(filter.text);
    case FilterKind::kSave:
      break;
  }
  return nullptr;
}

}  // namespace

OutputFilters::OutputFilters(const std::vector<Filter>& filters, Sink sink)
    : _sink(std::move(sink)) {
  for (const Filter& filter : filters) {
    std::unique_ptr<LineFilter> stage = MakeFilter(filter);
    if (stage != nullptr) _stages.push_back(std::move(stage));
  }
}

bool OutputFilters::Write(const char* bytes, std::size_t length) {
  const char* const end = bytes + length;
  while (_open && bytes != end) {
    const char* const line_end = std::find(bytes, end, '\n');
    _line.append(bytes, line_end);
    if (line_end == end) break;
    if (!_line.empty() && _line.back() == '\r') _line.pop_back();
    Pass(0, _line);
    _line.clear();
    bytes = line_end + 1;
  }
  return _open;
}

void OutputFilters::Finish() {
  if (!_line.empty()) Pass(0, std::exchange(_line, std::string()));
  for (std::size_t stage = 0; stage < _stages.size(); ++stage) {
    _stages[stage]->End([this, stage](const std::string& line) { Pass(stage + 1, line); });
  }
}

void OutputFilters::Pass(std::size_t stage, const std::string& line) {
  if (stage < _stages.size()) {
    _stages[stage]->Take(line,
                         [this, stage](const std::string& passed) { Pass(stage + 1, passed); });
  } else if (_open) {
    _open = _sink(line);
  }
}

}  // namespace olt_host
