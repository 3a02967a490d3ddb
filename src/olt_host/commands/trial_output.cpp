#include "commands/trial_output.h"

#include <sstream>
#include <vector>

#include "commands/host_context.h"
#include "commands/text_table.h"
#include "commands/time_text.h"
#include "recognition/difference_text.h"
#include "vty/json_output.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

void WriteText(struct vty& terminal, const std::string& text) {
  WriteWrapped(terminal, "", text, 0);
}

DifferenceView ViewOf(const TriedChange& tried) {
  static const std::vector<std::string> no_files;
  return {tried.difference, no_files, "the library as it is", "the tried change"};
}

Json LinesOf(const std::string& text) {
  Json lines = Json::array();
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

Json TrialJson(const TriedChange& tried) {
  Json json = {{"lines", tried.lines}, {"changes_library", tried.ChangesLibrary()}};
  json.update(DifferenceJson(ViewOf(tried)));
  return json;
}

}  // namespace

std::string LinesText(std::size_t lines) {
  return std::to_string(lines) + (lines == 1 ? " line" : " lines");
}

void WriteTrial(struct vty& terminal, const TriedChange& tried) {
  if (!tried.ChangesLibrary()) {
    WriteText(terminal, "So far the library would stay as it is (" + LinesText(tried.lines) +
                            " tried). A profile that is built counts once it is applied: go on "
                            "with \"try set\" and \"try apply\".");
    return;
  }
  WriteLines(terminal, "\n" + DifferenceText(ViewOf(tried)) + "\n");
  WriteText(terminal, "Nothing is changed yet (" + LinesText(tried.lines) +
                          " tried). \"try commit\" makes it so, \"try commit confirmed MINUTES\" "
                          "for a while, \"try drop\" forgets it.");
}

void WriteTrialJson(struct vty& terminal, const TriedChange& tried, const std::string& answer) {
  Json json = {{"answer", LinesOf(answer)}};
  json.update(TrialJson(tried));
  WriteJson(terminal, json);
}

std::string WaitingText() {
  const UnconfirmedChange& unconfirmed = Host().unconfirmed;
  return "the change of " + unconfirmed.maker() + " waits for \"try commit\", for " +
         DurationText(unconfirmed.Left(Host().clock())) + " more";
}

void WriteTrialState(struct vty& terminal, const TriedChange* tried) {
  const UnconfirmedChange& unconfirmed = Host().unconfirmed;
  if (unconfirmed.Waits()) {
    WriteText(terminal, "Now " + WaitingText() + "; then, or with \"try drop\", it goes back.");
  } else if (!unconfirmed.end().empty()) {
    WriteText(terminal, "Last, " + unconfirmed.end() + ".");
  }
  if (tried == nullptr) {
    WriteText(terminal,
              "You have tried nothing. \"try\" before add, set, apply, del or update shows what "
              "the line would do to the live ONUs.");
  } else {
    WriteTrial(terminal, *tried);
  }
}

void WriteTrialStateJson(struct vty& terminal, const TriedChange* tried) {
  const UnconfirmedChange& unconfirmed = Host().unconfirmed;
  Json waiting = nullptr;
  if (unconfirmed.Waits()) {
    waiting = {{"by", unconfirmed.maker()},
               {"seconds_left", unconfirmed.Left(Host().clock()).count()}};
  }
  WriteJson(terminal, Json{{"tried", tried == nullptr ? Json(nullptr) : TrialJson(*tried)},
                           {"unconfirmed", waiting},
                           {"last_end", unconfirmed.end()}});
}

}  // namespace olt_host
