// The commands about the log.
#include <cstdlib>
#include <string>

#include "commands/host_commands.h"
#include "commands/host_context.h"
#include "commands/text_table.h"
#include "commands/time_text.h"
#include "platform/log_levels.h"
#include "platform/log_sink.h"
#include "vty/json_output.h"
#include "vty/terminal.h"

namespace olt_host {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kDefaultLines = 50;

std::string Text(const LogLine& line) {
  return LocalTimeTextWithMilliseconds(line.when) + " level " + std::to_string(line.level) +
         " module " + std::to_string(line.module_id) + " " + line.text +
         (line.times == 1 ? "" : " (" + std::to_string(line.times) + " times)");
}

Json ToJson(const LogLine& line) {
  return {{"time", UtcTimeText(line.when)},
          {"level", line.level},
          {"module", line.module_id},
          {"text", line.text},
          {"times", line.times}};
}

int ShowLog(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const bool json = WantsJson(argc, argv);
  const bool counted = argc > (json ? 1 : 0);
  const std::vector<LogLine> lines =
      RecentLogLines().Newest(counted ? std::strtoul(argv[0], nullptr, 10) : kDefaultLines);
  if (json) {
    Json list = Json::array();
    for (const LogLine& line : lines) {
      list.push_back(ToJson(line));
    }
    WriteJson(*vty, {{"log", list}});
    return 0;
  }
  std::string text = lines.empty() ? "No log lines\n" : "";
  for (const LogLine& line : lines) {
    text += Text(line) + "\n";
  }
  WriteLines(*vty, text);
  return 0;
}

std::string StreamName(const LogSettings& settings) {
  return settings.file.empty() ? "standard error" : settings.file;
}

int SetMask(cmd_element* /*element*/, struct vty* vty, int /*argc*/, char** argv) {
  const auto mask = ParseLogLevels(argv[0]);
  if (!mask) {
    return vty->Refuse("\"" + std::string(argv[0]) +
                       "\" is no list of levels, expected 0,1,13, all or none");
  }
  SetLogMask(*mask);
  const LogSettings settings = CurrentLogSettings();
  WriteLines(*vty, "Levels of the recent lines: " + LogLevelsText(settings.ring_mask) +
                       "\nLevels of " + StreamName(settings) + ": " + LogLevelsText(settings.mask) +
                       "\n");
  return 0;
}

bool Holds(unsigned int mask, unsigned int level) { return ((mask >> level) & 1U) != 0; }

Json MaskJson(const LogSettings& settings) {
  Json levels = Json::array();
  for (const LogLevelMeaning& entry : LogLevelMeanings()) {
    levels.push_back({{"level", entry.level},
                      {"meaning", entry.meaning},
                      {"recent", Holds(settings.ring_mask, entry.level)},
                      {"stream", Holds(settings.mask, entry.level)}});
  }
  return {{"recent", LogLevelsText(settings.ring_mask)},
          {"stream", LogLevelsText(settings.mask)},
          {"stream_to", StreamName(settings)},
          {"levels", levels}};
}

int ShowMask(cmd_element* /*element*/, struct vty* vty, int argc, char** argv) {
  const LogSettings settings = CurrentLogSettings();
  if (WantsJson(argc, argv)) {
    WriteJson(*vty, MaskJson(settings));
    return 0;
  }
  WritePairs(*vty, {{"Recent lines", LogLevelsText(settings.ring_mask)},
                    {"Stream", LogLevelsText(settings.mask) + ", to " + StreamName(settings)}});
  vty_out(vty, "\r\n");
  TextTable table({{"Level", Align::kRight},
                   {"Recent", Align::kLeft},
                   {"Stream", Align::kLeft},
                   {"Meaning", Align::kLeft}});
  for (const LogLevelMeaning& entry : LogLevelMeanings()) {
    table.Add({std::to_string(entry.level), Holds(settings.ring_mask, entry.level) ? "yes" : "-",
               Holds(settings.mask, entry.level) ? "yes" : "-", entry.meaning});
  }
  table.Write(*vty);
  return 0;
}

cmd_element show_log_cmd = {"show log {<1-1000>}*1 {[json]}*1", ShowLog,
                            "show what the host holds\r\n"
                            "recent log lines\r\n"
                            "how many of them, 50 unless given\r\n"
                            "as a JSON document\r\n"};

cmd_element log_mask_cmd = {"log mask <string>", SetMask,
                            "what is logged\r\n"
                            "the levels that are logged\r\n"
                            "levels such as 0,1,13, or all, or none\r\n"};

cmd_element show_log_mask_cmd = {"show log mask {[json]}*1", ShowMask,
                                 "show what the host holds\r\n"
                                 "recent log lines\r\n"
                                 "the levels that are logged, and what they mean\r\n"
                                 "as a JSON document\r\n"};

}  // namespace

void InstallLogCommands() {
  for (cmd_element* command : {&show_log_cmd, &log_mask_cmd, &show_log_mask_cmd}) {
    install_element(kCommandNode, command);
  }
}

}  // namespace olt_host
