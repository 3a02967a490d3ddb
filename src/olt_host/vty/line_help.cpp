#include "vty/line_help.h"

#include <algorithm>

#include "text/columns.h"
#include "text/wrapping.h"
#include "vty/line_position.h"
#include "vty/parsed_line.h"

namespace olt_host {
namespace {

constexpr std::size_t kMostValues = 20;
constexpr std::size_t kMargin = 2;
// Longer tokens have a line of their own.
constexpr std::size_t kWidestToken = 34;

// A token with all that commands say of it, and its known values.
struct Entry {
  HelpLine line;
  std::vector<std::string> said;
  std::vector<ValueHint> values;
};

void Describe(Entry& entry, const std::string& help) {
  if (help.empty() || std::find(entry.said.begin(), entry.said.end(), help) != entry.said.end()) {
    return;
  }
  entry.said.push_back(help);
  entry.line.help += (entry.line.help.empty() ? "" : "; ") + help;
}

Entry& EntryFor(std::vector<Entry>& entries, const std::string& token) {
  const auto found = std::find_if(entries.begin(), entries.end(), [&token](const Entry& entry) {
    return entry.line.token == token;
  });
  if (found != entries.end()) return *found;
  entries.push_back(Entry{{token, ""}, {}, {}});
  return entries.back();
}

void AddValues(const Entry& entry, std::vector<HelpLine>& lines) {
  const std::size_t shown = std::min(kMostValues, entry.values.size());
  for (std::size_t i = 0; i < shown; ++i) {
    lines.push_back({"  " + entry.values[i].value, entry.values[i].help});
  }
  if (shown < entry.values.size()) {
    lines.push_back({"  ... and " + std::to_string(entry.values.size() - shown) + " more", ""});
  }
}

}  // namespace

std::vector<HelpLine> HelpFor(unsigned int node, const std::string& text, std::string* error,
                              std::size_t* error_column) {
  const LinePosition position = FindPosition(node, text);
  std::vector<Entry> entries;
  for (const Token& token : position.tokens) {
    if (!MayBecome(position.typed, token)) continue;
    Entry& entry = EntryFor(entries, token.text);
    Describe(entry, token.help);
    for (const ValueHint& value : KnownValues(token, position.typed)) {
      const bool listed =
          std::any_of(entry.values.begin(), entry.values.end(),
                      [&value](const ValueHint& other) { return other.value == value.value; });
      if (!listed) entry.values.push_back(value);
    }
  }
  std::vector<HelpLine> lines;
  for (const Entry& entry : entries) {
    lines.push_back(entry.line);
    AddValues(entry, lines);
  }
  if (position.may_end && !position.typed) lines.push_back({"<cr>", ""});
  const ParsedLine parsed = lines.empty() ? ParseLine(node, text) : ParsedLine();
  if (error != nullptr) *error = parsed.error;
  if (error_column != nullptr) *error_column = parsed.error_column;
  return lines;
}

std::string RenderHelp(const std::vector<HelpLine>& lines, std::size_t columns) {
  std::size_t widest = 0;
  for (const HelpLine& line : lines) {
    const std::size_t width = DisplayWidth(line.token);
    if (width <= kWidestToken) widest = std::max(widest, width);
  }
  const std::size_t indent = kMargin + widest + kMargin;
  std::string text;
  for (const HelpLine& line : lines) {
    std::string head = std::string(kMargin, ' ') + Printable(line.token);
    const std::size_t width = DisplayWidth(head);
    if (width + kMargin > indent && !line.help.empty()) {
      text += head + "\r\n";
      head.assign(indent, ' ');
    } else if (width < indent) {
      head.append(indent - width, ' ');
    }
    text += Wrap(head, Printable(line.help), indent, columns);
  }
  return text;
}

}  // namespace olt_host
